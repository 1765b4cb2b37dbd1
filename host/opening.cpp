// How long opening the preferences takes, beside a sheet of the same templates with empty pages,
// and how often the companion is loaded for it.
#include "host/opening.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "companion/call_counter.h"
#include "host/base/host_ids.h"
#include "host/base/stopwatch.h"
#include "host/driver/queue.h"
#include "host/rounds.h"
#include "host/verbs.h"
#include "res/resource_ids.h"

namespace zn::host {
namespace {

using companion::Call;
using companion::CallCounter;

HWND VisitPage(PropertySheet& sheet, int index) {
  const HWND page = sheet.ShowPage(index);
  if (page == nullptr) {
    throw HostError("page " + std::to_string(index + 1) + " cannot be shown");
  }
  sheet.Pump();
  return page;
}

struct Round {
  double opening;           // milliseconds from DocumentPropertySheets to the first page
  std::vector<LONG> loads;  // of the companion, for each page from the first on
};

Round RunRound(PlugIn& plugIn, const Queue& queue, const QueueDevMode& start,
               const CallCounter& calls) {
  DocumentSheet sheet(plugIn, queue, start);
  LONG before = calls[Call::Load];
  Round round{TimeOpening(sheet), {calls[Call::Load] - before}};
  for (int page = 1; page < sheet.Sheet().PageCount(); ++page) {
    before = calls[Call::Load];
    VisitPage(sheet.Sheet(), page);
    round.loads.push_back(calls[Call::Load] - before);
  }
  CloseFaultless(sheet);
  return round;
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
  for (int page = 1; page < sheet.PageCount(); ++page) {
    VisitPage(sheet, page);
  }
  sheet.PressCancel();
  return opening;
}

}  // namespace

void ShowFirstPage(PropertySheet& sheet) {
  sheet.Pump();
  ::RedrawWindow(sheet.Window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

double TimeOpening(DocumentSheet& sheet) {
  sheet.Open();
  ShowFirstPage(sheet.Sheet());
  return MillisecondsNow() - sheet.InitTime();
}

void CloseFaultless(DocumentSheet& sheet) {
  sheet.Sheet().PressCancel();
  sheet.Finish();
  if (!sheet.Faults().empty()) {
    throw HostError(sheet.Faults().front());
  }
}

int RunOpening(Words words) {
  const int rounds = ParseRounds("open", words);
  const SheetWords parsed = ParseSheetWords(words.subspan(1), {"--queue"});
  ::SetCurrentDirectoryA("C:\\");
  const Queue queue(parsed.queue);
  PlugIn plugIn(queue.PlugInPath());
  const QueueDevMode start = DocumentSheet::StartDevMode(plugIn, queue);
  const CallCounter calls;

  std::vector<double> openings;
  std::vector<double> references;
  std::vector<LONG> loads;
  for (int round = -kWarmUpRounds; round < rounds; ++round) {
    Round measured = RunRound(plugIn, queue, start, calls);
    const double reference = RunReference(plugIn.Module());
    if (round >= 0) {
      openings.push_back(measured.opening);
      references.push_back(reference);
      loads = std::move(measured.loads);
    }
  }

  PrintTimes("open", openings, "empty pages", references);
  for (std::size_t page = 0; page < loads.size(); ++page) {
    std::printf("companion loads of page %zu: %ld\n", page + 1, loads[page]);
  }
  PrintRatio("companion loads of a page", static_cast<double>(std::ranges::max(loads)),
             "loads needed", 1, "times");
  return 0;
}

}  // namespace zn::host
