// The shared routines of the pages, on controls of real pages.

#include <array>

#include "page_sheet.h"
#include "pages/pspage.h"
#include "platform/resources.h"
#include "res/resource_ids.h"

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
  [[nodiscard]] LRESULT Count(int listId) const {
    return ::SendMessageA(Control(listId), CB_GETCOUNT, 0, 0);
  }
};

TEST_F(Controls, ListShowsCompanionNamesWithImages) {
  Open(kBasicPage);
  SetSelections(KW_COLORMODEL, 0, 0x00050001);  // only the low 16 bits select
  constexpr std::array kImages{1, 2};
  ASSERT_TRUE(
      InitComboBox(Page(), *sheet_, KW_COLORMODEL, IDC_BASIC_COLOR_MODE_LABEL, false, kImages));
  EXPECT_EQ(Text(IDC_BASIC_COLOR_MODE_LABEL), Japanese("カラーモード:"));
  EXPECT_EQ(Count(IDC_BASIC_COLOR_MODE), 2);
  EXPECT_EQ(Selected(IDC_BASIC_COLOR_MODE), 1);
  EXPECT_EQ(Entry(IDC_BASIC_COLOR_MODE, 0).iImage, 1);
  EXPECT_EQ(Entry(IDC_BASIC_COLOR_MODE, 1).iSelectedImage, 2);
  // Filling again replaces the entries; the default is another one.
  ASSERT_TRUE(InitComboBox(Page(), *sheet_, KW_COLORMODEL, IDC_BASIC_COLOR_MODE_LABEL, true));
  EXPECT_EQ(Count(IDC_BASIC_COLOR_MODE), 2);
  EXPECT_EQ(Selected(IDC_BASIC_COLOR_MODE), 0);
}

TEST_F(Controls, OfKeywordsThatThePrinterLacksOnlyPunchHasEntries) {
  sheet_->items[KW_PUNCH] = nullptr;
  sheet_->items[KW_JOG] = nullptr;
  Open(kTrayPage);
  ASSERT_TRUE(InitComboBox(Page(), *sheet_, KW_PUNCH, IDC_TRAY_PUNCH_LABEL, false));
  EXPECT_EQ(Count(IDC_TRAY_PUNCH), 16);
  ASSERT_TRUE(InitComboBox(Page(), *sheet_, KW_JOG, IDC_TRAY_JOG_LABEL, false));
  EXPECT_EQ(Count(IDC_TRAY_JOG), 0);
  sheet_->SetCurrent(KW_JOG, 7);
  EXPECT_FALSE(StoreComboSelection(Page(), *sheet_, KW_JOG, IDC_TRAY_JOG_LABEL));
  EXPECT_EQ(Current(KW_JOG), 7u);
  EXPECT_FALSE(InitComboBox(Page(), *sheet_, KW_STAPLE, 9999, false)) << "no such control";
  EXPECT_FALSE(StoreComboSelection(Page(), *sheet_, KW_STAPLE, 9999));
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

TEST(ImageStrips, HaveTheImagesThatThePagesShow) {
  EXPECT_EQ(SharedImages(IDD_JOB_PAGE), nullptr) << "no bitmap";
  const struct {
    UINT id;
    int size;
    int images;
  } rows[] = {{IDB_COLOR_MODE, 24, 3}, {IDB_DUPLEX, 24, 6},     {IDB_FAVORITE, 16, 3},
              {IDB_NUP, 24, 13},       {IDB_PUNCH, 24, 13 + 1}, {IDB_STAPLE, 24, 18 + 1}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.id);
    const HIMAGELIST strip = SharedImages(row.id);
    ASSERT_NE(strip, nullptr);
    EXPECT_EQ(SharedImages(row.id), strip) << "made once";
    EXPECT_EQ(::ImageList_GetImageCount(strip), row.images);
    // The corner of every image is transparent: what lies beneath shines through.
    const HDC screen = ::GetDC(nullptr);
    const HDC canvas = ::CreateCompatibleDC(screen);
    const HBITMAP bitmap = ::CreateCompatibleBitmap(screen, row.size, row.size);
    const HGDIOBJ before = ::SelectObject(canvas, bitmap);
    for (int image = 0; image < row.images; ++image) {
      ::SetPixel(canvas, 0, row.size - 1, RGB(1, 2, 3));
      ::ImageList_Draw(strip, image, canvas, 0, 0, ILD_TRANSPARENT);
      EXPECT_EQ(::GetPixel(canvas, 0, row.size - 1), COLORREF{RGB(1, 2, 3)}) << image;
    }
    ::SelectObject(canvas, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(canvas);
    ::ReleaseDC(nullptr, screen);
  }
}

TEST(Strings, KeepQuotesAndJapanese) {
  EXPECT_EQ(
      LoadResourceString(IDS_RESTRICTION_QUESTION),
      Japanese("\"%s-%s\"と\"%s-%s\"を同時に指定できません。\n\"%s-%s\"を%sに変更しますか？"));
  EXPECT_EQ(LoadResourceString(IDS_FAVORITE_FOLDER), "Zentrik\\Quorra QR");
  EXPECT_EQ(LoadResourceString(IDS_RESERVED_FAVORITE), "");
}

}  // namespace
}  // namespace zn::test
