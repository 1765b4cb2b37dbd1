// The items that a favourite carries, in the order in which they are written.
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace zn {

// Which stored user information a job uses is the user's own business: these five are read from a
// favourite, but never written to one. None of them is in the list.
inline constexpr std::array<std::string_view, 5> kNeverWritten = {
    "OT_USEICC", "OT_USEICUID", "OT_USEICUC", "OT_USEICUP", "OT_USEICAID"};

// The names of their tags.
[[nodiscard]] std::span<const std::string_view> GetFavoriteTagList() noexcept;

}  // namespace zn
