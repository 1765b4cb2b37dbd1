// The tree of advanced settings: its published records and what its callback does.
#include <array>

#include "page_sheet.h"
#include "pages/pages.h"
#include "session/plugin_context.h"

namespace zn::test {
namespace {

// The settings and the rows that show them.
constexpr std::array<std::pair<KeywordId, std::size_t>, 10> kSettings{
    {{KW_RESOLUTION, 1},
     {KW_ICMMETHOD, 3},
     {KW_ICMINTENT, 4},
     {KW_SCALE, 5},
     {KW_TTOPTION, 6},
     {KW_PSOUTPUTOPTION, 9},
     {KW_TRUETYPEFONTDOWNLOAD, 10},
     {KW_PSLANGUAGELEVEL, 11},
     {KW_PSSENDERRORHANDLER, 12},
     {KW_MIRRORPRINT, 13}}};

class AdvancedTree : public PageSheetTest {
 protected:
  AdvancedTree() {
    for (const auto& [keyword, row] : kSettings) {
      SetSelections(keyword, 0, static_cast<std::uint32_t>(row % 2 + 1));
    }
    SetSelections(KW_SCALE, 100, 141);
    Open(kBasicPage);  // so that the companion module is found
    const LONG loads = calls_[companion::Call::Load];
    tree_ = PrepareAdvancedTree(*sheet_);
    EXPECT_EQ(calls_[companion::Call::Load] - loads, 1);
  }

  LONG Report(WORD reason, std::size_t item = 0) const {
    CPSUICBPARAM parameters{};
    parameters.cbSize = sizeof parameters;
    parameters.Reason = reason;
    parameters.pOptItem = tree_->pOptItem;
    parameters.cOptItem = tree_->cOptItem;
    parameters.pCurItem = &tree_->pOptItem[item];
    return tree_->pfnCallBack(&parameters);
  }
  [[nodiscard]] OPTITEM& Item(std::size_t index) const { return tree_->pOptItem[index]; }

  COMPROPSHEETUI* tree_ = nullptr;
};

TEST_F(AdvancedTree, SheetFlagsGiveTheRecordsFlags) {
  const struct {
    bool mayChange, second;
    WORD flags;
  } rows[] = {{true, true, 1}, {false, true, 0}, {true, false, 5}, {false, false, 4}};
  for (const auto& row : rows) {
    sheet_->mayChangeSettings = row.mayChange;
    sheet_->treeReadOnlyFlag = row.second;
    EXPECT_EQ(PrepareAdvancedTree(*sheet_)->Flags, row.flags);
  }
}

TEST_F(AdvancedTree, AChangeIsStoredAtOnce) {
  for (const auto& [keyword, row] : kSettings) {
    Item(row).Sel = 3;
    EXPECT_EQ(Report(CPSUICB_REASON_SEL_CHANGED, row), CPSUICB_ACTION_NONE);
    EXPECT_EQ(Current(keyword), 3u) << row;
  }
  EXPECT_EQ(Report(CPSUICB_REASON_SEL_CHANGED, 0), CPSUICB_ACTION_NONE);
  EXPECT_TRUE(driver_.updates.empty());
}

TEST_F(AdvancedTree, ShowsWhatOtherPagesChanged) {
  Item(1).Flags |= OPTIF_DISABLED;
  sheet_->SetCurrent(KW_SCALE, 71);
  EXPECT_EQ(Report(CPSUICB_REASON_SETACTIVE), CPSUICB_ACTION_OPTIF_CHANGED);
  EXPECT_EQ(Item(5).Sel, 71);
  EXPECT_EQ(Item(5).Flags, DWORD{OPTIF_CALLBACK | OPTIF_CHANGED});
  EXPECT_EQ(Item(1).Flags, DWORD{OPTIF_CALLBACK | OPTIF_CHANGED | OPTIF_DISABLED});
  CPSUICBPARAM withoutItems{};
  withoutItems.Reason = CPSUICB_REASON_SETACTIVE;
  sheet_->SetCurrent(KW_SCALE, 72);
  EXPECT_EQ(tree_->pfnCallBack(&withoutItems), CPSUICB_ACTION_OPTIF_CHANGED);
  EXPECT_EQ(Item(5).Sel, 72);
}

TEST_F(AdvancedTree, LeavingStoresAndCommits) {
  Item(5).Sel = 50;
  EXPECT_EQ(Report(CPSUICB_REASON_KILLACTIVE), CPSUICB_ACTION_NONE);
  EXPECT_EQ(Current(KW_SCALE), 50u);
  ASSERT_EQ(driver_.updates.size(), 1u);
  EXPECT_EQ(driver_.updates[0].item, sheet_->items[KW_SCALE]);
}

TEST_F(AdvancedTree, OtherReasons) {
  EXPECT_EQ(Report(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_ITEMS_APPLIED);
  EXPECT_EQ(Report(CPSUICB_REASON_OPTITEM_SETFOCUS), CPSUICB_ACTION_NONE);
  EXPECT_EQ(tree_->pfnCallBack(nullptr), CPSUICB_ACTION_NONE);
  ThePlugInContext().sheet = nullptr;
  EXPECT_EQ(Report(CPSUICB_REASON_APPLYNOW), CPSUICB_ACTION_NONE);
  EXPECT_EQ(Report(CPSUICB_REASON_SETACTIVE), CPSUICB_ACTION_NONE);
}

}  // namespace
}  // namespace zn::test
