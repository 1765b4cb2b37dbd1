// Uses the preferences as a user would, again and again: what is left over when they are closed.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "companion/call_counter.h"
#include "host/base/dialog_driver.h"
#include "host/base/resource_usage.h"
#include "host/driver/document_sheet.h"
#include "host/driver/queue.h"
#include "host/private_favorites.h"
#include "host/rounds.h"
#include "host/verbs.h"
#include "host/window/page_use.h"
#include "res/resource_ids.h"

namespace zn::host {
namespace {

constexpr UINT kTick = 10;     // milliseconds
constexpr int kFavorites = 3;  // fewer than the warm-up rounds: they make them all

// Saves a favourite, old or new, and chooses every one from the list.
void UseFavorites(const PropertySheet& sheet, HWND page, int round) {
  const HWND list = ::GetDlgItem(page, IDC_BASIC_FAVORITES);
  if (list == nullptr) {
    return;
  }
  SaveFavorite(sheet, page, "favorite " + std::to_string((round + kWarmUpRounds) % kFavorites));
  const auto count = static_cast<int>(::SendMessageA(list, CB_GETCOUNT, 0, 0));
  for (int entry = count - 1; entry >= 0; --entry) {
    ChooseEntry(list, entry);
  }
  ChooseEntry(list, 1);
}

void UsePage(PropertySheet& sheet, int index, int round) {
  const HWND page = sheet.ShowPage(index);
  if (page == nullptr) {
    throw HostError("page " + std::to_string(index + 1) + " cannot be shown");
  }
  sheet.Pump();
  DriveDialogs(sheet.Window(), kTick, &RefuseDialog, [page] {
    PressButtons(page);  // first: one of them restores the defaults
    ChangeControls(page);
  });
  UseFavorites(sheet, page, round);
  sheet.Pump();
}

void RunRound(PlugIn& plugIn, const Queue& queue, const QueueDevMode& start, int round) {
  DocumentSheet sheet(plugIn, queue, start);
  sheet.Open();
  PropertySheet& window = sheet.Sheet();
  for (int page = 0; page < window.PageCount(); ++page) {
    UsePage(window, page, round);
  }
  window.PressApply();
  if (round % 2 == 0) {
    window.PressOk();
  } else {
    window.PressCancel();
  }
  window.Pump();
  if (window.IsOpen()) {
    throw HostError("the sheet does not close");
  }
  if (sheet.Finish().Bytes() == start.Bytes()) {
    throw HostError("no change was applied");
  }
  if (!sheet.Faults().empty()) {
    throw HostError(sheet.Faults().front());
  }
}

}  // namespace

int RunSoak(Words words) {
  const int rounds = ParseRounds("soak", words);
  const SheetWords parsed = ParseSheetWords(words.subspan(1), {"--queue"});
  ::SetCurrentDirectoryA("C:\\");
  const Queue queue(parsed.queue);
  PlugIn plugIn(queue.PlugInPath());
  const PrivateFavorites favorites(plugIn.Module());
  const QueueDevMode start = DocumentSheet::StartDevMode(plugIn, queue);
  const companion::CallCounter calls;

  ResourceUsage before;
  LONG mostLoads = 0;  // of the companion in one round: they depend on the settings it comes to
  for (int round = -kWarmUpRounds; round < rounds; ++round) {
    if (round == 0) {
      before = CountResources();
    }
    const LONG loads = calls[companion::Call::Load];
    RunRound(plugIn, queue, start, round);
    mostLoads = std::max(mostLoads, calls[companion::Call::Load] - loads);
  }
  const ResourceUsage after = CountResources();

  std::printf("rounds: %d\n", rounds);
  bool grown = false;
  for (const auto& [name, count] : kResources) {
    std::printf("%s: %d -> %d\n", name, before.*count, after.*count);
    // Caches may add a heap block now and then; one in every round is a leak.
    const int slack = count == &ResourceUsage::heapBlocks ? rounds - 1 : 0;
    grown |= after.*count > before.*count + slack;
  }
  std::printf("companion loads of a round: %ld at most\n", mostLoads);
  return grown ? 1 : 0;
}

}  // namespace zn::host
