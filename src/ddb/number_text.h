// Numbers as the files spell them, independent of any locale. Parsing follows formatted stream
// extraction: leading white space, sign, digits, and the rest of the text is not looked at.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace ddb {

// 0 when there is no number or it does not fit into 32 bits.
[[nodiscard]] std::int32_t ParseInteger(std::string_view text) noexcept;

// 0.0 when there is no number, or an exponent without digits.
[[nodiscard]] double ParseFraction(std::string_view text) noexcept;

// Rounded to `unitsPerOne` steps and reduced to 32 bits, so that a negative field that was written
// as a large unsigned number comes back.
[[nodiscard]] std::int32_t ParseUnits(std::string_view text, int unitsPerOne) noexcept;

// Both answer the part of `out` (at least 12 bytes) that holds the text; no terminator is written.
[[nodiscard]] std::string_view FormatInteger(std::int32_t value, std::span<char> out) noexcept;
// The field as an unsigned number over 10^places with that many places; zero is "0.0" in any case.
[[nodiscard]] std::string_view FormatUnits(std::int32_t value, int places,
                                           std::span<char> out) noexcept;

}  // namespace ddb
