#include "pages/traypage.h"

#include <array>

#include "pages/page_images.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

constexpr std::array kListImages{ListImages{IDC_TRAY_STAPLE, IDB_STAPLE},
                                 ListImages{IDC_TRAY_PUNCH, IDB_PUNCH}};

constexpr PageTable kTable{.controls = {},
                           .codes = {},
                           .answerToOtherCodes = 0,
                           .restoreButton = IDC_RESTORE_DEFAULTS,
                           .restoringIsAChange = false};

}  // namespace

int CTrayPageDlg::OnInitDialog(WPARAM /*wParam*/, PROPSHEETPAGEA* page) {
  AttachImages(window_, kListImages);
  return Initialize(AttachSheet(page), false);
}

int CTrayPageDlg::OnCommand(WORD /*notifyCode*/, WORD /*controlId*/, HWND /*control*/) {
  return 0;
}

int CTrayPageDlg::OnSetActive() {
  return Activate(kTable);
}

int CTrayPageDlg::OnKillActive() {
  return Commit();
}

int CTrayPageDlg::Initialize(SheetContext* sheet, bool /*useDefault*/) {
  return sheet != nullptr;
}

}  // namespace zn
