#include "pages/custom_size.h"

#include <algorithm>
#include <limits>

#include "ddb/number_text.h"

namespace zn {
namespace {

struct Limits {
  std::uint32_t smallest;
  std::uint32_t largestShort;
  std::uint32_t largestLong;
};
constexpr std::array<Limits, kPaperUnits> kLimits{
    {{1000, 12990, 26000}, {25400, 330000, 660400}, {72000, 935430, 1872000}}};

// [from][to]
constexpr float kFactors[kPaperUnits][kPaperUnits] = {
    {1.0F, 25.4F, 72.0F}, {0.03937F, 1.0F, 2.83464F}, {0.01389F, 0.35278F, 1.0F}};

constexpr std::size_t Index(PaperUnit unit) noexcept {
  return static_cast<std::size_t>(unit);
}

// The integer part, kept within what an int holds.
std::uint32_t WholePart(double value) noexcept {
  constexpr std::uint32_t kMost = std::numeric_limits<std::int32_t>::max();
  if (!(value > 0)) {
    return 0;
  }
  return value < kMost ? static_cast<std::uint32_t>(value) : kMost;
}

// Thousandths of one unit as a number of another.
float Convert(std::uint32_t value, PaperUnit from, PaperUnit to) noexcept {
  const float factor = kFactors[Index(from)][Index(to)];
  return (static_cast<float>(value) * factor * 10.0F + 5.0F) / 10000.0F;
}

// Of a number that Convert gave. On purpose the half is added once more, so that a size may be
// stored a thousandth of a millimetre larger than it was entered.
std::uint32_t Thousandths(float number) noexcept {
  return WholePart(number * 1000.0F + 0.5F);
}

}  // namespace

std::uint32_t CustomSize::Smallest() const noexcept {
  return kLimits[zn::Index(unit_)].smallest;
}

std::string CustomSize::Text(Dimension dimension) const {
  return TwoDecimals(cached_[Index(dimension)][zn::Index(unit_)]);
}

void CustomSize::Remember(std::size_t dimension, PaperUnit unit, std::uint32_t value) noexcept {
  for (std::size_t to = 0; to < kPaperUnits; ++to) {
    cached_[dimension][to] = static_cast<float>(value) / 1000.0F * kFactors[zn::Index(unit)][to];
  }
}

void CustomSize::Set(Dimension dimension, std::uint32_t value) noexcept {
  values_[Index(dimension)] = value;
  Remember(Index(dimension), unit_, value);
}

void CustomSize::SetMillimeters(Dimension dimension, std::uint32_t value) noexcept {
  const float number = Convert(value, PaperUnit::Millimeter, unit_);
  values_[Index(dimension)] = Thousandths(number);
  Remember(Index(dimension), PaperUnit::Millimeter, value);
  cached_[Index(dimension)][zn::Index(unit_)] = number;
}

std::uint32_t CustomSize::InMillimeters(Dimension dimension) const noexcept {
  return Thousandths(Convert(Value(dimension), unit_, PaperUnit::Millimeter));
}

void CustomSize::UpdateLargest(bool isTurned) noexcept {
  const Limits& limits = kLimits[zn::Index(unit_)];
  largest_ = {limits.largestLong, limits.largestShort};
  if (isTurned != (values_[0] > values_[1])) {
    std::swap(largest_[0], largest_[1]);
  }
}

bool CustomSize::IsInRange(Dimension dimension) const noexcept {
  return Value(dimension) >= Smallest() && Value(dimension) <= Largest(dimension);
}

void CustomSize::Repair() noexcept {
  for (const Dimension dimension : kDimensions) {
    if (!IsInRange(dimension)) {
      Set(dimension, std::clamp(Value(dimension), Smallest(), Largest(dimension)));
    }
  }
}

void CustomSize::ChangeUnit(PaperUnit unit, bool isTurned) noexcept {
  Repair();
  unit_ = unit;
  UpdateLargest(isTurned);
  for (const Dimension dimension : kDimensions) {
    const float number = cached_[Index(dimension)][zn::Index(unit_)];
    values_[Index(dimension)] = WholePart((number * 10000.0F + 5.0F) / 10.0F);
  }
}

std::uint32_t ParseThousandths(std::string_view text) noexcept {
  return WholePart(ddb::ParseFraction(text) * 1000.0);
}

std::string TwoDecimals(double number) {
  const std::uint32_t hundredths = WholePart(number * 100.0 + 0.5);
  if (hundredths == 0) {
    return "0.00";
  }
  std::array<char, 16> text;
  return std::string(ddb::FormatUnits(static_cast<std::int32_t>(hundredths), 2, text));
}

std::string RangeText(const CustomSize& size, Dimension dimension) {
  return "(" + TwoDecimals(size.Smallest() / 1000.0) + ", " +
         TwoDecimals(size.Largest(dimension) / 1000.0) + ")";
}

}  // namespace zn
