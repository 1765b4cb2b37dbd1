#include "pages/standardpage.h"

namespace zn {

int CStandardPageDlg::OnInitDialog(WPARAM /*wParam*/, PROPSHEETPAGEA* page) {
  return Initialize(AttachSheet(page), false);
}

int CStandardPageDlg::OnCommand(WORD /*notifyCode*/, WORD /*controlId*/, HWND /*control*/) {
  return 0;
}

int CStandardPageDlg::OnSetActive() {
  return BecomeActive();
}

int CStandardPageDlg::OnKillActive() {
  return CommitPage();
}

int CStandardPageDlg::Initialize(SheetContext* sheet, bool /*useDefault*/) {
  return sheet != nullptr;
}

}  // namespace zn
