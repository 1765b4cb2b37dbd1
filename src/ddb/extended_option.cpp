#include "ddb/extended_option.h"

#include <algorithm>

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

std::int32_t Clamp(const ExtendedTag& tag, std::int32_t number) noexcept {
  return tag.highest != 0 ? std::clamp(number, tag.lowest, tag.highest) : number;
}

// Most tags that are looked up are no extended ones; the first letter tells.
constexpr auto kFirstLetters = [] {
  std::array<bool, 256> isFirst{};
  for (const ExtendedTag& tag : kExtendedTags) {
    isFirst[static_cast<unsigned char>(tag.name[0])] = true;
  }
  return isFirst;
}();

const ExtendedTag* FindExtendedTag(std::string_view name) noexcept {
  if (name.empty() || !kFirstLetters[static_cast<unsigned char>(name[0])]) {
    return nullptr;
  }
  return kExtendedIndex.Find(kExtendedTags, name,
                             [](std::string_view a, std::string_view b) { return a == b; });
}

}  // namespace

bool ExchangeExtTag(std::string_view tag, std::string& valueText, CPrintOptionEx& record,
                    bool readDirection, bool /*reserved*/) {
  const ExtendedTag* const row = FindExtendedTag(tag);
  if (row == nullptr) {
    return false;
  }
  if (readDirection) {
    const auto number = static_cast<std::int32_t>(ScanDigits(valueText));
    const bool isNoCode = row->takesNoCode && number == kNoCode;
    row->field.Set(record, isNoCode ? number : Clamp(*row, number));
  } else {
    std::array<char, 16> digits;
    valueText = FormatInteger(row->field.Get(record), digits);
  }
  return true;
}

bool ComesBack(std::string_view tag, const CPrintOptionEx& record) noexcept {
  const ExtendedTag* const row = FindExtendedTag(tag);
  const std::int32_t value = row != nullptr ? row->field.Get(record) : 0;
  return row == nullptr || (value >= 0 && Clamp(*row, value) == value);
}

}  // namespace ddb
