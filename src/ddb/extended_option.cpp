#include "ddb/extended_option.h"

#include <algorithm>
#include <cstring>

#include "ddb/name_index.h"
#include "ddb/number_text.h"

namespace ddb {
namespace {

constexpr NameIndex<128> kExtendedIndex(kExtendedTags);

// Every character is a place: "1x2" is 102 and "-5" is 5. Existing files rely on it.
std::uint32_t ScanDigits(std::string_view text) noexcept {
  std::uint32_t number = 0;
  for (const char c : text) {
    number = number * 10 + (c >= '0' && c <= '9' ? static_cast<unsigned>(c - '0') : 0);
  }
  return number;
}

std::int32_t ValueOf(const CPrintOptionEx& record, const ExtendedTag& tag) noexcept {
  return tag.IsField() ? GetInteger(record.m_Body, tag.Field()) : record.m_Extended[tag.value];
}

std::int32_t Clamp(const ExtendedTag& tag, std::int32_t number) noexcept {
  return tag.highest != 0 ? std::clamp(number, tag.lowest, tag.highest) : number;
}

}  // namespace

const ExtendedTag* FindExtendedTag(std::string_view name) noexcept {
  return kExtendedIndex.Find(kExtendedTags, name,
                             [](std::string_view a, std::string_view b) { return a == b; });
}

void ParseExtendedValue(CPrintOptionEx& record, const ExtendedTag& tag,
                        std::string_view value) noexcept {
  auto number = static_cast<std::int32_t>(ScanDigits(value));
  if (!(tag.takesNoCode && number == kNoCode)) {
    number = Clamp(tag, number);
  }
  if (tag.IsField()) {
    SetInteger(record.m_Body, tag.Field(), number);
  } else {
    record.m_Extended[tag.value] = number;
  }
}

std::string_view ExtendedValueText(const CPrintOptionEx& record, const ExtendedTag& tag,
                                   NumberText& scratch) noexcept {
  return FormatInteger(ValueOf(record, tag), scratch);
}

bool ComesBack(const CPrintOptionEx& record, const ExtendedTag& tag) noexcept {
  const std::int32_t value = ValueOf(record, tag);
  return value >= 0 && Clamp(tag, value) == value;
}

bool ExchangeExtTag(const char* tag, char* valueText, CPrintOptionEx& record, bool readDirection,
                    bool /*reserved*/) {
  const ExtendedTag* row = FindExtendedTag(tag);
  if (row == nullptr) {
    return false;
  }
  if (readDirection) {
    ParseExtendedValue(record, *row, valueText);
    return true;
  }
  NumberText scratch;
  const std::string_view text = ExtendedValueText(record, *row, scratch);
  std::memcpy(valueText, text.data(), text.size());
  valueText[text.size()] = '\0';
  return true;
}

}  // namespace ddb
