// What many favourites cost the user: the wait until the basic page stands on the screen, and the
// choice of one of them.
#include <windows.h>
// This must come behind windows.h.
#include <commctrl.h>

#include <map>
#include <string>
#include <vector>

#include "host/base/files.h"
#include "host/base/stopwatch.h"
#include "host/driver/document_sheet.h"
#include "host/driver/queue.h"
#include "host/opening.h"
#include "host/private_favorites.h"
#include "host/rounds.h"
#include "host/verbs.h"
#include "host/window/page_use.h"
#include "res/resource_ids.h"

namespace zn::host {
namespace {

constexpr int kFew = 1000;
constexpr int kMany = 10000;
constexpr int kChoices = 10;  // in each round
constexpr int kDifferences[] = {IDC_BASIC_COLOR_MODE, IDC_BASIC_DUPLEX, IDC_BASIC_NUP};
constexpr char kOne[] = "one";
constexpr char kOther[] = "other";

std::string NameOf(int favorite) {
  return "favorite " + std::to_string(kMany + favorite);  // all of one length: sorted
}

// Two favourites that differ in what the page shows, and sets of many with one or the other.
void MakeFavorites(PrivateFavorites& favorites, PlugIn& plugIn, const Queue& queue,
                   const QueueDevMode& start) {
  DocumentSheet sheet(plugIn, queue, start);
  sheet.Open();
  const HWND page = sheet.Sheet().ShowPage(0);
  SaveFavorite(sheet.Sheet(), page, kOne);
  for (const int list : kDifferences) {
    ChooseEntry(::GetDlgItem(page, list), 1);
  }
  SaveFavorite(sheet.Sheet(), page, kOther);
  CloseFaultless(sheet);

  const auto one = ReadWholeFile(favorites.FileOf(kOne));
  const auto other = ReadWholeFile(favorites.FileOf(kOther));
  if (!one || !other || *one == *other) {
    throw HostError("the favourites were not saved");
  }
  for (const int count : {0, kFew, kMany}) {
    favorites.Enter(std::to_string(count));
    for (int i = 0; i < count; ++i) {
      if (!WriteWholeFile(favorites.FileOf(NameOf(i)), i % 2 == 0 ? *one : *other)) {
        throw HostError("cannot write a favourite");
      }
    }
  }
}

template <class Work>
void Time(std::vector<double>& times, Work&& work) {
  const double start = MillisecondsNow();
  work();
  times.push_back(MillisecondsNow() - start);
}

void Update(HWND page) {
  ::RedrawWindow(page, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

// Favourites from all over the list, one kind after the other.
void TimeChoices(std::vector<double>& times, HWND page, int count) {
  const HWND list = ::GetDlgItem(page, IDC_BASIC_FAVORITES);
  ChooseEntry(list, 0);  // an opened list has all its entries
  if (::SendMessageA(list, CB_GETCOUNT, 0, 0) != count + 1) {
    throw HostError("the page does not list all favourites");
  }
  for (int i = 0; i < kChoices; ++i) {
    const int favorite = (count / kChoices * i) | (i % 2);
    Time(times, [&] {
      ChooseEntry(list, favorite + 1);  // the first entry is the standard one
      Update(page);
    });
  }
}

// The same without a list: the file is read, and the page, shown again, shows its settings.
void TimeRefills(std::vector<double>& times, HWND page, const std::string& file) {
  NMHDR header{::GetParent(page), 0, static_cast<UINT>(PSN_SETACTIVE)};
  for (int i = 0; i < kChoices; ++i) {
    Time(times, [&] {
      if (!ReadWholeFile(file)) {
        throw HostError("cannot read " + file);
      }
      ::SendMessageA(page, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header));
      for (const int list : kDifferences) {  // as drawn for another favourite
        ::RedrawWindow(::GetDlgItem(page, list), nullptr, nullptr,
                       RDW_INVALIDATE | RDW_ALLCHILDREN);
      }
      Update(page);
    });
  }
}

}  // namespace

int RunFavorites(Words words) {
  const int rounds = ParseRounds("favorites", words);
  const SheetWords parsed = ParseSheetWords(words.subspan(1), {"--queue"});
  ::SetCurrentDirectoryA("C:\\");
  const Queue queue(parsed.queue);
  PlugIn plugIn(queue.PlugInPath());
  PrivateFavorites favorites(plugIn.Module());
  const QueueDevMode start = DocumentSheet::StartDevMode(plugIn, queue);
  MakeFavorites(favorites, plugIn, queue, start);
  favorites.Enter(std::to_string(kFew));
  std::vector<std::string> files;
  files.reserve(kFew);
  for (int i = 0; i < kFew; ++i) {
    files.push_back(favorites.FileOf(NameOf(i)));
  }

  std::map<int, std::vector<double>> openings;
  std::map<int, std::vector<double>> choices;  // of 0: the reference
  std::vector<double> readings;
  for (int round = -1; round < rounds; ++round) {
    if (round == 0) {
      openings.clear();
      choices.clear();
      readings.clear();
    }
    for (const int count : {0, kFew, kMany}) {
      favorites.Enter(std::to_string(count));
      DocumentSheet sheet(plugIn, queue, start);
      openings[count].push_back(TimeOpening(sheet));
      const HWND page = sheet.Sheet().CurrentPage();
      if (count == 0) {
        TimeRefills(choices[count], page, files.front());
      } else {
        TimeChoices(choices[count], page, count);
      }
      CloseFaultless(sheet);
    }
    Time(readings, [&] {
      for (const std::string& file : files) {
        (void)ReadWholeFile(file);
      }
    });
  }

  for (const int count : {kFew, kMany}) {
    PrintTimes(("choose of " + std::to_string(count)).c_str(), choices[count], "read and refill",
               choices[0]);
  }
  const double empty = Median(openings[0]);
  const double few = Median(openings[kFew]) - empty;
  const double many = Median(openings[kMany]) - empty;
  PrintRatio("wait for 10000", many, "read 1000", Median(readings), "ms");
  PrintRatio("wait for 1000", few, "read 1000", Median(readings), "ms");
  return 0;
}

}  // namespace zn::host
