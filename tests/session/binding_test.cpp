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
};

TEST_F(BindingTest, KeywordItemGivesSelectionsAndIsMarked) {
  OPTITEM& staple = items_.AddKeyword(KW_STAPLE, 3, 1);
  Bind();
  EXPECT_EQ(sheet_->items[KW_STAPLE], &staple);
  EXPECT_EQ(sheet_->Default(KW_STAPLE), 1u);
  EXPECT_EQ(sheet_->Current(KW_STAPLE), 3u);
  EXPECT_EQ(sheet_->options[KW_STAPLE].lastWritten, 3u);
  EXPECT_EQ(staple.DMPubID, KW_STAPLE + kKeywordItemMark);
}

TEST_F(BindingTest, OnlyTheUnbrokenTailAtLevelTwoIsSearched) {
  OPTITEM& scale = items_.AddStandard(DMPUB_SCALE, 80);
  items_.AddKeyword(KW_STAPLE, 1);
  items_.AddStandard(0, 0);  // a heading at level 0
  OPTITEM& punch = items_.AddKeyword(KW_PUNCH, 1);
  Bind();
  EXPECT_EQ(sheet_->items[KW_STAPLE], nullptr);
  EXPECT_EQ(sheet_->items[KW_PUNCH], &punch);
  punch.Level = 3;
  Bind();
  EXPECT_EQ(sheet_->items[KW_PUNCH], nullptr);
  EXPECT_EQ(sheet_->items[KW_SCALE], &scale);
}

TEST_F(BindingTest, ItemsWithoutAKnownKeywordAreLeftAlone) {
  constexpr BYTE kOwnId = 99;
  OPTITEM& noRecord = items_.AddStandard(kOwnId, 1);
  OPTITEM& noKeyword = items_.AddKeyword("", 1);
  items_.RecordOf(noKeyword).pKeyWordName = nullptr;
  OPTITEM& shortRecord = items_.AddKeyword(KW_STAPLE, 1);
  items_.RecordOf(shortRecord).dwSize = offsetof(USERDATA, pKeyWordName);
  OPTITEM& otherCase = items_.AddKeyword("znstaple", 1);
  OPTITEM& endless = items_.AddKeyword(("ZNStaple" + std::string(5000, 'e')).c_str(), 1);
  for (OPTITEM& item : items_.All()) {
    item.Level = 2;
    item.DMPubID = kOwnId;
  }
  Bind();
  EXPECT_EQ(sheet_->items[KW_STAPLE], nullptr);
  for (const OPTITEM* item : {&noRecord, &noKeyword, &shortRecord, &otherCase, &endless}) {
    EXPECT_EQ(item->DMPubID, kOwnId) << "item " << item - items_.All().data();
  }
}

TEST_F(BindingTest, StandardItemsByTheirPublicNumber) {
  struct Row {
    BYTE publicId;
    KeywordId id;
  };
  constexpr Row kRows[] = {{1, 248}, {2, 249},  {3, 247},  {4, 251}, {5, 241},  {7, 6},   {8, 254},
                           {9, 256}, {10, 253}, {11, 252}, {12, 7},  {16, 250}, {17, 255}};
  for (const Row& row : kRows) {
    items_.AddStandard(row.publicId, 20 + row.publicId);
  }
  for (const int skipped : {0, 6, 13, 14, 15, 18, 255}) {
    items_.AddStandard(static_cast<BYTE>(skipped), 77);
  }
  sheet_->cDrvOptItems = 7;
  BindKeywords(*sheet_);  // no items
  EXPECT_EQ(std::ranges::count(sheet_->items, nullptr), KW_MAX);
  items_.AddKeyword(KW_DUPLEX, 1, 1);
  Bind();
  EXPECT_EQ(sheet_->Default(KW_DUPLEX), 1u) << "only the keyword item tells a default";
  EXPECT_EQ(sheet_->items[KW_COLLATE], sheet_->items[KW_COPIES]);
  EXPECT_EQ(KW_MAX - std::ranges::count(sheet_->items, nullptr), std::ssize(kRows) + 1);
  for (const Row& row : kRows) {
    ASSERT_NE(sheet_->items[row.id], nullptr) << "number " << int{row.publicId};
    EXPECT_EQ(sheet_->items[row.id]->DMPubID, row.publicId);
    EXPECT_EQ(sheet_->Current(row.id), 20u + row.publicId);
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
  OPTITEM& copies = items_.AddStandard(DMPUB_COPIES_COLLATE, 3);
  OPTITEM& scale = items_.AddStandard(DMPUB_SCALE, 50);
  items_.RecordOf(scale).dwReserved[0] = 120;
  OPTITEM& source = items_.AddStandard(DMPUB_DEFSOURCE, 2);
  items_.RecordOf(source).dwReserved[0] = 5;
  items_.RecordOf(source).dwSize = offsetof(USERDATA, dwReserved);
  items_.RecordOf(copies);  // tells 0
  Bind();
  EXPECT_EQ(sheet_->Default(KW_COPIES), 1u);
  EXPECT_EQ(sheet_->Current(KW_COPIES), 3u);
  EXPECT_EQ(sheet_->Default(KW_SCALE), 120u);
  EXPECT_EQ(sheet_->Default(KW_SOURCE), 0u) << "the record is too short for a default";
  EXPECT_EQ(sheet_->Current(KW_PSLANGUAGELEVEL), 3u);
  EXPECT_GT(sheet_->Current(KW_CUSTOMPAPERWIDTH), 0u);
  EXPECT_GT(sheet_->Default(KW_CUSTOMPAPERHEIGHT), 0u);
}

}  // namespace
}  // namespace zn::test
