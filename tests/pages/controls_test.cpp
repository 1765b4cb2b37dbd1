// The shared routines of the pages, on controls of real pages.

#include <array>

#include "page_sheet.h"
#include "pages/pspage.h"
#include "res/resource_ids.h"

namespace zn::test {
namespace {

using Controls = PageSheetTest;

// Lists with images are higher than others.
TEST_F(Controls, LabelsStandBesideTheMiddleOfTheirLists) {
  constexpr int kTolerance = 2;  // pixels
  const struct {
    PageIndex page;
    std::vector<int> labels;
  } rows[] = {
      {kBasicPage,
       {IDC_BASIC_FAVORITES_LABEL, IDC_BASIC_PAGE_SIZE_LABEL, IDC_BASIC_OUTPUT_SIZE_LABEL,
        IDC_BASIC_FIT_SIZE_LABEL, IDC_BASIC_COPIES_LABEL, IDC_BASIC_DUPLEX_LABEL,
        IDC_BASIC_NUP_LABEL, IDC_BASIC_COLOR_MODE_LABEL}},
      {kTrayPage,
       {IDC_TRAY_SOURCE_LABEL, IDC_TRAY_OUTPUT_LABEL, IDC_TRAY_JOG_LABEL, IDC_TRAY_STAPLE_LABEL,
        IDC_TRAY_PUNCH_LABEL}},
      {kWatermarkPage, {IDC_WATERMARK_NUMBER_LABEL, IDC_WATERMARK_ORDER_LABEL}},
      {kJobPage, {IDC_JOB_NAME_LABEL, IDC_JOB_COLOR_MODE_LABEL, IDC_JOB_PRINTER_MODE_LABEL}}};
  const auto middleOf = [](HWND window) {
    RECT rect{};
    ::GetWindowRect(window, &rect);
    return (rect.top + rect.bottom) / 2;
  };
  for (const auto& row : rows) {
    Open(row.page);
    for (const int label : row.labels) {
      const HWND list = ::GetWindow(Control(label), GW_HWNDNEXT);
      EXPECT_NEAR(middleOf(Control(label)), middleOf(list), kTolerance) << label;
    }
    Close();
  }
}

TEST_F(Controls, RadioGroupsMoveTheFocusToTheCheckedRadio) {
  constexpr std::array kRadios{IDC_BASIC_PORTRAIT, IDC_BASIC_LANDSCAPE, IDC_BASIC_ROTATED};
  Open(kBasicPage);
  ::SetFocus(Control(IDC_BASIC_PORTRAIT));
  CheckRadio(Page(), kRadios, 2);
  EXPECT_EQ(CheckedRadio(Page(), kRadios), 2);
  EXPECT_EQ(::GetFocus(), Control(IDC_BASIC_ROTATED));
  ::SetFocus(Control(IDC_RESTORE_DEFAULTS));
  CheckRadio(Page(), kRadios, 1);
  EXPECT_EQ(::GetFocus(), Control(IDC_RESTORE_DEFAULTS));
  CheckRadio(Page(), kRadios, 3);
  EXPECT_EQ(CheckedRadio(Page(), kRadios), -1);
  // Of two checked radios the last counts.
  ::CheckDlgButton(Page(), IDC_BASIC_PORTRAIT, BST_CHECKED);
  ::CheckDlgButton(Page(), IDC_BASIC_LANDSCAPE, BST_CHECKED);
  EXPECT_EQ(CheckedRadio(Page(), kRadios), 1);
}

}  // namespace
}  // namespace zn::test
