// The property-sheet UI through its published callback.
#include "host/window/property_sheet.h"

#include "gmock/gmock.h"

namespace zn::test {
namespace {

using host::PropertySheet;

class PropertySheetTest : public ::testing::Test {
 protected:
  PropertySheetTest() { page_.dwSize = sizeof page_; }

  LONG_PTR Call(UINT function, const void* first, LPARAM second = 0) {
    return info_.pfnComPropSheet(info_.hComPropSheet, function, reinterpret_cast<LPARAM>(first),
                                 second);
  }
  LONG_PTR Add() { return Call(CPSFUNC_ADD_PROPSHEETPAGEA, &page_); }
  LONG_PTR Insert(LONG_PTR beside, BYTE mode) {
    INSERTPSUIPAGE_INFO insert{};
    insert.cbSize = sizeof insert;
    insert.Type = PSUIPAGEINSERT_PROPSHEETPAGE;
    insert.Mode = mode;
    insert.dwData1 = reinterpret_cast<ULONG_PTR>(&page_);
    return Call(CPSFUNC_INSERT_PSUIPAGEA, reinterpret_cast<const void*>(beside),
                reinterpret_cast<LPARAM>(&insert));
  }

  PropertySheet sheet_;
  PROPSHEETUI_INFO info_ = sheet_.Info(0);
  PROPSHEETPAGEA page_{};
};

TEST_F(PropertySheetTest, PagesAreInsertedWhereTheModeSays) {
  const LONG_PTR first = Add();
  const LONG_PTR second = Add();
  ASSERT_NE(first, 0);
  ASSERT_NE(second, first);
  const struct {
    LONG_PTR beside;
    BYTE mode;
    bool inserted;
  } rows[] = {{first, INSPSUIPAGE_MODE_BEFORE, true},  {second, INSPSUIPAGE_MODE_AFTER, true},
              {0, INSPSUIPAGE_MODE_FIRST_CHILD, true}, {0, INSPSUIPAGE_MODE_LAST_CHILD, true},
              {1, INSPSUIPAGE_MODE_INDEX, true},       {0, INSPSUIPAGE_MODE_AFTER, false},
              {12345, INSPSUIPAGE_MODE_BEFORE, false}, {first, 5, false}};
  for (const auto& [beside, mode, inserted] : rows) {
    const int before = sheet_.PageCount();
    EXPECT_EQ(Insert(beside, mode) != 0, inserted) << "mode " << static_cast<int>(mode);
    EXPECT_EQ(sheet_.PageCount(), before + inserted);
  }
  EXPECT_EQ(Call(CPSFUNC_GET_PAGECOUNT, nullptr), 7);
}

TEST_F(PropertySheetTest, ResultsCountOnlyForItsOwnPages) {
  const LONG_PTR page = Add();
  EXPECT_EQ(Call(CPSFUNC_SET_RESULT, &page, CPSUI_OK), -1);  // not a page's handle
  EXPECT_EQ(sheet_.Result(), static_cast<DWORD>(CPSUI_CANCEL));
  EXPECT_EQ(Call(CPSFUNC_SET_RESULT, reinterpret_cast<const void*>(page), CPSUI_OK), 1);
  EXPECT_EQ(Call(CPSFUNC_SET_RESULT, nullptr, CPSUI_OK), 1);
  EXPECT_EQ(sheet_.Result(), static_cast<DWORD>(CPSUI_OK));
  EXPECT_EQ(sheet_.ResultReports(), 2);
}

TEST_F(PropertySheetTest, UnusableRecordsAreRefused) {
  page_.dwSize = 8;
  EXPECT_EQ(Add(), 0);
  EXPECT_EQ(Call(CPSFUNC_ADD_PROPSHEETPAGEA, nullptr), 0);
  EXPECT_EQ(Call(CPSFUNC_INSERT_PSUIPAGEA, nullptr, 0), 0);
  EXPECT_EQ(Call(99, nullptr), 0);
  EXPECT_EQ(sheet_.PageCount(), 0);
  int other = 0;
  EXPECT_EQ(info_.pfnComPropSheet(&other, CPSFUNC_GET_PAGECOUNT, 0, 0), -1);
}

}  // namespace
}  // namespace zn::test
