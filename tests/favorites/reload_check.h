// Whether a favourite that was saved and loaded again still says the same.
#pragma once

#include <string>

#include "ddb/extended_option.h"
#include "ddb/tag_text.h"
#include "favorites/favorite_file.h"
#include "favorites/favorite_tag_list.h"

namespace zn::test {

inline std::string ListedValue(const FavoriteEntry& entry, const ListedTag& tag) {
  ddb::NumberText scratch;
  if (tag.extended != nullptr) {
    return std::string(ddb::ExtendedValueText(entry.option, *tag.extended, scratch));
  }
  return std::string(ddb::ValueText(entry.option.m_Body, *tag.tag, true, scratch).value());
}

// Whether the value gets an item; the others are not specified.
inline bool IsSpecified(const FavoriteEntry& entry, const ListedTag& tag) {
  return tag.extended == nullptr || ddb::ComesBack(entry.option, *tag.extended);
}

// The name of the first listed tag whose value did not come back; empty when all did.
inline std::string LostSetting(const FavoriteEntry& saved, const FavoriteEntry& loaded) {
  for (const ListedTag& tag : GetFavoriteTagList()) {
    if (IsSpecified(saved, tag) && ListedValue(saved, tag) != ListedValue(loaded, tag)) {
      return std::string(tag.name);
    }
  }
  return {};
}

}  // namespace zn::test
