// The items that a favourite carries, in the order in which they are written.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "ddb/extended_option.h"
#include "ddb/tag_table.h"

namespace zn {

// A tag with the row that reads and writes it; the extended one comes first, as for a reader.
struct ListedTag {
  std::string_view name;
  const ddb::ExtendedTag* extended;
  const ddb::Tag* tag;  // null for an extended one
};

// Which stored user information a job uses is the user's own business: these five are read from a
// favourite, but never written to one. None of them is in the list.
inline constexpr std::array<std::string_view, 5> kNeverWritten = {
    "OT_USEICC", "OT_USEICUID", "OT_USEICUC", "OT_USEICUP", "OT_USEICAID"};

[[nodiscard]] std::span<const ListedTag> GetFavoriteTagList() noexcept;

}  // namespace zn
