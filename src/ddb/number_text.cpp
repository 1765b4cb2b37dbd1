#include "ddb/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace ddb {
namespace {

bool IsSpace(char c) noexcept {
  return c == ' ' || (c >= '\t' && c <= '\r');
}
bool IsDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}

// Reads a text from its front.
class Scanner {
 public:
  explicit Scanner(std::string_view text) noexcept : rest_(text) {
    while (!rest_.empty() && IsSpace(rest_.front())) {
      rest_.remove_prefix(1);
    }
  }

  bool Take(char c) noexcept {
    const bool found = !rest_.empty() && rest_.front() == c;
    if (found) {
      rest_.remove_prefix(1);
    }
    return found;
  }

  // Whether the number is negative.
  bool TakeSign() noexcept { return !Take('+') && Take('-'); }

  // The next digit's value, or -1.
  int TakeDigit() noexcept {
    if (rest_.empty() || !IsDigit(rest_.front())) {
      return -1;
    }
    const int digit = rest_.front() - '0';
    rest_.remove_prefix(1);
    return digit;
  }

 private:
  std::string_view rest_;
};

// The significant digits of a decimal number and the power of ten of the last one.
struct Decimal {
  static constexpr int kExactDigits = 15;  // below 2^53
  static constexpr int kMaxDigits = 780;   // more cannot change a double

  std::array<char, kMaxDigits + 16> digits;  // room for an exponent behind them
  int count = 0;
  std::uint64_t mantissa = 0;  // of the first kExactDigits digits
  int exponent = 0;

  void Append(int digit) noexcept {
    if (count == 0 && digit == 0) {
      return;
    }
    if (count == kMaxDigits) {
      ++exponent;
      return;
    }
    if (count < kExactDigits) {
      mantissa = mantissa * 10 + static_cast<unsigned>(digit);
    }
    digits[static_cast<std::size_t>(count++)] = static_cast<char>('0' + digit);
  }
};

constexpr std::array kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                     1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                     1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

double ToDouble(Decimal& decimal) noexcept {
  const auto power = static_cast<std::size_t>(std::abs(decimal.exponent));
  if (decimal.count <= Decimal::kExactDigits && power < kPowersOfTen.size()) {
    // Both operands are exact, so the one operation rounds correctly.
    const auto mantissa = static_cast<double>(decimal.mantissa);
    return decimal.exponent < 0 ? mantissa / kPowersOfTen[power] : mantissa * kPowersOfTen[power];
  }
  // Without a decimal point strtod reads the same number in every locale.
  char* end = decimal.digits.data() + decimal.count;
  *end++ = 'e';
  end = std::to_chars(end, decimal.digits.data() + decimal.digits.size() - 1, decimal.exponent).ptr;
  *end = '\0';
  return std::strtod(decimal.digits.data(), nullptr);
}

}  // namespace

std::int32_t ParseInteger(std::string_view text) noexcept {
  constexpr std::int64_t kBeyond = std::int64_t{1} << 32;
  Scanner scanner(text);
  const bool negative = scanner.TakeSign();
  std::int64_t value = 0;
  for (int digit = scanner.TakeDigit(); digit >= 0; digit = scanner.TakeDigit()) {
    value = std::min(value * 10 + digit, kBeyond);
  }
  value = negative ? -value : value;
  const bool fits = value >= std::numeric_limits<std::int32_t>::min() &&
                    value <= std::numeric_limits<std::int32_t>::max();
  return fits ? static_cast<std::int32_t>(value) : 0;
}

double ParseFraction(std::string_view text) noexcept {
  constexpr int kMaxExponent = 99999;  // far beyond any double
  Scanner scanner(text);
  const bool negative = scanner.TakeSign();
  Decimal decimal;
  bool anyDigit = false;
  for (int digit = scanner.TakeDigit(); digit >= 0; digit = scanner.TakeDigit()) {
    decimal.Append(digit);
    anyDigit = true;
  }
  if (scanner.Take('.')) {
    for (int digit = scanner.TakeDigit(); digit >= 0; digit = scanner.TakeDigit()) {
      decimal.Append(digit);
      --decimal.exponent;
      anyDigit = true;
    }
  }
  if (!anyDigit) {
    return 0.0;
  }
  if (scanner.Take('e') || scanner.Take('E')) {
    const bool negativeExponent = scanner.TakeSign();
    int digit = scanner.TakeDigit();
    if (digit < 0) {
      return 0.0;
    }
    int exponent = 0;
    for (; digit >= 0; digit = scanner.TakeDigit()) {
      exponent = std::min(exponent * 10 + digit, kMaxExponent);
    }
    decimal.exponent += negativeExponent ? -exponent : exponent;
  }
  if (decimal.count == 0) {
    return 0.0;
  }
  const double value = ToDouble(decimal);
  return negative ? -value : value;
}

std::int32_t ParseUnits(std::string_view text, int unitsPerOne) noexcept {
  constexpr double kTwoTo32 = 4294967296.0;
  const double units = std::floor(ParseFraction(text) * unitsPerOne + 0.5);
  if (!std::isfinite(units)) {
    return 0;
  }
  const auto low = static_cast<std::int64_t>(std::fmod(units, kTwoTo32));
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(low));
}

std::string_view FormatInteger(std::int32_t value, std::span<char> out) noexcept {
  const auto result = std::to_chars(out.data(), out.data() + out.size(), value);
  return {out.data(), static_cast<std::size_t>(result.ptr - out.data())};
}

std::string_view FormatUnits(std::int32_t value, int places, std::span<char> out) noexcept {
  auto units = static_cast<std::uint32_t>(value);
  if (units == 0) {
    return "0.0";
  }
  std::array<char, 16> reversed;
  std::size_t count = 0;
  for (int place = 0; place <= places || units != 0; ++place) {
    if (place == places) {
      reversed[count++] = '.';
    }
    reversed[count++] = static_cast<char>('0' + units % 10);
    units /= 10;
  }
  std::reverse_copy(reversed.begin(), reversed.begin() + static_cast<std::ptrdiff_t>(count),
                    out.begin());
  return {out.data(), count};
}

}  // namespace ddb
