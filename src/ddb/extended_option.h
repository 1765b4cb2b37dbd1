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
  const Tag* field;     // of the body, or null:
  ExtendedValue value;  // then this extended value
  std::int32_t lowest;  // what a read number is clamped to; no clamp when both are 0
  std::int32_t highest;
  bool takesNoCode;  // all 32 bits set pass the clamp as -1
};

inline constexpr std::int32_t kMinResolution = 50;  // dots per inch
inline constexpr std::int32_t kMaxResolution = 1200;

// clang-format off
inline constexpr std::array<ExtendedTag, 20> kExtendedTags = {{
    {256, "EXT_PGSIZE",      &TagNamed("PG_PPSIZE"), {},              0,              0,              false},
    // "PG_PPSIZE" means the output size here and the paper size in the tag table: files rely on it.
    {238, "PG_PPSIZE",       &TagNamed("PG_PSIZE"),  {},              0,              0,              false},
    {239, "PG_CENTR",        &TagNamed("PG_CENTR"),  {},              0,              0,              false},
    {240, "PG_FITTN",        &TagNamed("PG_FITTN"),  {},              0,              0,              false},
    {241, "GR_DEPTH",        &TagNamed("GR_DEPTH"),  {},              kMinResolution, kMaxResolution, true},
    {247, "PG_NUMBR",        &TagNamed("PG_NUMBR"),  {},              1,              9999,           false},
    {248, "EXT_ORIENTATION", nullptr,                EXT_ORIENTATION, 0,              0,              false},
    {249, "PG_MAGNI",        &TagNamed("PG_MAGNI"),  {},              0,              0,              false},
    {250, "EXT_NUP",         nullptr,                EXT_NUP,         0,              0,              false},
    {251, "PG_PTRAY",        &TagNamed("PG_PTRAY"),  {},              0,              0,              false},
    {252, "EXT_ICMI",        nullptr,                EXT_ICMI,        0,              0,              false},
    {253, "EXT_ICMM",        nullptr,                EXT_ICMM,        0,              0,              false},
    {254, "EXT_TTOPT",       nullptr,                EXT_TTOPT,       0,              0,              false},
    {257, "EXT_PSOUT",       nullptr,                EXT_PSOUT,       0,              0,              false},
    {258, "EXT_PSFDL",       nullptr,                EXT_PSFDL,       0,              0,              false},
    {259, "EXT_PSLLV",       nullptr,                EXT_PSLLV,       0,              0,              false},
    {260, "EXT_PSERR",       nullptr,                EXT_PSERR,       0,              0,              false},
    {261, "EXT_PSMRP",       nullptr,                EXT_PSMRP,       0,              0,              false},
    {265, "EXT_NUPBORDER",   nullptr,                EXT_NUPBORDER,   0,              0,              false},
    {255, "EXT_PAGEORDER",   nullptr,                EXT_PAGEORDER,   0,              0,              false},
}};
// clang-format on

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

}  // namespace ddb
