// From selections to a record and back: what is specified, what is left alone, what counts as a
// difference.
#include "favorites/sheet_settings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ddb/extended_option.h"
#include "keywords/keyword_table.h"
#include "tests/favorites/settings_test_sheet.h"

namespace zn {
namespace {

constexpr ddb::Tag kMemo = ddb::TagNamed("SP_MEMOM");
constexpr ddb::Tag kPageRange = ddb::TagNamed("OUT_PGSS");
constexpr std::uint32_t kMemoOffset = 952;
constexpr std::uint32_t kPageRangeOffset = 1668;

class SettingSourceTest : public ::testing::Test {
 protected:
  SettingSource Current() {
    SettingSource source;
    TakeCurrent(source, sheet_.settings);
    return source;
  }
  SettingSource With(const char* tag, std::int32_t value) {
    SettingSource source = Current();
    ddb::SetInteger(source.option.m_Body, *ddb::FindTag(tag), value);
    return source;
  }
  void ExpectSheetTakes(const char* tag, std::int32_t value, KeywordId id, std::uint32_t expected) {
    const SettingSource source = With(tag, value);
    EXPECT_EQ(Differs(source, Reach::Favorite, sheet_.settings), sheet_[id] != expected)
        << tag << '=' << value;
    Apply(source, Reach::Favorite, sheet_.settings);
    EXPECT_EQ(sheet_[id], expected) << tag << '=' << value;
  }

  test::TestSheet sheet_;
};

TEST_F(SettingSourceTest, RecordHoldsTheCodesOfTheOptions) {
  struct Row {
    KeywordId id;
    std::uint32_t selection;
    const char* tag;
    std::int32_t value;
  };
  // clang-format off
  const std::vector<Row> rows = {
      {KW_STAPLE, 10, "OUT_STPL", 30}, {KW_STAPLE, 22, "OUT_STPL", ddb::kNoCode},
      {KW_RESOLUTION, 1, "GR_DEPTH", 1200}, {KW_PUNCH, 5, "OUT_PNCH", 13},
      {KW_DUPLEX, 2, "OUT_BOTH", 2}, {KW_DUPLEX, 3, "OUT_BOTH", ddb::kNoCode},
      {KW_IMAGECALIBRATION, 0, "OT_IMGC", 201}, {KW_PAGESIZE, 0, "PG_PPSIZE", 62},
      {KW_OUTPUTPAPERSIZE, 1, "PG_PSIZE", 62}, {KW_COPIES, 9999, "PG_NUMBR", 9999},
      {KW_COLORMODEL, 0, "CL_CMODE", 1}, {KW_ZNMEDIATYPE, 6, "PG_PTYPE", 3},
      {KW_WMPOSITION, 4, "OUT_WTPO", 0}, {KW_CUSTOMPAPERWIDTH, 123456, "PG_CSIZX", 123456},
  };
  // clang-format on
  for (const Row& row : rows) {
    sheet_[row.id] = row.selection;
    EXPECT_EQ(ddb::GetInteger(Current().option.m_Body, *ddb::FindTag(row.tag)), row.value)
        << row.tag;
  }
}

TEST_F(SettingSourceTest, ValuesThatSayNothingLeaveTheSelection) {
  struct Row {
    KeywordId id;
    std::uint32_t selection;
    const char* tag;
    std::vector<std::int32_t> values;
  };
  constexpr std::int32_t kLowest = ddb::kNoLength;
  const std::vector<Row> rows = {
      {KW_STAPLE, 3, "OUT_STPL", {-1, 18, 29, 38, kLowest}},
      {KW_DUPLEX, 1, "OUT_BOTH", {-1, 3, 0x7FFFFFFF}},
      {KW_PUNCH, 2, "OUT_PNCH", {-1, 5, 12, 14}},
      {KW_RESOLUTION, 1, "GR_DEPTH", {-1, 0, 50, 601, 300}},
      {KW_COPIES, 7, "PG_NUMBR", {0, -1, 10000}},
      {KW_SCALE, 50, "PG_MAGNI", {-1, 0, 1001}},
      {KW_WMSELECTION, 9, "OUT_WTNO", {0, 101, -1}},
      {KW_IMAGECALIBRATION, 4, "OT_IMGC", {0, 101, 200}},
      {KW_CUSTOMPAPERWIDTH, 300000, "PG_CSIZX", {-1, kLowest}},
  };
  for (const Row& row : rows) {
    sheet_[row.id] = row.selection;
    for (const std::int32_t value : row.values) {
      ExpectSheetTakes(row.tag, value, row.id, row.selection);
    }
  }
}

TEST_F(SettingSourceTest, NumbersOfTheBlockKeepToTheirRanges) {
  struct Row {
    const char* tag;
    std::int32_t value;
    std::uint32_t id;
    std::uint32_t expected;
  };
  const Row rows[] = {{"OUT_BKLX", 500, 4329, 29700},         // 1000 at least
                      {"OT_QRTHRES", 500, 4355, 128},         // 255 at most
                      {"OT_2CPS_C", 500, 4308, 0},            // a flag
                      {"OUT_PPSL", ddb::kNoLength, 4319, 0},  // not specified
                      {"SP_TFDPI", 500, 4302, 500},          {"OUT_PPSW", 500, 4318, 500}};
  for (const Row& row : rows) {
    Apply(With(row.tag, row.value), Reach::Favorite, sheet_.settings);
    EXPECT_EQ(sheet_.Number(row.id), row.expected) << row.tag;
  }
}

TEST_F(SettingSourceTest, ChoicesThatThePrinterLacksAreNotSelected) {
  sheet_.settings.choices[KW_STAPLE] = 10;
  sheet_.settings.choices[KW_NUP] = 7;
  sheet_.settings.choices[KW_PUNCH] = 6;
  ExpectSheetTakes("OUT_STPL", 9, KW_STAPLE, 9);
  ExpectSheetTakes("OUT_STPL", 30, KW_STAPLE, 9);
  ExpectSheetTakes("OUT_PNCH", 13, KW_PUNCH, 13);
  SettingSource source = Current();
  source.option.m_Extended[ddb::EXT_NUP] = 7;
  Apply(source, Reach::Favorite, sheet_.settings);
  EXPECT_EQ(sheet_[KW_NUP], 0U);
}

// Files hold these by digits alone: a sign would turn "not specified" into 1.
TEST_F(SettingSourceTest, ExtendedItemsAreAlwaysSpecified) {
  for (const ddb::ExtendedTag& tag : ddb::kExtendedTags) {
    sheet_[tag.id] = sheet_.Default(tag.id) = 0xFFFFFFFF;
  }
  const SettingSource source = Current();
  for (const ddb::ExtendedTag& tag : ddb::kExtendedTags) {
    EXPECT_TRUE(ddb::ComesBack(tag.name, source.option)) << tag.name;
  }
}

TEST_F(SettingSourceTest, PaperIsFoundByItsNameFirst) {
  struct Row {
    const char* name;
    std::int32_t code;
    std::uint32_t current;
    std::uint32_t expected;
    PaperMatch match;
  };
  // Codes by position: 62, 53, 4, 2, 3, ...
  const std::vector<Row> rows = {
      {"A3", 62, 4, 2, PaperMatch::ByName},
      {"Custom 2", 62, 0, 6, PaperMatch::ByName},
      {"a3", 53, 4, 4, PaperMatch::Unknown},
      {"", 4, 0, 2, PaperMatch::ByCode},
      {"", 9999, 3, 3, PaperMatch::ByCode},
      {"", 73, 3, 3, PaperMatch::ByCode},  // beyond the printer's forms
      {"", -1, 3, 3, PaperMatch::ByCode},
      {"Postcard", 4, 2, 0, PaperMatch::ByName},
  };
  for (const Row& row : rows) {
    sheet_[KW_PAGESIZE] = row.current;
    SettingSource source = With("PG_PPSIZE", row.code);
    source.pageSizeName = row.name;
    EXPECT_EQ(Differs(source, Reach::Favorite, sheet_.settings), row.current != row.expected)
        << row.name;
    EXPECT_EQ(Apply(source, Reach::Favorite, sheet_.settings), row.match) << row.name;
    EXPECT_EQ(sheet_[KW_PAGESIZE], row.expected) << row.name << ' ' << row.code;
  }
  sheet_.settings.forms = {3, [](std::uint32_t) { return std::string_view("A4"); }};
  sheet_[KW_PAGESIZE] = 2;
  const SettingSource source = Current();
  sheet_[KW_PAGESIZE] = 1;  // of the same name
  EXPECT_FALSE(Differs(source, Reach::Favorite, sheet_.settings));
}

TEST_F(SettingSourceTest, EveryMappedSettingCountsAsADifference) {
  const SettingSource before = Current();
  for (const SettingRow& row : SettingRows()) {
    if (row.id >= KW_MAX) {
      continue;
    }
    const std::uint32_t selection = sheet_[row.id];
    sheet_[row.id] = selection == 0 || row.id == KW_PSLANGUAGELEVEL ? 1 : 2;
    if (row.id == KW_PRINTERMODE) {
      sheet_[row.id] = 4;
    }
    EXPECT_EQ(Differs(before, Reach::Favorite, sheet_.settings), row.IsMapped())
        << GetKeywordName(row.id);
    EXPECT_EQ(DiffersFromDefaults(sheet_.settings), row.IsMapped()) << GetKeywordName(row.id);
    sheet_[row.id] = selection;
    ASSERT_FALSE(Differs(before, Reach::Favorite, sheet_.settings)) << row.id;
    ASSERT_FALSE(DiffersFromDefaults(sheet_.settings)) << row.id;
  }
  sheet_[KW_WMSELECTION] = 0;  // never set
  EXPECT_FALSE(DiffersFromDefaults(sheet_.settings));
  ApplyDefaults(sheet_.settings);
  EXPECT_EQ(sheet_[KW_WMSELECTION], 1U);
}

TEST_F(SettingSourceTest, MemoKeywordsShareTheirFieldAndTheChangedOneSpeaks) {
  sheet_[KW_MEMO] = 4;
  EXPECT_EQ(ddb::GetInteger(Current().option.m_Body, kMemo), 5);
  sheet_[KW_MEMOMODE] = 7;
  const SettingSource source = Current();
  EXPECT_EQ(ddb::GetInteger(source.option.m_Body, kMemo), 8);
  EXPECT_FALSE(Differs(source, Reach::Favorite, sheet_.settings));
  sheet_[KW_MEMOMODE] = 0;
  Apply(source, Reach::Favorite, sheet_.settings);
  EXPECT_EQ(sheet_[KW_MEMO], 7U);
  EXPECT_EQ(sheet_[KW_MEMOMODE], 7U);
}

TEST_F(SettingSourceTest, TextsReachAsFarAsTheirRowSays) {
  const SettingSource empty = Current();
  const std::string memo(67, 'x');  // the record keeps 64
  sheet_.Block().SetText(kMemoOffset, memo);
  sheet_.Block().SetText(kPageRangeOffset, "1-3");
  SettingSource source = Current();
  EXPECT_EQ(ddb::GetText(source.option.m_Body, kPageRange), "1-3");
  EXPECT_EQ(empty.option.m_Body.OUT_PGSS.set, 0);  // only texts that are there are marked
  EXPECT_FALSE(Differs(source, Reach::Record, sheet_.settings));
  Apply(source, Reach::Record, sheet_.settings);
  EXPECT_EQ(sheet_.Block().GetText(kMemoOffset), memo);

  sheet_.Block().SetText(kMemoOffset, "other");
  sheet_.Block().SetText(kPageRangeOffset, "mine");
  EXPECT_TRUE(Differs(source, Reach::Favorite, sheet_.settings));
  Apply(source, Reach::Favorite, sheet_.settings);
  EXPECT_EQ(sheet_.Block().GetText(kMemoOffset), memo.substr(0, 64));
  EXPECT_EQ(sheet_.Block().GetText(kPageRangeOffset), "mine");
  Apply(source, Reach::Record, sheet_.settings);
  EXPECT_EQ(sheet_.Block().GetText(kPageRangeOffset), "1-3");
  Apply(empty, Reach::Favorite, sheet_.settings);
  EXPECT_EQ(sheet_.Block().GetText(kMemoOffset), "");
}

}  // namespace
}  // namespace zn
