// Which weights a paper type comes in. Types and weights are option indexes.
#pragma once

#include <cstdint>

namespace zn {

// The weights from `first` up to `end`; none when `end` is 0.
struct WeightRange {
  std::uint8_t first;
  std::uint8_t end;
  std::uint8_t standard;

  // The weight that a list of the range shows: `weight`, if it is one of them.
  [[nodiscard]] constexpr std::uint32_t KeepOrStandard(std::uint32_t weight) const noexcept {
    return first <= weight && weight < end ? weight : standard;
  }
};

// Any type is answered; one that the printer description does not name has no weights.
[[nodiscard]] WeightRange WeightsOf(std::uint32_t mediaType) noexcept;

}  // namespace zn
