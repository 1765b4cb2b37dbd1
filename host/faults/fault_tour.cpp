#include "host/faults/fault_tour.h"

#include <windows.h>
// This must come behind windows.h.
#include <winddiui.h>

#include <algorithm>
#include <functional>
#include <utility>

#include "host/base/dialog_driver.h"
#include "host/base/host_error.h"
#include "host/driver/device_sheet.h"
#include "host/driver/document_sheet.h"
#include "host/scenes.h"
#include "host/window/page_use.h"
#include "res/resource_ids.h"

namespace zn::host {
namespace {

constexpr UINT kTick = 10;     // milliseconds
constexpr int kPatience = 50;  // ticks until a dialog that does not close is a complaint

// The pages of the preferences by number; the properties have one page, in a sheet of its own.
constexpr int kTreePage = 3;
constexpr int kPages = 5;
constexpr struct {
  TourPart part;
  int first, end;
} kPartPages[] = {{TourPart::Basic, 0, 1},     {TourPart::Tray, 1, 2},
                  {TourPart::Watermark, 2, 3}, {TourPart::Tree, kTreePage, kTreePage + 1},
                  {TourPart::Job, 4, kPages},  {TourPart::All, 0, kPages}};

// Answers each dialog as a user would who wants what it offers, and one that stays with no.
class DialogUser {
 public:
  explicit DialogUser(std::vector<std::string>& complaints) : complaints_(complaints) {}

  // From now on every dialog is answered with no.
  void RefuseAll() { refusesAll_ = true; }

  void operator()(HWND dialog) {
    if (dialog != seen_) {
      seen_ = dialog;
      ticks_ = 0;
    }
    if (++ticks_ == 1 && !refusesAll_) {
      Accept(dialog);
    } else if (ticks_ <= kPatience) {
      RefuseDialog(dialog);
    } else {
      complaints_.emplace_back("a dialog does not close");
      ::EndDialog(dialog, IDCANCEL);
    }
  }

 private:
  static void Accept(HWND dialog) {
    if (const HWND name = ::GetDlgItem(dialog, IDC_FAVORITE_NAME);
        name != nullptr && ::GetDlgItem(dialog, IDC_FAVORITE_COMMENT) != nullptr) {
      ::SetWindowTextA(name, kTourFavorite);
    }
    for (const int button : {IDNO, IDOK, IDC_CUSTOM_OK}) {
      if (::GetDlgItem(dialog, button) != nullptr) {
        ::PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
        return;
      }
    }
    RefuseDialog(dialog);
  }

  std::vector<std::string>& complaints_;
  bool refusesAll_ = false;
  HWND seen_ = nullptr;
  int ticks_ = 0;
};

void Press(HWND page, int button) {
  ::SendDlgItemMessageA(page, button, BM_CLICK, 0, 0);
}

void UsePage(PropertySheet& sheet, int index, std::span<const Scene> scenes, DialogUser& user) {
  const HWND page = sheet.ShowPage(index);
  if (page == nullptr) {
    return;
  }
  // First: what the scenes change is not to be undone by it.
  const HWND favorites = ::GetDlgItem(page, IDC_BASIC_FAVORITES);
  if (favorites != nullptr) {
    ChooseEntry(favorites,
                static_cast<int>(::SendMessageA(favorites, CB_FINDSTRINGEXACT, 0,
                                                reinterpret_cast<LPARAM>(kTourFavorite))));
  }
  for (const Scene& scene : scenes) {
    if (scene.page == index) {
      Play(scene, page);
    }
  }
  if (favorites != nullptr) {
    user.RefuseAll();
    Press(page, IDC_SAVE_FAVORITE);
  }
  if (index == kTreePage) {
    ChangeControls(page);
  }
  sheet.Pump();
}

void UsePages(PropertySheet& sheet, int first, int end, std::span<const Scene> scenes,
              std::vector<std::string>& complaints) {
  for (int index = first; index < std::min(end, sheet.PageCount()); ++index) {
    DialogUser user(complaints);
    DriveDialogs(sheet.Window(), kTick, std::ref(user),
                 [&] { UsePage(sheet, index, scenes, user); });
  }
}

void CloseSheet(PropertySheet& sheet, std::vector<std::string>& complaints) {
  DriveDialogs(sheet.Window(), kTick, DialogUser(complaints), [&] {
    sheet.PressApply();
    sheet.Pump();
    sheet.PressOk();
    sheet.Pump();
    if (sheet.IsOpen()) {
      sheet.PressCancel();
      sheet.Pump();
    }
  });
  if (sheet.IsOpen()) {
    complaints.emplace_back("the sheet does not close");
  }
}

// Shows a sheet and uses pages of it; answers whether the plug-in let it.
bool UseSheet(DriverSheet& sheet, int first, int end, std::span<const Scene> scenes,
              std::vector<std::string>& complaints) {
  try {
    DriveDialogs(nullptr, kTick, DialogUser(complaints), [&] { sheet.Open(); });
  } catch (const HostError&) {
    return false;
  }
  UsePages(sheet.Sheet(), first, end, scenes, complaints);
  CloseSheet(sheet.Sheet(), complaints);
  return true;
}

void UseProperties(PlugIn& plugIn, const Queue& queue, TourEnd& end) {
  DeviceSheet sheet(plugIn, queue, true);
  UseSheet(sheet, 0, 1, PropertiesScenes(), end.complaints);
  std::wstring gone = L"a printer that is gone";
  plugIn->PrinterEvent(gone.data(), PRINTER_EVENT_DELETE, PRINTER_EVENT_FLAG_NO_UI, 0);
}

void UsePreferences(PlugIn& plugIn, const Queue& queue, const QueueDevMode& start, int firstPage,
                    int endPage, TourEnd& end) {
  DocumentSheet sheet(plugIn, queue, start);
  const bool isShown = UseSheet(sheet, firstPage, endPage, PreferencesScenes(), end.complaints);
  QueueDevMode kept = sheet.Finish();
  if (isShown && !sheet.IsRefused()) {
    end.kept = std::move(kept);
    end.complaints.insert(end.complaints.end(), sheet.Faults().begin(), sheet.Faults().end());
  }
}

}  // namespace

TourEnd RunTour(const Queue& queue, const QueueDevMode& start, TourPart part) {
  TourEnd end;
  std::optional<PlugIn> plugIn;
  try {
    plugIn.emplace(queue.PlugInPath());
    if (DocumentSheet::StartDevMode(*plugIn, queue, &start).Bytes() != start.Bytes()) {
      end.complaints.emplace_back("the merge changed settings");
    }
  } catch (const HostError&) {
    return end;
  }
  if (part == TourPart::Properties || part == TourPart::All) {
    UseProperties(*plugIn, queue, end);
  }
  for (const auto& row : kPartPages) {
    if (row.part == part) {
      UsePreferences(*plugIn, queue, start, row.first, row.end, end);
    }
  }
  return end;
}

QueueDevMode PrepareTour(PlugIn& plugIn, const Queue& queue) {
  const QueueDevMode start = DocumentSheet::StartDevMode(plugIn, queue);
  DocumentSheet sheet(plugIn, queue, start);
  sheet.Open();
  PropertySheet& window = sheet.Sheet();
  for (int index = 0; index < window.PageCount(); ++index) {
    const HWND page = window.ShowPage(index);
    DriveDialogs(window.Window(), kTick, &RefuseDialog, [page] { ChangeControls(page); });
  }
  SaveFavorite(window, window.ShowPage(0), kTourFavorite);
  window.PressOk();
  window.Pump();
  const QueueDevMode kept = sheet.Finish();
  return DocumentSheet::StartDevMode(plugIn, queue, &kept);
}

}  // namespace zn::host
