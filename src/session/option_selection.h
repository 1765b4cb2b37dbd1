// The option selection table: per keyword id the default, current and last written selection.
#pragma once

#include <array>
#include <cstdint>

#include "keywords/keyword_ids.h"

namespace zn {

// One row of the option selection table. Values are option indexes, or plain numbers for the
// standard items that count (copies, scale, custom sizes).
struct OptionSelection {
  std::uint32_t defaultSelection;
  std::uint32_t currentSelection;
  std::uint32_t lastWritten;  // what the core driver's item was last told
};

// Selections of two keywords that belong together.
struct SelectionPair {
  std::uint32_t first, second;
  bool operator==(const SelectionPair&) const = default;
};

using OptionTable = std::array<OptionSelection, KW_MAX>;

}  // namespace zn
