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
  if (row.conversion == Conversion::Resolution) {
    return 1200;
  }
  if (row.conversion != Conversion::AsIs) {
    return static_cast<std::int32_t>(std::ranges::max(GetOptionCodeList(row.id)));
  }
  if (row.id < KW_MAX) {
    return static_cast<std::int32_t>(row.high);
  }
  const DevModeField* const field = FindPrivateField(row.id);
  return field->repair == Repair::Range  ? static_cast<std::int32_t>(field->high)
         : field->repair == Repair::Flag ? 1
                                         : 0x7FFFFFFF;
}

// A record in which every setting has the value that takes the most room.
void SetWidestValues(ddb::CPrintOptionEx& option) {
  for (const SettingRow& row : SettingRows()) {
    if (!row.IsMapped()) {
      continue;
    }
    // Items of the extended table have no sign, so the widest is never "not specified" there.
    const bool hasSign = std::ranges::count(ddb::kExtendedTags, row.id, &ddb::ExtendedTag::id) == 0;
    const std::int32_t none = row.field.NotSpecified();
    const bool isWidest = none == ddb::kNoLength || (hasSign && Highest(row) <= 9);
    row.field.Set(option, isWidest ? none : Highest(row));
  }
  for (const SettingText& text : SettingTexts()) {
    ddb::SetText(option.m_Body, *text.tag, std::string(text.tag->maxChars, 'W'));
  }
}

TEST(FavoriteTagList, FitsIntoTheLineWithItsWidestValues) {
  SettingSource entry;
  SetWidestValues(entry.option);
  std::string line(2 * kItemLineSize, '\0');
  CFavoriteFileManager().WritePrintOption(entry, line);
  line.resize(line.find('\0'));
  EXPECT_LE(line.size(), 4600U);  // room for unknown items and for values of other systems

  std::vector<std::string> tags;
  ItemReader reader(line);
  ItemReader::Item item;
  while (reader.ReadPrintOptionOne(item)) {
    tags.emplace_back(item.tag);
  }
  EXPECT_THAT(tags, ::testing::ElementsAreArray(GetFavoriteTagList()));
}

}  // namespace
}  // namespace zn
