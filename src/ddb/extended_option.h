// The settings of the core driver that travel with a record: twelve extended values and eight
// fields of the body, as tagged items with rules of their own.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "ddb/record_field.h"

namespace ddb {

struct ExtendedTag {
  std::uint16_t id;  // keyword id
  std::string_view name;
  RecordField field;
  std::int32_t lowest = 0;   // what a read number is clamped to
  std::int32_t highest = 0;  // 0: no clamp
  bool takesNoCode = false;  // all 32 bits set pass the clamp as -1
};

inline constexpr std::array<ExtendedTag, 20> kExtendedTags = {{
    {256, "EXT_PGSIZE", RecordField::OfTag("PG_PPSIZE")},
    // "PG_PPSIZE" means the output size here and the paper size in the tag table: files rely on it.
    {238, "PG_PPSIZE", RecordField::OfTag("PG_PSIZE")},
    {239, "PG_CENTR", RecordField::OfTag("PG_CENTR")},
    {240, "PG_FITTN", RecordField::OfTag("PG_FITTN")},
    {241, "GR_DEPTH", RecordField::OfTag("GR_DEPTH"), 50, 1200, true},  // dots per inch
    {247, "PG_NUMBR", RecordField::OfTag("PG_NUMBR"), 1, 9999},
    {248, "EXT_ORIENTATION", RecordField(EXT_ORIENTATION)},
    {249, "PG_MAGNI", RecordField::OfTag("PG_MAGNI")},
    {250, "EXT_NUP", RecordField(EXT_NUP)},
    {251, "PG_PTRAY", RecordField::OfTag("PG_PTRAY")},
    {252, "EXT_ICMI", RecordField(EXT_ICMI)},
    {253, "EXT_ICMM", RecordField(EXT_ICMM)},
    {254, "EXT_TTOPT", RecordField(EXT_TTOPT)},
    {257, "EXT_PSOUT", RecordField(EXT_PSOUT)},
    {258, "EXT_PSFDL", RecordField(EXT_PSFDL)},
    {259, "EXT_PSLLV", RecordField(EXT_PSLLV)},
    {260, "EXT_PSERR", RecordField(EXT_PSERR)},
    {261, "EXT_PSMRP", RecordField(EXT_PSMRP)},
    {265, "EXT_NUPBORDER", RecordField(EXT_NUPBORDER)},
    {255, "EXT_PAGEORDER", RecordField(EXT_PAGEORDER)},
}};

// As ExchangeTag, on these tags. False, and nothing changed, when the tag is not in the table; case
// counts. There are no media codes here, so the last word says nothing.
bool ExchangeExtTag(std::string_view tag, std::string& valueText, CPrintOptionEx& record,
                    bool readDirection, bool reserved);

// Whether the value of an extended tag would be read back from its text: it is neither below zero
// nor beyond the clamp. True for a tag that is not in the table.
[[nodiscard]] bool ComesBack(std::string_view tag, const CPrintOptionEx& record) noexcept;

}  // namespace ddb
