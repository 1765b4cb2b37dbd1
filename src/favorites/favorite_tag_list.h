// The items that a favourite carries, in the order in which they are written.
#pragma once

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

[[nodiscard]] std::span<const ListedTag> GetFavoriteTagList() noexcept;

}  // namespace zn
