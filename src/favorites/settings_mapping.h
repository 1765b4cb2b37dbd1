// Which field of the print option record carries which setting of a sheet, and how the selected
// option becomes its value. Favourites, the comparison of settings and the option setting dialog
// walk these tables in both directions; the order of items in favourite files follows from them.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "ddb/record_field.h"

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

// One row per keyword id and per private id, in the order of the ids.
struct SettingRow {
  std::uint16_t id;
  Conversion conversion;
  ddb::RecordField field;
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
