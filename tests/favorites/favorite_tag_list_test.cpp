// The tag list: that everything a user can set survives the 5,000 bytes of the item line.
#include "favorites/favorite_tag_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "ddb/extended_option.h"
#include "devmode/devmode.h"
#include "favorites/favorite_file.h"
#include "favorites/item_line.h"
#include "favorites/settings_mapping.h"
#include "keywords/keyword_table.h"

namespace zn {
namespace {

// The highest value that the setting can have.
std::int32_t Highest(const SettingRow& row) {
  switch (row.conversion) {
    case Conversion::Resolution:
      return 1200;
    case Conversion::AsIs:
      if (row.id < KW_MAX) {
        return static_cast<std::int32_t>(row.high);
      } else {
        const DevModeField* field = FindPrivateField(row.id);
        return field->repair == Repair::Range  ? static_cast<std::int32_t>(field->high)
               : field->repair == Repair::Flag ? 1
                                               : 0x7FFFFFFF;
      }
    default:
      return static_cast<std::int32_t>(std::ranges::max(GetOptionCodeList(row.id)));
  }
}

// Items of the extended table have no sign.
bool IsDigitsOnly(const SettingRow& row) {
  return std::ranges::count(ddb::kExtendedTags, row.id, &ddb::ExtendedTag::id) != 0;
}

// A record in which every setting has the value that takes the most room.
void SetWidestValues(ddb::CPrintOptionEx& option) {
  for (const SettingRow& row : SettingRows()) {
    if (!row.IsMapped()) {
      continue;
    }
    const bool length = row.field.NotSpecified() == ddb::kNoLength;
    const std::int32_t highest = Highest(row);
    row.field.Set(
        option, !length && (highest > 9 || IsDigitsOnly(row)) ? highest : row.field.NotSpecified());
  }
  for (const SettingText& text : SettingTexts()) {
    ddb::SetText(option.m_Body, *text.tag, std::string(text.tag->maxChars, 'W'));
  }
}

std::vector<std::string> TagsOf(const std::string& line) {
  std::vector<std::string> tags;
  ItemReader reader(line);
  ItemReader::Item item;
  while (reader.ReadPrintOptionOne(item)) {
    tags.emplace_back(item.tag);
  }
  return tags;
}

std::vector<std::string> ListedNames() {
  return {GetFavoriteTagList().begin(), GetFavoriteTagList().end()};
}

TEST(FavoriteTagList, FitsIntoTheLineWithItsWidestValues) {
  SettingSource entry;
  SetWidestValues(entry.option);
  std::string line(2 * kItemLineSize, '\0');
  CFavoriteFileManager().WritePrintOption(entry, line);
  line.resize(line.find('\0'));
  RecordProperty("bytes", static_cast<int>(line.size()));
  EXPECT_THAT(TagsOf(line), ::testing::ElementsAreArray(ListedNames()));
  EXPECT_LE(line.size(), 4600U);  // room for unknown items and for values of other systems

  SettingSource loaded;
  CFavoriteFileManager().LoadFavoriteFromMemory(loaded, "0\n0\n" + line);
  for (const SettingRow& row : SettingRows()) {
    if (row.IsMapped() && row.reach != Reach::Record) {
      EXPECT_EQ(row.field.Get(loaded.option), row.field.Get(entry.option)) << "id " << row.id;
    }
  }
}

TEST(FavoriteTagList, PutsFirstWhatMustNotBeLost) {
  const std::vector<std::string> names = ListedNames();
  const auto place = [&](const char* name) { return std::ranges::find(names, name); };
  EXPECT_TRUE(std::all_of(names.begin(), names.begin() + 13,
                          [](const std::string& name) { return name.starts_with("EXT_"); }));
  EXPECT_EQ(place("PG_PSIZE") - place("PG_PPSIZE"), 1);
  EXPECT_LT(place("OUT_STPL"), place("CL_GAMMA"));
  EXPECT_LT(place("OT_QRTHRES"), place("MEMO_CMT"));
  EXPECT_EQ(place("CL_STYLE") - place("CL_OUTIT"), 1);  // one field: the later one would win
  std::vector<std::string> sorted = names;
  std::ranges::sort(sorted);
  EXPECT_EQ(std::ranges::adjacent_find(sorted), sorted.end());
}

}  // namespace
}  // namespace zn
