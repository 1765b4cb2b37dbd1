#include "pages/traypage.h"

namespace zn {

int CTrayPageDlg::OnInitDialog(WPARAM /*wParam*/, PROPSHEETPAGEA* page) {
  return Initialize(AttachSheet(page), false);
}

int CTrayPageDlg::OnCommand(WORD /*notifyCode*/, WORD /*controlId*/, HWND /*control*/) {
  return 0;
}

int CTrayPageDlg::OnSetActive() {
  return BecomeActive();
}

int CTrayPageDlg::OnKillActive() {
  return CommitPage();
}

int CTrayPageDlg::Initialize(SheetContext* sheet, bool /*useDefault*/) {
  return sheet != nullptr;
}

}  // namespace zn
