// Whether a favourite that was saved and loaded again still says the same.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ddb/extended_option.h"
#include "ddb/tag_text.h"
#include "favorites/favorite_file.h"
#include "favorites/favorite_tag_list.h"

namespace zn::test {

// The extended tags cannot read a sign; PG_PSIZE is PG_PPSIZE among them.
inline bool ReadsNoSign(const ListedTag& tag) {
  return tag.extended != nullptr || tag.name == "PG_PSIZE";
}

inline std::string ListedValue(const FavoriteEntry& entry, const ListedTag& tag) {
  ddb::NumberText scratch;
  if (tag.extended != nullptr) {
    return std::string(ddb::ExtendedValueText(entry.option, *tag.extended, scratch));
  }
  return std::string(ddb::ValueText(entry.option.m_Body, *tag.tag, true, scratch).value());
}

// Whether the value can be read back: nothing below zero, and no 0 where that is no value.
inline bool IsReadable(const FavoriteEntry& entry, const ListedTag& tag) {
  const std::string value = ListedValue(entry, tag);
  const bool clamped = tag.extended != nullptr && tag.extended->highest != 0;
  return !ReadsNoSign(tag) || (value[0] != '-' && !(clamped && value == "0"));
}

// The name of the first listed tag whose value did not come back; empty when all did.
inline std::string LostSetting(const FavoriteEntry& saved, const FavoriteEntry& loaded) {
  for (const ListedTag& tag : GetFavoriteTagList()) {
    if (IsReadable(saved, tag) && ListedValue(saved, tag) != ListedValue(loaded, tag)) {
      return std::string(tag.name);
    }
  }
  return {};
}

}  // namespace zn::test
