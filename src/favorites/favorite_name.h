// Which names a favourite can have: what the save dialog accepts, and what the store keeps to.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/code_page.h"

namespace zn {

inline constexpr std::size_t kMaxFavoriteName = 27;  // bytes

enum class FavoriteNameFault : std::uint8_t {
  None,
  Unusable,  // empty, too long, blank, or no file can have it
  Reserved,  // one of `reserved`
};

// The first fault in the order of the enumeration. The second byte of a double-byte character is no
// character of its own. An empty reserved name reserves nothing.
[[nodiscard]] FavoriteNameFault CheckFavoriteName(
    std::string_view name, std::span<const std::string> reserved,
    std::uint32_t codePage = SystemCodePage()) noexcept;

}  // namespace zn
