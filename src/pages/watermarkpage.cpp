#include "pages/watermarkpage.h"

namespace zn {

int CWatermarkPageDlg::OnInitDialog(WPARAM /*wParam*/, PROPSHEETPAGEA* page) {
  return Initialize(AttachSheet(page), false);
}

int CWatermarkPageDlg::OnCommand(WORD /*notifyCode*/, WORD /*controlId*/, HWND /*control*/) {
  return 0;
}

int CWatermarkPageDlg::OnSetActive() {
  return BecomeActive();
}

int CWatermarkPageDlg::OnKillActive() {
  return CommitPage();
}

int CWatermarkPageDlg::Initialize(SheetContext* sheet, bool /*useDefault*/) {
  return sheet != nullptr;
}

}  // namespace zn
