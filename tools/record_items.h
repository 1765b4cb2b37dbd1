// The items of a print option record, each with the setting that it carries.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "favorites/setting_source.h"
#include "favorites/settings_mapping.h"
#include "tools/output.h"

namespace zn::inspect {

struct RecordItem {
  std::string_view tag;
  const SettingRow* setting;  // null: a text, or no setting of a sheet
  const SettingText* text;    // null: a number, or no text of the settings block
  bool isText;
  bool isPassword;
  bool isAlias;  // a further tag of the field before it
};

// The extended tags, then the tag table, each without the tags that have no field.
[[nodiscard]] std::span<const RecordItem> RecordItems();

// The numbers and texts of a favourite beside its items.
[[nodiscard]] std::array<std::pair<const char*, Json>, 5> HeadOf(const SettingSource& source);

// What users and maintainers call it; the tag when nothing stands for it.
[[nodiscard]] std::string_view NameOf(const RecordItem& item);

// What a favourite's file says of the item, a text in the ANSI code page. Reading a record's text
// serves both directions, so it wants a record that it may change.
[[nodiscard]] std::string TextOf(const RecordItem& item, SettingSource& source);

// The text as it may be shown: numbers as numbers, of passwords only the length.
[[nodiscard]] Json ShownItem(const RecordItem& item, std::string_view text);

// The option's name where the value is that of an option, else as ShownItem(); null when the record
// does not specify the setting.
[[nodiscard]] Json ShownSetting(const RecordItem& item, SettingSource& source);

}  // namespace zn::inspect
