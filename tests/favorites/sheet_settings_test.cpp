// From selections to a record and back: what is specified, what is left alone, what counts as a
// difference, and that everything a favourite carries comes back from its file.
#include "favorites/sheet_settings.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ddb/extended_option.h"
#include "favorites/favorite_file.h"
#include "keywords/keyword_table.h"
#include "tests/favorites/settings_test_sheet.h"

namespace zn {
namespace {

constexpr ddb::Tag kMemo = ddb::TagNamed("SP_MEMOM");
constexpr std::uint32_t kMemoOffset = 952;
constexpr std::uint32_t kPageRangeOffset = 1668;

class SheetSettingsTest : public ::testing::Test {
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

// Selection and code of a setting, and the values that leave the selection as it is.
TEST_F(SheetSettingsTest, RecordHoldsTheCodesOfTheOptions) {
  struct Row {
    KeywordId id;
    std::uint32_t selection;
    const char* tag;
    std::int32_t value;
    std::vector<std::int32_t> strange = {};
  };
  constexpr std::int32_t kLowest = ddb::kNoLength;
  // clang-format off
  const std::vector<Row> rows = {
      {KW_STAPLE, 10, "OUT_STPL", 30, {-1, 18, 29, 38, kLowest}},
      {KW_STAPLE, 22, "OUT_STPL", ddb::kNoCode}, {KW_IMAGECALIBRATION, 0, "OT_IMGC", 201, {0, 101}},
      {KW_DUPLEX, 2, "OUT_BOTH", 2, {-1, 3}}, {KW_DUPLEX, 3, "OUT_BOTH", ddb::kNoCode},
      {KW_RESOLUTION, 1, "GR_DEPTH", 1200, {-1, 0, 601, 300}},
      {KW_PUNCH, 5, "OUT_PNCH", 13, {-1, 5, 12, 14}}, {KW_COPIES, 9999, "PG_NUMBR", 9999, {0, 10000}},
      {KW_PAGESIZE, 0, "PG_PPSIZE", 62}, {KW_OUTPUTPAPERSIZE, 1, "PG_PSIZE", 62},
      {KW_ZNMEDIATYPE, 6, "PG_PTYPE", 3}, {KW_WMSELECTION, 9, "OUT_WTNO", 9, {0, 101, -1}},
      {KW_CUSTOMPAPERWIDTH, 123456, "PG_CSIZX", 123456, {-1, kLowest}},
  };
  // clang-format on
  for (const Row& row : rows) {
    sheet_[row.id] = row.selection;
    EXPECT_EQ(ddb::GetInteger(Current().option.m_Body, *ddb::FindTag(row.tag)), row.value)
        << row.tag;
    for (const std::int32_t value : row.strange) {
      ExpectSheetTakes(row.tag, value, row.id, row.selection);
    }
  }
  sheet_[KW_PUNCH] = 0;
  sheet_.settings.choices[KW_PUNCH] = 6;
  ExpectSheetTakes("OUT_PNCH", 13, KW_PUNCH, 13);  // the tray page's lies beyond the driver's list
  // Numbers of the block keep to their ranges: 1000 at least, a flag.
  Apply(With("OUT_BKLX", 500), Reach::Favorite, sheet_.settings);
  EXPECT_EQ(sheet_.Number(4329), 29700U);
  Apply(With("OT_2CPS_C", 500), Reach::Favorite, sheet_.settings);
  EXPECT_EQ(sheet_.Number(4308), 0U);
}

// Files hold these by digits alone: a sign would turn "not specified" into 1.
TEST_F(SheetSettingsTest, ExtendedItemsAreAlwaysSpecified) {
  for (const ddb::ExtendedTag& tag : ddb::kExtendedTags) {
    sheet_[tag.id] = sheet_.Default(tag.id) = 0xFFFFFFFF;
  }
  const SettingSource source = Current();
  for (const ddb::ExtendedTag& tag : ddb::kExtendedTags) {
    EXPECT_TRUE(ddb::ComesBack(tag.name, source.option)) << tag.name;
  }
}

TEST_F(SheetSettingsTest, PaperOfAnUnknownNameStaysTheSheets) {
  sheet_[KW_PAGESIZE] = 4;
  SettingSource source = With("PG_PPSIZE", 53);
  sheet_.Default(KW_PAGESIZE) = 3;
  TakeDefaults(source, sheet_.settings);
  EXPECT_EQ(source.pageSizeName, "B5");
  source.pageSizeName = "a3";
  EXPECT_FALSE(Differs(source, Reach::Favorite, sheet_.settings));
  EXPECT_EQ(Apply(source, Reach::Favorite, sheet_.settings), PaperMatch::Unknown);
  EXPECT_EQ(sheet_[KW_PAGESIZE], 4U);
  // Of several forms of one name the current one is meant.
  sheet_.settings.forms = {3, [](std::uint32_t) { return std::string_view("A4"); }};
  sheet_[KW_PAGESIZE] = 2;
  source = Current();
  sheet_[KW_PAGESIZE] = 1;
  EXPECT_FALSE(Differs(source, Reach::Favorite, sheet_.settings));
}

TEST_F(SheetSettingsTest, EveryMappedSettingCountsAsADifference) {
  const SettingSource before = Current();
  for (const SettingRow& row : SettingRows().first(KW_MAX)) {
    const std::uint32_t selection = sheet_[row.id];
    sheet_[row.id] = row.id == KW_PRINTERMODE                         ? 4
                     : selection == 0 || row.id == KW_PSLANGUAGELEVEL ? 1
                                                                      : 2;
    EXPECT_EQ(Differs(before, Reach::Favorite, sheet_.settings), row.IsMapped())
        << GetKeywordName(row.id);
    EXPECT_EQ(DiffersFromDefaults(sheet_.settings), row.IsMapped()) << GetKeywordName(row.id);
    EXPECT_EQ(Differs(before, Reach::Page, sheet_.settings),
              row.IsMapped() && row.reach == Reach::Page)
        << GetKeywordName(row.id);
    ApplyDefaults(sheet_.settings);
    EXPECT_EQ(sheet_[row.id] == selection, row.IsMapped()) << GetKeywordName(row.id);
    sheet_[row.id] = selection;
    ASSERT_FALSE(Differs(before, Reach::Favorite, sheet_.settings)) << row.id;
    ASSERT_FALSE(DiffersFromDefaults(sheet_.settings)) << row.id;
  }
  sheet_[KW_WMSELECTION] = 0;  // never set
  EXPECT_FALSE(DiffersFromDefaults(sheet_.settings));
  ApplyDefaults(sheet_.settings);
  EXPECT_EQ(sheet_[KW_WMSELECTION], 1U);
}

TEST_F(SheetSettingsTest, MemoKeywordsShareTheirFieldAndTheChangedOneSpeaks) {
  sheet_[KW_MEMO] = 4;
  EXPECT_EQ(ddb::GetInteger(Current().option.m_Body, kMemo), 5);
  EXPECT_FALSE(Differs(Current(), Reach::Favorite, sheet_.settings));
  sheet_[KW_MEMOMODE] = 7;
  const SettingSource source = Current();
  EXPECT_EQ(ddb::GetInteger(source.option.m_Body, kMemo), 8);
  EXPECT_FALSE(Differs(source, Reach::Favorite, sheet_.settings));
  sheet_[KW_MEMOMODE] = 0;
  Apply(source, Reach::Favorite, sheet_.settings);
  EXPECT_EQ(sheet_[KW_MEMO], 7U);
  EXPECT_EQ(sheet_[KW_MEMOMODE], 7U);
}

TEST_F(SheetSettingsTest, TextsReachAsFarAsTheirRowSays) {
  const SettingSource empty = Current();
  const std::string memo(67, 'x');  // the record keeps 64
  sheet_.Block().SetText(kMemoOffset, memo);
  sheet_.Block().SetText(kPageRangeOffset, "1-3");
  const SettingSource source = Current();
  EXPECT_EQ(empty.option.m_Body.OUT_PGSS.set, 0);  // only texts that are there are marked
  EXPECT_FALSE(Differs(source, Reach::Record, sheet_.settings));

  sheet_.Block().SetText(kMemoOffset, "other");
  sheet_.Block().SetText(kPageRangeOffset, "mine");
  EXPECT_TRUE(Differs(source, Reach::Favorite, sheet_.settings));
  Apply(source, Reach::Favorite, sheet_.settings);
  EXPECT_EQ(sheet_.Block().GetText(kMemoOffset), memo.substr(0, 64));
  EXPECT_EQ(sheet_.Block().GetText(kPageRangeOffset), "mine");
  Apply(source, Reach::Record, sheet_.settings);
  EXPECT_EQ(sheet_.Block().GetText(kPageRangeOffset), "1-3");
}

// The last selection or number that says itself: of two options with one code the first does.
std::uint32_t LastChoice(const SettingRow& row) {
  std::uint32_t last = row.high;
  if (row.id >= KW_MAX) {
    const DevModeField& field = *FindPrivateField(row.id);
    last = field.repair == Repair::Range ? field.high : field.repair == Repair::Flag ? 1 : 123456;
  } else if (row.conversion == Conversion::Resolution) {
    last = 1;
  } else if (row.conversion == Conversion::Paper) {
    last = test::kForms.size() - 1;
  } else if (row.conversion != Conversion::AsIs) {
    last = static_cast<std::uint32_t>(GetOptionCodeList(row.id).size() - 1);
  }
  for (; last > 0; --last) {
    const std::optional<std::int32_t> value = ValueOfSelection(row, last);
    if (value && SelectionOfValue(row, *value) == last) {
      return last;
    }
  }
  ADD_FAILURE() << "id " << row.id << " has one choice only";
  return 0;
}

TEST_F(SheetSettingsTest, EverySettingComesBackFromAFavourite) {
  sheet_.Block().SetText(kMemoOffset, "memo \x83\x5C of 64");
  for (const SettingRow& row : SettingRows()) {
    if (row.IsMapped() && row.reach != Reach::Record && row.id != KW_MEMO) {
      sheet_.Set(row.id, LastChoice(row));
    }
  }
  sheet_[KW_PUNCH] = 13;  // beyond the list: the tray page stores it
  const CFavoriteFileManager files;
  const std::string file = files.SaveFavoriteToMemory(Current(), {});
  const OptionTable saved = sheet_.settings.options;
  const CDevMode savedBlock = sheet_.Block();

  ApplyDefaults(sheet_.settings);
  ASSERT_FALSE(DiffersFromDefaults(sheet_.settings));
  SettingSource loaded;
  TakeDefaults(loaded, sheet_.settings);
  ASSERT_TRUE(files.LoadFavoriteFromMemory(loaded, file));
  Apply(loaded, Reach::Favorite, sheet_.settings);
  EXPECT_FALSE(Differs(loaded, Reach::Favorite, sheet_.settings));
  for (const SettingRow& row : SettingRows()) {
    if (row.id >= KW_MAX) {
      const std::uint32_t offset = FindPrivateField(row.id)->offset;
      EXPECT_EQ(sheet_.Block().GetDWord(offset), savedBlock.GetDWord(offset)) << row.id;
    } else if (row.id != KW_MEMO) {
      EXPECT_EQ(sheet_[row.id], saved[row.id].currentSelection) << GetKeywordName(row.id);
    }
  }
  EXPECT_EQ(sheet_.Block().GetText(kMemoOffset), "memo \x83\x5C of 64");
}

}  // namespace
}  // namespace zn
