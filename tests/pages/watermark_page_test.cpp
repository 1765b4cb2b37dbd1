// The watermark page, driven by messages as its user would.
#include <array>

#include "page_sheet.h"
#include "res/resource_ids.h"

namespace zn::test {
namespace {

constexpr std::array kRadios{IDC_WATERMARK_UPPER_LEFT, IDC_WATERMARK_UPPER_RIGHT,
                             IDC_WATERMARK_LOWER_LEFT, IDC_WATERMARK_LOWER_RIGHT,
                             IDC_WATERMARK_CENTER};

class WatermarkPage : public PageSheetTest {
 protected:
  using Values = std::array<std::uint32_t, 4>;

  // On, number, order, position.
  void SetCurrents(const Values& values) {
    for (std::size_t i = 0; i < kKeywords.size(); ++i) {
      SetSelections(kKeywords[i], kDefaults[i], values[i]);
    }
  }
  [[nodiscard]] Values Currents() const {
    return {Current(KW_WATERMARK), Current(KW_WMSELECTION), Current(KW_WMORDER),
            Current(KW_WMPOSITION)};
  }
  // Number's entry, order's entry, position's entry, checked radio.
  [[nodiscard]] std::array<int, 4> Shown() const {
    int checked = -1;
    for (std::size_t radio = 0; radio < kRadios.size(); ++radio) {
      if (IsChecked(kRadios[radio])) {
        EXPECT_EQ(checked, -1) << "two radios are checked";
        checked = static_cast<int>(radio);
      }
    }
    return {Selected(IDC_WATERMARK_NUMBER), Selected(IDC_WATERMARK_ORDER),
            Selected(IDC_WATERMARK_POSITION), checked};
  }
  [[nodiscard]] INT_PTR Command(int code, int id) const {
    return Ask(kWatermarkPage, WM_COMMAND, MAKEWPARAM(id, code), 0);
  }

  static constexpr std::array kKeywords{KW_WATERMARK, KW_WMSELECTION, KW_WMORDER, KW_WMPOSITION};
  static constexpr Values kDefaults{0, 1, 1, 4};
};
using Values = std::array<std::uint32_t, 4>;
using Entries = std::array<int, 4>;

TEST_F(WatermarkPage, OffDisablesAndKeepsWhatIsStored) {
  SetCurrents({0, 30, 2, 3});
  Open(kWatermarkPage);
  for (const bool on : {false, true, false}) {
    SCOPED_TRACE(on);
    if (on != IsChecked(IDC_WATERMARK_ON)) {
      Click(IDC_WATERMARK_ON);
    }
    EXPECT_EQ(Currents(), (Values{on ? 1u : 0u, 30, 2, 3}));
    EXPECT_EQ(Shown(), (Entries{29, 2, 3, 3}));
    for (const int id : {IDC_WATERMARK_NUMBER, IDC_WATERMARK_POSITION, IDC_WATERMARK_ORDER,
                         kRadios[0], kRadios[4]}) {
      EXPECT_EQ(::IsWindowEnabled(Control(id)) != FALSE, on) << id;
    }
    for (const int id : {IDC_WATERMARK_ON, IDC_WATERMARK_NUMBER_LABEL, IDC_WATERMARK_ORDER_LABEL,
                         IDC_WATERMARK_RESTORE_DEFAULTS}) {
      EXPECT_TRUE(::IsWindowEnabled(Control(id))) << id;
    }
  }
  EXPECT_TRUE(CanApply());
}

TEST_F(WatermarkPage, RadiosAndListAreOneChoice) {
  SetCurrents({1, 1, 0, 4});
  Open(kWatermarkPage);
  EXPECT_EQ(Count(IDC_WATERMARK_NUMBER), 100);
  EXPECT_EQ(Shown(), (Entries{0, 0, 4, 4}));
  for (const int position : {0, 3, 1, 4, 2}) {
    // Whatever the radio says of itself, it is the one that was clicked.
    EXPECT_EQ(Command(BN_CLICKED, kRadios[static_cast<std::size_t>(position)]), 1);
    EXPECT_EQ(Shown(), (Entries{0, 0, position, position}));
    EXPECT_EQ(Current(KW_WMPOSITION), static_cast<std::uint32_t>(position));
    Choose(IDC_WATERMARK_POSITION, 4 - position);
    EXPECT_EQ(Shown(), (Entries{0, 0, 4 - position, 4 - position}));
  }
}

TEST_F(WatermarkPage, EntriesWithinTheirBoundsAreStored) {
  const struct {
    int list;
    int entry;
    Values stored;
  } rows[] = {
      {IDC_WATERMARK_NUMBER, 0, {1, 7, 0, 0}},  // on purpose: the previous number stays
      {IDC_WATERMARK_NUMBER, 1, {1, 2, 0, 0}},   {IDC_WATERMARK_NUMBER, 99, {1, 100, 0, 0}},
      {IDC_WATERMARK_NUMBER, -1, {1, 7, 0, 0}},  {IDC_WATERMARK_ORDER, 2, {1, 7, 2, 0}},
      {IDC_WATERMARK_POSITION, 4, {1, 7, 0, 4}},
  };
  for (const auto& row : rows) {
    SetCurrents({1, 7, 0, 0});
    Open(kWatermarkPage);
    Choose(row.list, row.entry);
    EXPECT_EQ(Currents(), row.stored) << row.list << " entry " << row.entry;
    Close();
  }
}

TEST_F(WatermarkPage, StoredValuesBeyondTheirListsStayAndChooseNothing) {
  const struct {
    Values stored;
    Entries shown;
    LRESULT positions;
  } rows[] = {
      {{1, 0, 0, 2}, {-1, -1, -1, 2}, 0},    {{1, 101, 0, 2}, {-1, -1, -1, 2}, 0},
      {{1, 5, 0, 5}, {4, -1, -1, -1}, 0},    {{1, 5, 3, 2}, {4, -1, 2, 2}, 5},
      {{1, 5, 0x10001, 2}, {4, 1, 2, 2}, 5},  // the low half selects
  };
  for (const auto& row : rows) {
    SetCurrents(row.stored);
    Open(kWatermarkPage);
    EXPECT_EQ(Shown(), row.shown) << row.stored[1] << ' ' << row.stored[2] << ' ' << row.stored[3];
    EXPECT_EQ(Count(IDC_WATERMARK_POSITION), row.positions);
    EXPECT_EQ(Currents(), row.stored);
    EXPECT_EQ(Command(BN_CLICKED, IDC_WATERMARK_RESTORE_DEFAULTS), 1);
    EXPECT_EQ(Currents(), kDefaults);
    EXPECT_EQ(Shown(), (Entries{0, 1, 4, 4}));
    Close();
  }
  SetSelections(KW_WMPOSITION, 5, 1);
  Open(kWatermarkPage);
  EXPECT_EQ(Command(BN_CLICKED, IDC_WATERMARK_RESTORE_DEFAULTS), 0) << "no such default";
  EXPECT_EQ(Current(KW_WMPOSITION), 1u);
}

TEST_F(WatermarkPage, RestoringIsAChangeAndOtherCodesAreNone) {
  SetCurrents({1, 30, 2, 3});
  Open(kWatermarkPage);
  for (const int code : {2, 16, 256, 1024}) {
    EXPECT_EQ(Command(code, IDC_WATERMARK_ON), 1) << code;
  }
  EXPECT_FALSE(CanApply());
  sheet_->activePage = nullptr;
  Click(IDC_WATERMARK_RESTORE_DEFAULTS);
  EXPECT_EQ(Currents(), kDefaults);
  EXPECT_FALSE(::IsWindowEnabled(Control(IDC_WATERMARK_NUMBER)));
  EXPECT_EQ(sheet_->activePage, Page());
  EXPECT_TRUE(CanApply());
  // What other pages and favourites set meanwhile is shown.
  ASSERT_TRUE(Activate(kJobPage));
  SetCurrents({1, 100, 0, 1});
  ASSERT_TRUE(Activate(kWatermarkPage));
  EXPECT_EQ(Shown(), (Entries{99, 0, 1, 1}));
  EXPECT_TRUE(::IsWindowEnabled(Control(IDC_WATERMARK_NUMBER)));
}

}  // namespace
}  // namespace zn::test
