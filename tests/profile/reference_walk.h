// The matching of the device profile told as it is meant, item by item: slow, and what the fast
// one is held against.
#pragma once

#include <string_view>

#include "profile/profile_info.h"

namespace zn::test {

inline void WalkLine(std::string_view line, CProfileInfo::ItemTable& items) {
  for (CProfileInfo::Item& item : items) {
    const std::size_t at = item.key.empty() ? line.npos : line.find(item.key);
    if (at == line.npos) {
      continue;
    }
    if (item.type == CProfileInfo::kFlag) {
      if (line.find(item.value) != line.npos) {
        item.present = 1;
      }
      continue;
    }
    const std::string_view rest = line.substr(at + item.key.size());
    if (rest.starts_with('=')) {
      item.value = rest.substr(1);
      item.present = 1;
      return;
    }
  }
}

inline CProfileInfo::ItemTable WalkProfile(std::string_view text) {
  CProfileInfo::ItemTable items = CProfileInfo().Items();
  while (!text.empty()) {
    const std::size_t lineFeed = text.find('\n');
    std::string_view line = text.substr(0, lineFeed);
    if (lineFeed != text.npos && line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    WalkLine(line, items);
    text.remove_prefix(lineFeed == text.npos ? text.size() : lineFeed + 1);
  }
  return items;
}

// The index of the first item that differs, or -1.
inline int FirstDifference(const CProfileInfo::ItemTable& a, const CProfileInfo::ItemTable& b) {
  for (int i = 0; i < CProfileInfo::kItemCount; ++i) {
    if (a[i].key != b[i].key || a[i].value != b[i].value || a[i].type != b[i].type ||
        a[i].present != b[i].present) {
      return i;
    }
  }
  return -1;
}

}  // namespace zn::test
