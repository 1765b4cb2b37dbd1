// The shared routines of the pages, on controls of real pages.

#include <array>

#include "page_sheet.h"
#include "pages/page_frame.h"
#include "pages/page_images.h"
#include "pages/pspage.h"
#include "res/resource_ids.h"
#include "session/job_values.h"
#include "tests/support/temp_folder.h"

namespace zn::test {
namespace {

class Controls : public PageSheetTest {
 protected:
  [[nodiscard]] COMBOBOXEXITEMA Entry(int listId, int index) const {
    COMBOBOXEXITEMA entry{};
    entry.mask = CBEIF_IMAGE | CBEIF_SELECTEDIMAGE;
    entry.iItem = index;
    ::SendMessageA(Control(listId), CBEM_GETITEMA, 0, reinterpret_cast<LPARAM>(&entry));
    return entry;
  }
};

// A list with images as a page has it, on the template of the basic page.
constexpr std::array<std::uint8_t, 2> kImages{1, 2};
constexpr std::array kColorMode{ControlRow{.keyword = KW_COLORMODEL,
                                           .kind = ControlKind::ExtendedList,
                                           .label = IDC_BASIC_COLOR_MODE_LABEL,
                                           .id = IDC_BASIC_COLOR_MODE,
                                           .caption = Caption::CompanionColon,
                                           .images = {IDB_COLOR_MODE, kImages}}};
constexpr PageTable kColorTable{kColorMode, {}, 0, 0, false};

TEST_F(Controls, ListShowsCompanionNamesWithImages) {
  Open(kBasicPage);
  SetSelections(KW_COLORMODEL, 0, 0x00050001);  // only the low 16 bits select
  PageFrame frame(Page(), *sheet_, kColorTable);
  ASSERT_TRUE(frame.Fill(false));
  EXPECT_EQ(Text(IDC_BASIC_COLOR_MODE_LABEL), Japanese("カラーモード:"));
  EXPECT_EQ(Count(IDC_BASIC_COLOR_MODE), 2);
  EXPECT_EQ(Selected(IDC_BASIC_COLOR_MODE), 1);
  EXPECT_EQ(Entry(IDC_BASIC_COLOR_MODE, 0).iImage, 1);
  EXPECT_EQ(Entry(IDC_BASIC_COLOR_MODE, 1).iSelectedImage, 2);
  // Filling again replaces the entries; the default is another one.
  ASSERT_TRUE(frame.Fill(true));
  EXPECT_EQ(Count(IDC_BASIC_COLOR_MODE), 2);
  EXPECT_EQ(Selected(IDC_BASIC_COLOR_MODE), 0);
  EXPECT_EQ(Current(KW_COLORMODEL), 0u);
}

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
      EXPECT_NEAR(middleOf(Control(label)), middleOf(ListOfLabel(Page(), label)), kTolerance)
          << label;
    }
    Close();
  }
}

TEST_F(Controls, PagesThatStoreEveryChangeCommitWhenTheyAreLeft) {
  SetSelections(KW_COLORMODEL, 0, 0);
  std::uint32_t selection = 0;
  for (const PageIndex page : {kBasicPage, kTrayPage, kWatermarkPage}) {
    SCOPED_TRACE(page);
    Open(page);
    EXPECT_EQ(sheet_->activePage, Page());
    selection ^= 1;
    sheet_->SetCurrent(KW_COLORMODEL, selection);
    ASSERT_TRUE(Activate(kJobPage));
    EXPECT_EQ(sheet_->items[KW_COLORMODEL]->Sel, static_cast<LONG>(selection));
    Close();
  }
  EXPECT_EQ(driver_.updates.size(), 3u);
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

TEST(WarningImages, MarkWhatIsNotAvailable) {
  const HIMAGELIST warnings = LoadWarningImage().m_hImgWarningList_16.get();
  EXPECT_EQ(LoadWarningImage().m_hImgWarningList_16.get(), warnings) << "made once";
  ASSERT_EQ(::ImageList_GetImageCount(warnings), 1);
  EXPECT_NE(LoadWarningImage().icon24, nullptr);
  EXPECT_NE(LoadWarningImage().icon32, nullptr);

  const HIMAGELIST list = SharedImages(IDB_STAPLE);
  const int warning = ::ImageList_GetImageCount(list) - 1;
  constexpr std::array<std::uint32_t, 4> kAvailable{1, 0, 1, 0};
  std::array images{7, 7, 8, 8};
  EXPECT_EQ(SetWarningIndex(kAvailable, images, list), 1);
  EXPECT_EQ(images, (std::array{7, warning, 8, warning}));

  constexpr std::array<std::uint32_t, 4> kAll{1, 1, 2, 1};
  EXPECT_EQ(SetWarningIndex(kAll, images, list), 0);
  EXPECT_EQ(SetWarningIndex(kAvailable, images, nullptr), 0);
  EXPECT_EQ(SetWarningIndex({}, images, list), 0);
  const UniqueImageList empty(::ImageList_Create(16, 16, ILC_COLOR32, 1, 1));
  EXPECT_EQ(SetWarningIndex(kAvailable, images, empty.get()), 0);
  EXPECT_EQ(images, (std::array{7, warning, 8, warning}));
}

}  // namespace
}  // namespace zn::test
