#include "pages/traypage.h"

#include <array>

#include "pages/pspage.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

constexpr std::array kListImages{ListImages{IDC_TRAY_STAPLE, IDB_STAPLE},
                                 ListImages{IDC_TRAY_PUNCH, IDB_PUNCH}};

}  // namespace

int CTrayPageDlg::OnInitDialog(WPARAM /*wParam*/, PROPSHEETPAGEA* page) {
  AttachImages(window_, kListImages);
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
