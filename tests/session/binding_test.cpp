#include "session/binding.h"

#include <algorithm>
#include <string>

#include "keywords/keyword_table.h"
#include "sheet_fixture.h"

namespace zn::test {
namespace {

struct BindingTest : SheetTest {
  void Bind() {
    TakeItems();
    BindKeywords(*sheet_);
  }
  [[nodiscard]] auto BoundCount() const {
    return KW_MAX - std::ranges::count(sheet_->items, nullptr);
  }
};

TEST_F(BindingTest, KeywordItemsAreTheUnbrokenTailAtLevelTwo) {
  BindKeywords(*sheet_);  // no items
  EXPECT_EQ(BoundCount(), 0);
  OPTITEM& scale = items_.AddStandard(DMPUB_SCALE, 80);
  items_.AddKeyword(KW_STAPLE, 1);
  items_.AddStandard(0, 0);  // a heading at level 0
  OPTITEM& punch = items_.AddKeyword(KW_PUNCH, 3, 1);
  Bind();
  EXPECT_EQ(BoundCount(), 2);
  EXPECT_EQ(sheet_->items[KW_SCALE], &scale);
  EXPECT_EQ(sheet_->items[KW_PUNCH], &punch);
  EXPECT_EQ(sheet_->Default(KW_PUNCH), 1u);
  EXPECT_EQ(sheet_->Current(KW_PUNCH), 3u);
  EXPECT_EQ(sheet_->options[KW_PUNCH].lastWritten, 3u);
  EXPECT_EQ(punch.DMPubID, KW_PUNCH + kKeywordItemMark);
}

TEST_F(BindingTest, ItemsWithoutAKnownKeywordAreLeftAlone) {
  constexpr BYTE kOwnId = 99;
  items_.AddStandard(kOwnId, 1);
  items_.RecordOf(items_.AddKeyword("", 1)).pKeyWordName = nullptr;
  items_.RecordOf(items_.AddKeyword(KW_STAPLE, 1)).dwSize = offsetof(USERDATA, pKeyWordName);
  items_.AddKeyword("znstaple", 1);
  items_.AddKeyword(("ZNStaple" + std::string(5000, 'e')).c_str(), 1);
  for (OPTITEM& item : items_.All()) {
    item.Level = 2;
    item.DMPubID = kOwnId;
  }
  Bind();
  EXPECT_EQ(BoundCount(), 0);
  for (const OPTITEM& item : items_.All()) {
    EXPECT_EQ(item.DMPubID, kOwnId) << "item " << &item - items_.All().data();
  }
}

TEST_F(BindingTest, StandardItemsByTheirPublicNumber) {
  for (BYTE number = 0; number <= DMPUB_PAGEORDER + 1; ++number) {
    items_.AddStandard(number, 20 + number);
  }
  items_.AddKeyword(KW_DUPLEX, 1, 1);
  Bind();
  EXPECT_EQ(BoundCount(), 14);
  EXPECT_EQ(sheet_->Default(KW_DUPLEX), 1u) << "only the keyword item tells a default";
  EXPECT_EQ(sheet_->items[KW_COLLATE], sheet_->items[KW_COPIES]);
  for (const auto& [number, id] : {std::pair{1, 248}, {5, 241}, {7, 6}, {12, 7}, {17, 255}}) {
    EXPECT_EQ(sheet_->items[id], &items_.All()[number]) << number;
    EXPECT_EQ(sheet_->options[id].currentSelection, 20u + number);
  }
}

// The mark is one byte wide, so that of ids 157 to 173 reads 1 to 17.
TEST_F(BindingTest, WrappedMarksAreNoStandardItems) {
  for (KeywordId id = 150; id <= 180; ++id) {
    items_.AddKeyword(id, 1);
  }
  items_.AddKeyword(KW_IMPOSITIONOFFSET, 1);  // twice: only one of the two is the id's item
  Bind();
  for (KeywordId id = 0; id < KW_MAX; ++id) {
    EXPECT_EQ(sheet_->items[id] != nullptr, id >= 150 && id <= 180) << "id " << id;
  }
}

TEST_F(BindingTest, DefaultsAreUsableSettings) {
  items_.RecordOf(items_.AddStandard(DMPUB_COPIES_COLLATE, 3));  // tells 0
  items_.RecordOf(items_.AddStandard(DMPUB_SCALE, 50)).dwReserved[0] = 120;
  USERDATA& source = items_.RecordOf(items_.AddStandard(DMPUB_DEFSOURCE, 2));
  source.dwReserved[0] = 5;
  source.dwSize = offsetof(USERDATA, dwReserved);
  Bind();
  EXPECT_EQ(sheet_->Default(KW_COPIES), 1u);
  EXPECT_EQ(sheet_->Current(KW_COPIES), 3u);
  EXPECT_EQ(sheet_->Default(KW_SCALE), 120u);
  EXPECT_EQ(sheet_->Default(KW_SOURCE), 0u) << "the record is too short for a default";
  EXPECT_EQ(sheet_->Current(KW_PSLANGUAGELEVEL), 3u);
  EXPECT_GT(sheet_->Current(KW_CUSTOMPAPERWIDTH), 0u);
}

}  // namespace
}  // namespace zn::test
