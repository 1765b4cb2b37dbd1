// Reading and writing of single ids.
#include "session/session.h"

#include "keywords/keyword_table.h"
#include "session/binding.h"
#include "sheet_fixture.h"

namespace zn::test {
namespace {

struct SessionTest : SheetTest {
  void Open() {
    TakeItems();
    BindKeywords(*sheet_);
    sheet_->jobValues = devMode_.block;
  }
};

TEST_F(SessionTest, OnlyAnotherValueIsToldToTheCoreDriver) {
  OPTITEM& staple = items_.AddKeyword(KW_STAPLE, 3);
  Open();
  EXPECT_EQ(Session().DRVSetDWord(KW_STAPLE, 3), 1);
  EXPECT_TRUE(driver_.updates.empty());
  EXPECT_EQ(staple.Flags & OPTIF_CHANGED, 0u);
  EXPECT_FALSE(sheet_->settingsChanged);

  EXPECT_EQ(Session().DRVSetDWord(KW_STAPLE, 5), 1);
  EXPECT_EQ(staple.Sel, 5);
  EXPECT_NE(staple.Flags & OPTIF_CHANGED, 0u);
  EXPECT_TRUE(sheet_->settingsChanged);
  ASSERT_EQ(driver_.updates.size(), 1u);
  EXPECT_EQ(driver_.updates[0].item, &staple);
  EXPECT_EQ(driver_.updates[0].previous, 3u);
  EXPECT_EQ(driver_.updates[0].mode, OEMCUIP_DOCPROP);
  EXPECT_EQ(driver_.updates[0].context, &driverObject_);

  EXPECT_EQ(Session().DRVSetDWord(KW_PUNCH, 1), 0) << "no item";
  driver_.answer = E_FAIL;
  EXPECT_EQ(Session().DRVSetDWord(KW_STAPLE, 2), 0);
  sheet_->pOEMHelp = nullptr;
  EXPECT_EQ(Session().DRVSetDWord(KW_STAPLE, 4), 0);
  EXPECT_EQ(staple.Sel, 4) << "set without helper interface, too";
}

TEST_F(SessionTest, DevicesOwnChoicesStayZeroInTheItem) {
  struct Row {
    KeywordId id;
    std::uint32_t value, told;
  };
  // Custom colours begin at index 15 and 8.
  constexpr Row kRows[] = {{32, 5, 0},  {135, 5, 0}, {237, 5, 0}, {33, 5, 5},  {238, 5, 5},
                           {2, 14, 14}, {2, 15, 0},  {3, 7, 7},   {3, 1000, 0}};
  for (const KeywordId id : {2, 3, 32, 33, 135, 237, 238}) {
    items_.AddKeyword(id, 0);
  }
  Open();
  for (const auto& [id, value, told] : kRows) {
    EXPECT_EQ(Session().DRVSetDWord(id, value), 1);
    EXPECT_EQ(Session().DRVGetDWord(id, false), told) << "id " << id << " value " << value;
    EXPECT_EQ(sheet_->options[id].lastWritten, value) << "id " << id;
  }
}

TEST_F(SessionTest, CollationIsTheCheckBoxAndReadsInverted) {
  OPTITEM& copies = items_.AddStandard(DMPUB_COPIES_COLLATE, 2, OPTIF_ECB_CHECKED);
  Open();
  EXPECT_EQ(Session().DRVGetDWord(KW_COLLATE, false), 0u);
  EXPECT_EQ(Session().DRVSetDWord(KW_COLLATE, 0), 1);
  EXPECT_EQ(copies.Flags & OPTIF_ECB_CHECKED, 0u);
  EXPECT_EQ(Session().DRVGetDWord(KW_COLLATE, false), 1u);
  EXPECT_EQ(Session().DRVSetDWord(KW_COLLATE, 1), 1);
  EXPECT_NE(copies.Flags & OPTIF_ECB_CHECKED, 0u);
  EXPECT_EQ(copies.Sel, 2) << "the number of copies";
}

TEST_F(SessionTest, ReadsDefaultItemAndAbsence) {
  items_.AddKeyword(KW_STAPLE, 3, 1).Sel = 4;
  Open();
  sheet_->SetCurrent(KW_STAPLE, 9);
  EXPECT_EQ(Session().DRVGetDWord(KW_STAPLE, false), 4u) << "the item, not the selection";
  EXPECT_EQ(Session().DRVGetDWord(KW_STAPLE, true), 1u);
  for (const std::uint32_t unknown : {std::uint32_t{KW_PUNCH}, 266u, 4300u, 4317u, 4356u, 5823u}) {
    EXPECT_EQ(Session().DRVGetDWord(unknown, false), 0u) << unknown;
    EXPECT_EQ(Session().DRVSetDWord(unknown, 1), 0) << unknown;
    EXPECT_EQ(Session().DRVGetKeywordNumOptions(unknown), 0u) << unknown;
  }
  EXPECT_EQ(Session().DRVGetDWord(5824, false), 0xFFFFFFFFu);
  EXPECT_EQ(Session().DRVGetKeywordNumOptions(KW_STAPLE), 2u);
  sheet_->items[KW_STAPLE]->pOptType = nullptr;
  EXPECT_EQ(Session().DRVGetKeywordNumOptions(KW_STAPLE), 0u);
}

TEST_F(SessionTest, PrivateIds) {
  struct Row {
    std::uint32_t id, offset, defaultValue, read, kept;
    int answer;
  };
  constexpr std::uint32_t kValue = 0x12345678;
  constexpr Row kRows[] = {{4302, 24, 600, 0x5678, 0x5678, 1},
                           {4306, 944, 0, 0, kValue, 1},
                           {4316, 1320, 300, 0x5678, 0x5678, 0},
                           {4348, 2156, 0, kValue, kValue, 1},
                           {4355, 9108, 0, 0, kValue, 0}};
  Open();
  for (const auto& [id, offset, defaultValue, read, kept, answer] : kRows) {
    SCOPED_TRACE(id);
    EXPECT_EQ(Session().DRVGetDWord(id, true), defaultValue);
    EXPECT_EQ(Session().DRVSetDWord(id, kValue), answer);
    EXPECT_EQ(Session().DRVGetDWord(id, false), read);
    EXPECT_EQ(devMode_.block.GetDWord(offset), kept);
    EXPECT_EQ(sheet_->jobValues.GetDWord(offset), kept);
  }
  EXPECT_TRUE(driver_.updates.empty());

  devMode_.block.SetDWord(devmode::kVersion, 1);  // another version's block stays as it is
  EXPECT_EQ(Session().DRVSetDWord(4302, 300), 1);
  EXPECT_EQ(Session().DRVGetDWord(4302, false), 300u);
  EXPECT_EQ(devMode_.block.GetTiffDPI(), 0x5678u);
}

}  // namespace
}  // namespace zn::test
