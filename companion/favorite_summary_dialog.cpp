// The favourites summary: the list of favourites, what each of them sets, and their deletion.
#include <windows.h>
// This must come behind windows.h.
#include <commctrl.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "companion/companion_ids.h"
#include "companion/companion_module.h"
#include "companion/dialogs.h"
#include "companion/setting_text.h"
#include "companion/unattended.h"

namespace zn::companion {
namespace {

using companion_abi::SummaryItem;

constexpr int kStandardRow = -1;

class FavoriteSummaryDialog {
 public:
  explicit FavoriteSummaryDialog(const FavoriteSummaryCall& call)
      : call_(call), deleted_(static_cast<std::size_t>(call.count)) {}

  int Run() { return RunDialog(IDD_FAVORITE_SUMMARY, call_.owner, *this); }

  // "delete=NAME" removes a favourite, "select=NAME" leaves it selected.
  bool Apply(const std::vector<Assignment>& assignments) {
    for (const auto& [name, value] : assignments) {
      for (int row = 0; row < call_.count; ++row) {
        if (value == call_.favorites[row].name && name == "delete") {
          call_.deleted[row] = 1;
        } else if (value == call_.favorites[row].name && name == "select") {
          *call_.selection = row;
          ::lstrcpynA(call_.name, value.c_str(), companion_abi::kPathSize);
        }
      }
    }
    return true;
  }

  void OnInitDialog(HWND window) {
    dialog_ = window;
    if (call_.page != nullptr) {
      ::SendMessageA(call_.page, companion_abi::kSendTreeItemsMessage, 0,
                     reinterpret_cast<LPARAM>(items_.data()));
    }
    AddRow(LoadText(IDS_STANDARD_SETTINGS).c_str(), kStandardRow);
    for (int row = 0; row < call_.count; ++row) {
      AddRow(call_.favorites[row].name, row);
    }
    // Entry 0 is the standard settings.
    const int selected = std::clamp(*call_.selection, kStandardRow, call_.count - 1);
    SendList(LB_SETCURSEL, static_cast<WPARAM>(selected) + 1);
    ShowSelected();
  }

  INT_PTR OnCommand(int control, int notification) {
    switch (control) {
      case IDC_FAVORITES:
        if (notification == LBN_SELCHANGE) {
          ShowSelected();
        }
        return TRUE;
      case IDC_DELETE_FAVORITE:
        DeleteSelected();
        return TRUE;
      case IDOK:
        Store();
        [[fallthrough]];
      case IDCANCEL:
        ::EndDialog(dialog_, control);
        return TRUE;
      default:
        return FALSE;
    }
  }

 private:
  LRESULT SendList(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return ::SendDlgItemMessageA(dialog_, IDC_FAVORITES, message, wParam, lParam);
  }

  void AddRow(const char* name, int row) {
    const LRESULT entry = SendList(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
    SendList(LB_SETITEMDATA, static_cast<WPARAM>(entry), row);
  }

  [[nodiscard]] int SelectedRow() const {
    return static_cast<int>(SendList(LB_GETITEMDATA, static_cast<WPARAM>(SendList(LB_GETCURSEL))));
  }

  void ShowSelected() {
    const int row = SelectedRow();
    const bool standard = row == kStandardRow;
    ::EnableWindow(::GetDlgItem(dialog_, IDC_DELETE_FAVORITE), !standard);
    ::SetDlgItemTextA(dialog_, IDC_SUMMARY_COMMENT, standard ? "" : call_.favorites[row].comment);
    ShowTree(standard ? *call_.defaults : *call_.favorites[row].settings);
  }

  void ShowTree(const ddb::CPrintOption& settings) {
    const HWND tree = ::GetDlgItem(dialog_, IDC_SETTINGS);
    ::SendMessageA(tree, WM_SETREDRAW, FALSE, 0);
    TreeView_DeleteAllItems(tree);
    std::array<HTREEITEM, 4> parents{};  // the last item of each level
    for (const SummaryItem& item : items_) {
      if (item.id == 0) {
        break;
      }
      const auto level = static_cast<std::size_t>(std::clamp(item.level, 0, 3));
      std::string text = SettingText(item.id, settings);
      TVINSERTSTRUCTA insert{};
      insert.hParent = level == 0 ? TVI_ROOT : parents[level - 1];
      insert.hInsertAfter = TVI_LAST;
      insert.item.mask = TVIF_TEXT;
      insert.item.pszText = text.data();
      parents[level] = reinterpret_cast<HTREEITEM>(
          ::SendMessageA(tree, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insert)));
      if (level > 0) {
        TreeView_Expand(tree, parents[level - 1], TVE_EXPAND);
      }
    }
    ::SendMessageA(tree, WM_SETREDRAW, TRUE, 0);
    ::SendMessageA(tree, WM_VSCROLL, SB_TOP, 0);
  }

  void DeleteSelected() {
    const int row = SelectedRow();
    if (row == kStandardRow) {
      return;
    }
    deleted_[static_cast<std::size_t>(row)] = 1;
    const LRESULT entry = SendList(LB_GETCURSEL);
    SendList(LB_DELETESTRING, static_cast<WPARAM>(entry));
    SendList(LB_SETCURSEL, static_cast<WPARAM>(entry - 1));  // entry 0 cannot be deleted
    ShowSelected();
  }

  void Store() {
    const int row = SelectedRow();
    *call_.selection = row;
    ::lstrcpynA(call_.name, row == kStandardRow ? "" : call_.favorites[row].name,
                companion_abi::kPathSize);
    std::ranges::copy(deleted_, call_.deleted);
  }

  FavoriteSummaryCall call_;
  std::vector<std::uint8_t> deleted_;
  std::array<SummaryItem, companion_abi::kSummaryItemCount> items_{};
  HWND dialog_ = nullptr;
};

}  // namespace

int RunFavoriteSummaryDialog(const FavoriteSummaryCall& call) {
  return AnswerOrRun(FavoriteSummaryDialog(call));
}

}  // namespace zn::companion
