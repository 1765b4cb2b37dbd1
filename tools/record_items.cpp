#include "tools/record_items.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <vector>

#include "ddb/extended_option.h"
#include "ddb/tag_text.h"
#include "devmode/devmode.h"
#include "keywords/keyword_table.h"
#include "tools/option_names.h"
#include "tools/shown_text.h"

namespace zn::inspect {
namespace {

constexpr bool kRead = false;
constexpr bool kTranslateMediaCodes = true;

bool IsSameField(const ddb::RecordField& a, const ddb::RecordField& b) {
  if (a.IsExtended() || b.IsExtended()) {
    return a.IsExtended() && b.IsExtended() && a.Extended() == b.Extended();
  }
  return a.Tag().offset == b.Tag().offset && a.Tag().kind == b.Tag().kind;
}

// Of the two memo keywords, which share a field, the first.
template <class IsField>
const SettingRow* FindSetting(IsField isField) {
  const auto rows = SettingRows();
  const auto row = std::ranges::find_if(
      rows, [&](const SettingRow& r) { return r.IsMapped() && isField(r.field); });
  return row != rows.end() ? &*row : nullptr;
}

const SettingText* FindText(const ddb::Tag& tag) {
  const auto texts = SettingTexts();
  const auto row = std::ranges::find(texts, &tag, &SettingText::tag);
  return row != texts.end() ? &*row : nullptr;
}

std::vector<RecordItem> MakeItems() {
  std::vector<RecordItem> items;
  for (const ddb::ExtendedTag& tag : ddb::kExtendedTags) {
    if (tag.name.starts_with("EXT_")) {
      const auto* setting =
          FindSetting([&](const ddb::RecordField& field) { return IsSameField(field, tag.field); });
      // EXT_PGSIZE is another name for a field of the tag table.
      items.push_back({tag.name, setting, nullptr, false, false, !tag.field.IsExtended()});
    }
  }
  const ddb::Tag* before = nullptr;
  for (const ddb::Tag& tag : ddb::kTags) {
    if (tag.kind == ddb::kIgnored) {
      continue;
    }
    const auto isField = [&](const ddb::RecordField& field) {
      return !field.IsExtended() && field.Tag().offset == tag.offset &&
             field.Tag().kind == tag.kind;
    };
    const bool isAlias =
        before != nullptr && before->offset == tag.offset && before->kind == tag.kind;
    items.push_back({tag.name, FindSetting(isField), FindText(tag), tag.kind == ddb::kText,
                     IsPassword(tag), isAlias});
    before = &tag;
  }
  return items;
}

// A number beyond the names of its options has none, and a range that they do not cover exactly is
// one of plain numbers.
std::string_view OptionNameOf(const SettingRow& row, std::int32_t value) {
  const auto selection = SelectionOfValue(row, value);
  if (!selection) {
    return {};
  }
  if (row.conversion != Conversion::AsIs) {
    return OptionName(row.id, *selection);
  }
  constexpr auto kOpenEnd = static_cast<std::uint32_t>(std::numeric_limits<std::int32_t>::max());
  const bool isNamed = row.high == kOpenEnd || row.high - row.low + 1 == OptionNameCount(row.id);
  return isNamed ? OptionName(row.id, *selection - row.low) : std::string_view();
}

Json Number(std::string_view text) {
  const char* const end = text.data() + text.size();
  std::int64_t whole = 0;
  if (std::from_chars(text.data(), end, whole).ptr == end) {
    return whole;
  }
  double number = 0;
  return std::from_chars(text.data(), end, number).ptr == end ? Json(number) : Json(text);
}

}  // namespace

std::span<const RecordItem> RecordItems() {
  static const std::vector<RecordItem> items = MakeItems();
  return items;
}

std::array<std::pair<const char*, Json>, 5> HeadOf(const SettingSource& source) {
  return {{{"number1", source.number1},
           {"number2", source.number2},
           {"number3", source.number3},
           {"comment", Utf8(source.comment)},
           {"page_size", Utf8(source.pageSizeName)}}};
}

std::string_view NameOf(const RecordItem& item) {
  if (item.text != nullptr) {
    return FindDevModeField(item.text->offset)->name;
  }
  if (item.setting == nullptr) {
    return item.tag;
  }
  return item.setting->id < KW_MAX ? GetKeywordName(item.setting->id)
                                   : FindPrivateField(item.setting->id)->name;
}

std::string TextOf(const RecordItem& item, SettingSource& source) {
  std::string text;
  if (item.tag.starts_with("EXT_")) {
    ddb::ExchangeExtTag(item.tag, text, source.option, kRead, kTranslateMediaCodes);
  } else {
    ddb::ExchangeTag(item.tag, text, source.option, kRead, kTranslateMediaCodes);
  }
  return text;
}

Json ShownItem(const RecordItem& item, std::string_view text) {
  if (item.isPassword) {
    return PasswordNote(text);
  }
  return item.isText ? Json(Utf8(text)) : Number(text);
}

Json ShownSetting(const RecordItem& item, SettingSource& source) {
  if (item.setting != nullptr) {
    const std::int32_t value = item.setting->field.Get(source.option);
    if (value == item.setting->field.NotSpecified()) {
      return nullptr;
    }
    if (const std::string_view name = OptionNameOf(*item.setting, value); !name.empty()) {
      return name;
    }
  }
  return ShownItem(item, TextOf(item, source));
}

}  // namespace zn::inspect
