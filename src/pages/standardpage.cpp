#include "pages/standardpage.h"

#include <array>

#include "pages/page_images.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

constexpr std::array kListImages{
    ListImages{IDC_BASIC_FAVORITES, IDB_FAVORITE}, ListImages{IDC_BASIC_DUPLEX, IDB_DUPLEX},
    ListImages{IDC_BASIC_NUP, IDB_NUP}, ListImages{IDC_BASIC_COLOR_MODE, IDB_COLOR_MODE}};

constexpr PageTable kTable{.controls = {},
                           .codes = {},
                           .answerToOtherCodes = 0,
                           .restoreButton = IDC_RESTORE_DEFAULTS,
                           .restoringIsAChange = false};

}  // namespace

int CStandardPageDlg::OnInitDialog(WPARAM /*wParam*/, PROPSHEETPAGEA* page) {
  AttachImages(window_, kListImages);
  return Initialize(AttachSheet(page), false);
}

int CStandardPageDlg::OnCommand(WORD /*notifyCode*/, WORD /*controlId*/, HWND /*control*/) {
  return 0;
}

int CStandardPageDlg::OnSetActive() {
  return Activate(kTable);
}

int CStandardPageDlg::OnKillActive() {
  return Commit();
}

int CStandardPageDlg::Initialize(SheetContext* sheet, bool /*useDefault*/) {
  return sheet != nullptr;
}

}  // namespace zn
