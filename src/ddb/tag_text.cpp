#include "ddb/tag_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "ddb/number_text.h"
#include "ddb/tag_table.h"

namespace ddb {
namespace {

constexpr int kHundredthsPlaces = 2;
constexpr int kTenthsPlaces = 1;
constexpr std::int32_t kMinCopies = 1;
constexpr std::int32_t kMaxCopies = 9999;

constexpr auto kFileMediaCodes = [] {
  std::array<std::uint8_t, kRecordMediaCodes.size()> inverse{};
  for (std::size_t i = 0; i < kRecordMediaCodes.size(); ++i) {
    inverse[kRecordMediaCodes[i]] = static_cast<std::uint8_t>(i);
  }
  return inverse;
}();

std::int32_t Translate(std::span<const std::uint8_t> codes, std::int32_t code) noexcept {
  const auto index = static_cast<std::uint32_t>(code);
  return index < codes.size() ? codes[index] : code;
}

void Parse(std::string_view value, PrintOptionBody& body, const Tag& tag,
           bool translateMediaCodes) noexcept {
  switch (tag.kind) {
    case kText:
      SetText(body, tag, value);
      return;
    case kHundredths:
      SetInteger(body, tag, ParseUnits(value, 100));
      return;
    case kTenths:
      SetInteger(body, tag, ParseUnits(value, 10));
      return;
    case kCopies:
      SetInteger(body, tag, std::clamp(ParseInteger(value), kMinCopies, kMaxCopies));
      return;
    case kMediaCode: {
      const std::int32_t code = ParseInteger(value);
      SetInteger(body, tag, translateMediaCodes ? Translate(kRecordMediaCodes, code) : code);
      return;
    }
    default:
      SetInteger(body, tag, ParseInteger(value));
  }
}

using NumberText = std::array<char, 16>;

// The text lies in `scratch` or in the body.
std::string_view Render(const PrintOptionBody& body, const Tag& tag, bool translateMediaCodes,
                        NumberText& scratch) noexcept {
  const std::int32_t value = GetInteger(body, tag);
  switch (tag.kind) {
    case kText:
      return GetText(body, tag);
    case kHundredths:
      return FormatUnits(value, kHundredthsPlaces, scratch);
    case kTenths:
      return FormatUnits(value, kTenthsPlaces, scratch);
    case kMediaCode:
      return FormatInteger(translateMediaCodes ? Translate(kFileMediaCodes, value) : value,
                           scratch);
    default:
      return FormatInteger(value, scratch);
  }
}

}  // namespace

void ExchangeTag(std::string_view tag, std::string& valueText, CPrintOption& record,
                 bool readDirection, bool translateMediaCodes) {
  const Tag* const row = FindTag(tag);
  if (row == nullptr || row->kind == kIgnored) {
    return;
  }
  if (readDirection) {
    Parse(valueText, record.m_Body, *row, translateMediaCodes);
  } else {
    NumberText scratch;
    valueText = Render(record.m_Body, *row, translateMediaCodes, scratch);
  }
}

}  // namespace ddb
