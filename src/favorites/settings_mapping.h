// Which field of the print option record carries which setting of a sheet, and how the selected
// option becomes its value. Favourites, the comparison of settings and the option setting dialog
// walk these tables in both directions; the order of items in favourite files follows from them.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "ddb/print_option.h"
#include "ddb/tag_table.h"

namespace zn {

// How a selection becomes the value of its field.
enum class Conversion : std::uint8_t {
  None,        // there is no field
  Code,        // the code of the option
  Punch,       // as Code, but selection 13, which the tray page stores, is code 13
  Paper,       // as Code; a favourite's paper is looked up by its page-size name first
  Resolution,  // the dots per inch of the option
  AsIs         // the number itself, within the row's range
};

// How far a setting travels.
enum class Reach : std::uint8_t {
  Page,      // a page or the tree can change it: first in favourites
  Favorite,  // in favourites, behind those of the pages
  Record     // only to the option setting dialog and back
};

// Why a setting has no field.
enum class NoField : std::uint8_t {
  Mapped,     // it has one
  Elsewhere,  // another row's field carries the same setting
  SheetOnly,  // belongs to the job at hand, not to a set of settings
  NoneForIt   // no field of the record stands for it
};

// The place of a value: a field of the body by its tag, or one of the extended values.
class RecordField {
 public:
  constexpr RecordField() = default;
  constexpr explicit RecordField(ddb::ExtendedValue value) : extended_(value) {}
  // An unknown name does not compile.
  static consteval RecordField OfTag(std::string_view name) {
    RecordField field;
    field.tag_ = static_cast<std::int16_t>(&ddb::TagNamed(name) - ddb::kTags.data());
    return field;
  }

  [[nodiscard]] constexpr bool IsExtended() const { return tag_ < 0; }
  [[nodiscard]] constexpr const ddb::Tag& Tag() const { return ddb::kTags[tag_]; }
  [[nodiscard]] constexpr ddb::ExtendedValue Extended() const { return extended_; }

  [[nodiscard]] std::int32_t Get(const ddb::CPrintOptionEx& record) const noexcept;
  void Set(ddb::CPrintOptionEx& record, std::int32_t value) const noexcept;
  // The value that says "not specified" in this field.
  [[nodiscard]] std::int32_t NotSpecified() const noexcept;

 private:
  std::int16_t tag_ = -1;  // index in kTags
  ddb::ExtendedValue extended_ = ddb::kExtendedValues;
};

// One row per keyword id and per private id, in the order of the ids.
struct SettingRow {
  std::uint16_t id;
  Conversion conversion;
  RecordField field;
  std::uint32_t low, high;  // of Conversion::AsIs; the private ids have theirs in the block's table
  Reach reach;
  NoField reason;

  [[nodiscard]] constexpr bool IsMapped() const { return conversion != Conversion::None; }
};
[[nodiscard]] std::span<const SettingRow> SettingRows() noexcept;

// One row per text of the settings block that the record knows, in block order.
struct SettingText {
  std::uint16_t offset;  // in the block
  const ddb::Tag* tag;
  Reach reach;
};
[[nodiscard]] std::span<const SettingText> SettingTexts() noexcept;

// The value of a selection (for private ids: of the field); nothing when it has none.
[[nodiscard]] std::optional<std::int32_t> ValueOfSelection(const SettingRow& row,
                                                           std::uint32_t selection) noexcept;
// The way back; nothing when the value is not specified, unknown or out of range.
[[nodiscard]] std::optional<std::uint32_t> SelectionOfValue(const SettingRow& row,
                                                            std::int32_t value) noexcept;

}  // namespace zn
