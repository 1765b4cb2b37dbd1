// The settings of the core driver that travel with a record: twelve extended values and eight
// fields of the body, as tagged items with rules of their own.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "ddb/print_option.h"
#include "ddb/tag_table.h"
#include "ddb/tag_text.h"

namespace ddb {

struct ExtendedTag {
  std::uint16_t id;  // keyword id
  std::string_view name;
  std::int16_t field;    // row of the tag table, or -1:
  ExtendedValue value;   // then this extended value
  std::int32_t lowest;   // what a read number is clamped to
  std::int32_t highest;  // 0: no clamp
  bool takesNoCode;      // all 32 bits set pass the clamp as -1

  [[nodiscard]] constexpr bool IsField() const { return field >= 0; }
  [[nodiscard]] constexpr const Tag& Field() const { return kTags[field]; }
};

namespace extended {
consteval ExtendedTag Field(std::uint16_t id, std::string_view name, std::string_view field,
                            std::int32_t lowest = 0, std::int32_t highest = 0,
                            bool takesNoCode = false) {
  const auto row = static_cast<std::int16_t>(&TagNamed(field) - kTags.data());
  return {id, name, row, kExtendedValues, lowest, highest, takesNoCode};
}
consteval ExtendedTag Value(std::uint16_t id, std::string_view name, ExtendedValue value) {
  return {id, name, -1, value, 0, 0, false};
}
}  // namespace extended

inline constexpr std::array<ExtendedTag, 20> kExtendedTags = {{
    extended::Field(256, "EXT_PGSIZE", "PG_PPSIZE"),
    // "PG_PPSIZE" means the output size here and the paper size in the tag table: files rely on it.
    extended::Field(238, "PG_PPSIZE", "PG_PSIZE"),
    extended::Field(239, "PG_CENTR", "PG_CENTR"),
    extended::Field(240, "PG_FITTN", "PG_FITTN"),
    extended::Field(241, "GR_DEPTH", "GR_DEPTH", 50, 1200, true),  // dots per inch
    extended::Field(247, "PG_NUMBR", "PG_NUMBR", 1, 9999),
    extended::Value(248, "EXT_ORIENTATION", EXT_ORIENTATION),
    extended::Field(249, "PG_MAGNI", "PG_MAGNI"),
    extended::Value(250, "EXT_NUP", EXT_NUP),
    extended::Field(251, "PG_PTRAY", "PG_PTRAY"),
    extended::Value(252, "EXT_ICMI", EXT_ICMI),
    extended::Value(253, "EXT_ICMM", EXT_ICMM),
    extended::Value(254, "EXT_TTOPT", EXT_TTOPT),
    extended::Value(257, "EXT_PSOUT", EXT_PSOUT),
    extended::Value(258, "EXT_PSFDL", EXT_PSFDL),
    extended::Value(259, "EXT_PSLLV", EXT_PSLLV),
    extended::Value(260, "EXT_PSERR", EXT_PSERR),
    extended::Value(261, "EXT_PSMRP", EXT_PSMRP),
    extended::Value(265, "EXT_NUPBORDER", EXT_NUPBORDER),
    extended::Value(255, "EXT_PAGEORDER", EXT_PAGEORDER),
}};

// Parses `valueText` into the record, or renders the value into it (a buffer of kValueTextSize
// bytes). False, and nothing changed, when the tag is not in the table; case counts.
// Takes what ExchangeTag takes; there are no media codes here, so the last word says nothing.
bool ExchangeExtTag(const char* tag, char* valueText, CPrintOptionEx& record, bool readDirection,
                    bool reserved);

// The same for a row at hand, on bounded text.
[[nodiscard]] const ExtendedTag* FindExtendedTag(std::string_view name) noexcept;
void ParseExtendedValue(CPrintOptionEx& record, const ExtendedTag& tag,
                        std::string_view value) noexcept;
[[nodiscard]] std::string_view ExtendedValueText(const CPrintOptionEx& record,
                                                 const ExtendedTag& tag,
                                                 NumberText& scratch) noexcept;

// Whether that text would be read back as the same value: not below zero, nor beyond the clamp.
[[nodiscard]] bool ComesBack(const CPrintOptionEx& record, const ExtendedTag& tag) noexcept;

}  // namespace ddb
