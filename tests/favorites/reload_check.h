// Whether a favourite that was saved and loaded again still says the same.
#pragma once

#include <string>

#include "ddb/extended_option.h"
#include "ddb/tag_text.h"
#include "favorites/favorite_tag_list.h"
#include "favorites/setting_source.h"

namespace zn::test {

inline std::string ListedValue(SettingSource& entry, std::string_view tag) {
  std::string value;
  if (!ddb::ExchangeExtTag(tag, value, entry.option, false, true)) {
    ddb::ExchangeTag(tag, value, entry.option, false, true);
  }
  return value;
}

// The name of the first listed tag whose value was specified and did not come back; empty when all
// did.
inline std::string_view LostSetting(SettingSource& saved, SettingSource& loaded) {
  for (const std::string_view tag : GetFavoriteTagList()) {
    if (ddb::ComesBack(tag, saved.option) && ListedValue(saved, tag) != ListedValue(loaded, tag)) {
      return tag;
    }
  }
  return {};
}

}  // namespace zn::test
