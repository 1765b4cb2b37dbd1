#include "pages/commondlg.h"

#include <algorithm>

#include "pages/accessible_texts.h"
#include "pages/page_frame.h"
#include "pages/tips.h"
#include "res/resource_ids.h"
#include "session/session.h"

namespace zn {
namespace {

constexpr UINT kFirstUserMessage = WM_USER + 100;
constexpr UINT kLastUserMessage = WM_USER + 200;

}  // namespace

INT_PTR CCommonDlg::DlgProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG: {
      const int result = OnInitDialog(wParam, reinterpret_cast<PROPSHEETPAGEA*>(lParam));
      AccessibleTexts().NameExtendedLists(window_);
      return result;
    }
    case WM_DESTROY:
      AccessibleTexts().Forget(window_);
      ForgetTips(window_);
      return 0;
    case WM_COMMAND:
      return OnCommand(HIWORD(wParam), LOWORD(wParam), reinterpret_cast<HWND>(lParam));
    case WM_NOTIFY:
      return OnNotify(reinterpret_cast<NMHDR*>(lParam));
    case WM_DRAWITEM:
      return OnDrawItem(static_cast<UINT>(wParam), reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
    case WM_CLOSE:
      return OnClose();
    default:
      return message >= kFirstUserMessage && message <= kLastUserMessage
                 ? OnUser(message, wParam, lParam)
                 : 0;
  }
}

int CCommonDlg::OnNotify(NMHDR* notification) {
  if (notification == nullptr) {
    return 0;
  }
  switch (notification->code) {
    case static_cast<UINT>(PSN_APPLY):
      SetResult(PSNRET_NOERROR);
      return OnApply(reinterpret_cast<PSHNOTIFY*>(notification)->lParam == 0);
    case static_cast<UINT>(PSN_KILLACTIVE):
      SetResult(FALSE);
      return OnKillActive();
    case static_cast<UINT>(PSN_SETACTIVE):
      SetResult(0);
      return OnSetActive();
    default:
      return 0;
  }
}

int CCommonDlg::OnApply(bool /*applyButtonOnly*/) {
  const SheetContext* sheet = Sheet();
  if (sheet == nullptr) {
    return 0;
  }
  if (sheet->pfnComPropSheet != nullptr) {
    sheet->pfnComPropSheet(sheet->hComPropSheet, CPSFUNC_SET_RESULT,
                           static_cast<LPARAM>(sheet->hLastPage), CPSUI_OK);
  }
  return 1;
}

int CCommonDlg::OnDrawItem(UINT /*controlId*/, DRAWITEMSTRUCT* /*item*/) {
  return 0;
}

int CCommonDlg::OnClose() {
  return 0;
}

int CCommonDlg::OnUser(UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/) {
  return 0;
}

SheetContext* CCommonDlg::Sheet() const noexcept {
  return reinterpret_cast<SheetContext*>(::GetWindowLongPtrA(window_, DWLP_USER));
}

SheetContext* CCommonDlg::AttachSheet(const PROPSHEETPAGEA* page) const noexcept {
  // Any process can send a second WM_INITDIALOG, with whatever pointer.
  if (Sheet() != nullptr) {
    return nullptr;
  }
  auto* const sheet = page != nullptr ? reinterpret_cast<SheetContext*>(page->lParam) : nullptr;
  ::SetWindowLongPtrA(window_, DWLP_USER, reinterpret_cast<LONG_PTR>(sheet));
  return sheet;
}

void CCommonDlg::OnMouse(const PageTable& table) const {
  SheetContext* sheet = Sheet();
  if (sheet != nullptr && MakeTips(window_)) {
    PageFrame(window_, *sheet, table).ShowTips();
  }
}

int CCommonDlg::Fill(const PageTable& table, SheetContext* sheet, bool useDefault) const {
  return sheet != nullptr && PageFrame(window_, *sheet, table).Fill(useDefault);
}

int CCommonDlg::Activate(const PageTable& table) const {
  SheetContext* sheet = Sheet();
  if (sheet == nullptr) {
    return 0;
  }
  MakeActivePage(*sheet);
  PageFrame(window_, *sheet, table).Show();
  return 1;
}

int CCommonDlg::Commit() const {
  SheetContext* sheet = Sheet();
  if (sheet == nullptr) {
    return 0;
  }
  CSession(sheet).CommitSession();
  return 1;
}

int CCommonDlg::Command(const PageTable& table, WORD notifyCode, WORD controlId) {
  SheetContext* sheet = Sheet();
  if (sheet == nullptr) {
    return 0;
  }
  if (std::ranges::find(table.codes, notifyCode) == table.codes.end()) {
    return table.answerToOtherCodes;
  }
  if (controlId == IDC_ILLUSTRATION) {
    return 1;  // a click on the picture
  }
  int result = 1;
  bool isChange = false;
  PageFrame frame(window_, *sheet, table);
  if (controlId == table.restoreButton) {
    result = Initialize(sheet, true);
    Redraw();
    MakeActivePage(*sheet);
    frame.Changed();
    isChange = table.restoringIsAChange;
  } else {
    isChange = frame.Command(notifyCode, controlId);
  }
  if (isChange) {
    NotifyChanged();
  }
  return result;
}

int CCommonDlg::DrawIllustrationOf(const PageTable& table, UINT controlId,
                                   const DRAWITEMSTRUCT* item) const {
  const SheetContext* sheet = Sheet();
  return sheet != nullptr && item != nullptr && controlId == IDC_ILLUSTRATION &&
         table.illustration && DrawIllustration(*item, *sheet, *table.illustration);
}

void CCommonDlg::NotifyChanged() const noexcept {
  ::SendMessageA(::GetParent(window_), PSM_CHANGED, reinterpret_cast<WPARAM>(window_), 0);
}

}  // namespace zn
