// Opens, visits and closes the preferences again and again: how long opening takes, beside a sheet
// of the same templates with empty pages, how often the companion is loaded, and what is left over.
#include <windows.h>

#include <cstdio>
#include <vector>

#include "companion/call_counter.h"
#include "host/base/host_ids.h"
#include "host/base/resource_usage.h"
#include "host/base/stopwatch.h"
#include "host/driver/document_sheet.h"
#include "host/driver/queue.h"
#include "host/rounds.h"
#include "host/verbs.h"
#include "res/resource_ids.h"

namespace zn::host {
namespace {

using companion::Call;
using companion::CallCounter;

// Until the first page stands on the screen.
void ShowFirstPage(PropertySheet& sheet) {
  sheet.Pump();
  ::RedrawWindow(sheet.Window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void VisitPages(PropertySheet& sheet) {
  for (int page = 1; page < sheet.PageCount(); ++page) {
    if (sheet.ShowPage(page) == nullptr) {
      throw HostError("page " + std::to_string(page + 1) + " cannot be shown");
    }
    sheet.Pump();
  }
}

struct Round {
  double opening;   // milliseconds from DocumentPropertySheets to the first page
  LONG openLoads;   // of the companion, from CommonUIProp to the first page
  LONG roundLoads;  // with every page visited
};

Round RunRound(PlugIn& plugIn, const Queue& queue, const QueueDevMode& start,
               const CallCounter& calls) {
  const LONG before = calls[Call::Load];
  DocumentSheet sheet(plugIn, queue, start);
  sheet.Open();
  ShowFirstPage(sheet.Sheet());
  const double opening = MillisecondsNow() - sheet.InitTime();
  const LONG opened = calls[Call::Load];
  VisitPages(sheet.Sheet());
  sheet.Sheet().PressCancel();
  sheet.Finish();
  if (!sheet.Faults().empty()) {
    throw HostError(sheet.Faults().front());
  }
  return {opening, opened - before, calls[Call::Load] - before};
}

INT_PTR CALLBACK EmptyPage(HWND, UINT, WPARAM, LPARAM) {
  return FALSE;
}

// The reference: the plug-in's templates, and the tree's, without anything behind them.
double RunReference(HINSTANCE plugIn) {
  struct Template {
    HINSTANCE module;
    int id;
  };
  const HINSTANCE host = ::GetModuleHandleA(nullptr);
  const double start = MillisecondsNow();
  PropertySheet sheet;
  for (const auto& [module, id] :
       {Template{plugIn, IDD_BASIC_PAGE}, Template{plugIn, IDD_TRAY_PAGE},
        Template{plugIn, IDD_WATERMARK_PAGE}, Template{host, IDD_TREE_PAGE},
        Template{plugIn, IDD_JOB_PAGE}}) {
    PROPSHEETPAGEA page{};
    page.dwSize = sizeof page;
    page.hInstance = module;
    page.pszTemplate = MAKEINTRESOURCEA(id);
    page.pfnDlgProc = &EmptyPage;
    sheet.AddPage(page);
  }
  sheet.Open("reference");
  ShowFirstPage(sheet);
  const double opening = MillisecondsNow() - start;
  VisitPages(sheet);
  sheet.PressCancel();
  return opening;
}

void PrintUsage(const char* what, int before, int after) {
  std::printf("%s: %d -> %d\n", what, before, after);
}

}  // namespace

int RunSoak(Words words) {
  const int rounds = ParseRounds("soak", words);
  const SheetWords parsed = ParseSheetWords(words.subspan(1), {"--queue"});
  ::SetCurrentDirectoryA("C:\\");
  const Queue queue(parsed.queue);
  PlugIn plugIn(queue.PlugInPath());
  const QueueDevMode start = DocumentSheet::StartDevMode(plugIn, queue);
  const CallCounter calls;

  std::vector<double> openings;
  std::vector<double> references;
  Round last{};
  ResourceUsage before;
  for (int round = -kWarmUpRounds; round < rounds; ++round) {
    if (round == 0) {
      before = CountResources();
    }
    last = RunRound(plugIn, queue, start, calls);
    const double reference = RunReference(plugIn.Module());
    if (round >= 0) {
      openings.push_back(last.opening);
      references.push_back(reference);
    }
  }
  const ResourceUsage after = CountResources();

  std::printf("rounds: %d\n", rounds);
  PrintTimes("open", openings, "empty pages", references);
  std::printf("companion loads: %ld until the first page, %ld with all pages\n", last.openLoads,
              last.roundLoads);
  PrintUsage("GDI objects", before.gdiObjects, after.gdiObjects);
  PrintUsage("windows", before.windows, after.windows);
  PrintUsage("handles", before.handles, after.handles);
  PrintUsage("TLS slots", before.tlsSlots, after.tlsSlots);
  PrintUsage("heap blocks", before.heapBlocks, after.heapBlocks);
  // Caches may add a heap block now and then; one in every round is a leak.
  const bool grown = after.gdiObjects > before.gdiObjects || after.windows > before.windows ||
                     after.handles > before.handles || after.tlsSlots > before.tlsSlots ||
                     after.heapBlocks >= before.heapBlocks + rounds;
  return grown ? 1 : 0;
}

}  // namespace zn::host
