// Walking and cutting texts in a double-byte code page by whole characters: the second byte of one
// can look like a backslash, and half a character is garbage.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/code_page.h"

namespace zn {

// Whether the byte begins a character of two bytes in the code page.
[[nodiscard]] bool IsLeadByte(char byte, std::uint32_t codePage) noexcept;

// The longest beginning of whole characters that has at most `bytes` bytes.
[[nodiscard]] std::string_view CutText(std::string_view text, std::size_t bytes,
                                       std::uint32_t codePage = SystemCodePage()) noexcept;

// Where `wanted` stands, looked for at whole characters only; npos when nowhere.
[[nodiscard]] std::size_t FindText(std::string_view text, std::string_view wanted,
                                   std::uint32_t codePage = SystemCodePage()) noexcept;

// The last character that is one of the single-byte `characters`; npos when there is none.
[[nodiscard]] std::size_t FindLastOf(std::string_view text, std::string_view characters,
                                     std::uint32_t codePage = SystemCodePage()) noexcept;

}  // namespace zn
