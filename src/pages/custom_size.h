// The numbers of the custom paper size dialog: a size in one of three units, its limits, and what
// the edits read and show.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zn {

enum class PaperUnit : std::uint32_t { Inch, Millimeter, Point };
inline constexpr std::size_t kPaperUnits = 3;

enum class Dimension : std::size_t { Width, Height };
inline constexpr std::array kDimensions{Dimension::Width, Dimension::Height};

// All numbers are thousandths of the unit.
class CustomSize {
 public:
  [[nodiscard]] PaperUnit Unit() const noexcept { return unit_; }
  [[nodiscard]] std::uint32_t Value(Dimension dimension) const noexcept {
    return values_[Index(dimension)];
  }
  [[nodiscard]] std::uint32_t Smallest() const noexcept;
  [[nodiscard]] std::uint32_t Largest(Dimension dimension) const noexcept {
    return largest_[Index(dimension)];
  }

  // What an edit shows for the value in the current unit.
  [[nodiscard]] std::string Text(Dimension dimension) const;

  // Takes a value in the current unit, in range or not.
  void Set(Dimension dimension, std::uint32_t value) noexcept;
  // Takes a value in thousandths of a millimetre, whatever the unit.
  void SetMillimeters(Dimension dimension, std::uint32_t value) noexcept;
  [[nodiscard]] std::uint32_t InMillimeters(Dimension dimension) const noexcept;

  // Finds the largest values of the current unit; `isTurned`: the paper is fed turned.
  void UpdateLargest(bool isTurned) noexcept;
  [[nodiscard]] bool IsInRange(Dimension dimension) const noexcept;
  // Brings both values to the nearest limit.
  void Repair() noexcept;
  // Repairs the values in the old unit; in the new one they are what they first were in it.
  void ChangeUnit(PaperUnit unit, bool isTurned) noexcept;

 private:
  static constexpr std::size_t Index(Dimension dimension) noexcept {
    return static_cast<std::size_t>(dimension);
  }
  void Remember(std::size_t dimension, PaperUnit unit, std::uint32_t value) noexcept;

  // The order belongs to the dialog object's layout.
  std::array<std::uint32_t, 2> values_{};
  std::array<std::uint32_t, 2> largest_{660400, 660400};
  PaperUnit unit_ = PaperUnit::Millimeter;
  // Each dimension in all units, so that going there and back does not round it twice.
  std::array<std::array<float, kPaperUnits>, 2> cached_{};
};

inline constexpr std::size_t kMaxSizeText = 32;  // bytes that are read of an edit

// The thousandths that a text stands for, cut to whole ones: 0 for no number and for a negative
// one; a huge one becomes the largest that other code can take as signed, too.
[[nodiscard]] std::uint32_t ParseThousandths(std::string_view text) noexcept;

// The number, at least 0, with two decimals.
[[nodiscard]] std::string TwoDecimals(double number);

// "(smallest, largest)" of a dimension.
[[nodiscard]] std::string RangeText(const CustomSize& size, Dimension dimension);

}  // namespace zn
