#include "profile/profile_lines.h"

#include <bitset>
#include <cstddef>
#include <cstring>

#include "profile/profile_items.h"

namespace zn::profile {
namespace {

// Walking 256 keys through every line would take a hundred times as long as splitting the lines.
// Only two characters matter: the "_" that ends the stem of all flag keys, and the "=" behind the
// key of a value item. They are searched for through all the lines at once.
class NextCharacter {
 public:
  NextCharacter(char character, std::string_view text)
      : character_(character), found_(text.data()), end_(text.data() + text.size()) {
    Find(text.data());
  }

  // The first occurrence at or behind `from`; the end of the text when there is none. `from` never
  // goes back.
  const char* From(const char* from) {
    if (found_ < from) {
      Find(from);
    }
    return found_;
  }

 private:
  void Find(const char* from) {
    const auto* found = static_cast<const char*>(
        std::memchr(from, character_, static_cast<std::size_t>(end_ - from)));
    found_ = found != nullptr ? found : end_;
  }

  char character_;
  const char* found_;
  const char* end_;
};

std::string_view Between(const char* first, const char* last) {
  return {first, static_cast<std::size_t>(last - first)};
}

// The first occurrence of `character` in a line behind `at`, or null.
const char* FindBehind(const char* at, std::string_view line, char character) {
  const char* end = line.data() + line.size();
  return static_cast<const char*>(
      std::memchr(at + 1, character, static_cast<std::size_t>(end - at - 1)));
}

void TakeFlags(std::string_view line, const char* underscore, CProfileInfo::ItemTable& items) {
  std::bitset<kFlagItems.size()> named;
  for (; underscore != nullptr; underscore = FindBehind(underscore, line, kFlagStem.back())) {
    if (!Between(line.data(), underscore + 1).ends_with(kFlagStem)) {
      continue;
    }
    const std::string_view rest = line.substr(underscore + 1 - line.data());
    for (std::size_t i = 0; i < kFlagItems.size() && !rest.empty(); ++i) {
      const std::string_view suffix = kFlagItems[i].suffix;
      if (rest.front() == suffix.front() && rest.starts_with(suffix)) {
        named.set(i);
      }
    }
  }
  for (std::size_t i = 0; i < kFlagItems.size() && named.any(); ++i) {
    if (named[i] && line.find(kFlagItems[i].expected) != line.npos) {
      items[i].present = 1;
    }
  }
}

struct ValueKey {
  int item;               // -1: no key ends there
  std::string_view text;  // the key in its line
};

// The value item's key that ends right before `end`, a place in `line`.
ValueKey KeyBefore(const char* end, std::string_view line) {
  constexpr int kMostDigits = 3;
  const char* digits = end;
  while (digits != line.data() && digits[-1] >= '0' && digits[-1] <= '9' &&
         end - digits <= kMostDigits) {
    --digits;
  }
  if (digits == end || *digits == '0' || end - digits > kMostDigits) {
    return {-1, {}};
  }
  int number = 0;
  for (const char* digit = digits; digit != end; ++digit) {
    number = number * 10 + (*digit - '0');
  }
  const std::string_view before = Between(line.data(), digits);
  for (const ValueItems& values : kValueItems) {
    if (number <= values.count && before.ends_with(values.stem)) {
      return {values.firstItem + number - 1, Between(digits - values.stem.size(), end)};
    }
  }
  return {-1, {}};
}

void TakeValue(std::string_view line, const char* equals, CProfileInfo::ItemTable& items) {
  int taken = CProfileInfo::kItemCount;
  const char* value = nullptr;
  std::bitset<CProfileInfo::kItemCount> seen;
  for (; equals != nullptr; equals = FindBehind(equals, line, '=')) {
    const ValueKey key = KeyBefore(equals, line);
    // Of several keys the walk meets the lowest item first; of one key only the first occurrence.
    if (key.item < 0 || key.item >= taken || seen[key.item]) {
      continue;
    }
    seen.set(key.item);
    if (line.find(key.text) == static_cast<std::size_t>(key.text.data() - line.data())) {
      taken = key.item;
      value = equals + 1;
    }
  }
  if (value != nullptr) {
    items[taken].value = line.substr(value - line.data());
    items[taken].present = 1;
  }
}

}  // namespace

void TakeLines(std::string_view lines, CProfileInfo::ItemTable& items) {
  const char* const end = lines.data() + lines.size();
  NextCharacter lineFeed('\n', lines);
  NextCharacter underscore(kFlagStem.back(), lines);
  NextCharacter equals('=', lines);
  for (const char* start = lines.data(); start < end;) {
    const char* const stop = lineFeed.From(start);
    std::string_view line = Between(start, stop);
    if (stop != end && line.ends_with('\r')) {
      line.remove_suffix(1);
    }
    if (const char* at = underscore.From(start); at < stop) {
      TakeFlags(line, at, items);
    }
    if (const char* at = equals.From(start); at < stop) {
      TakeValue(line, at, items);
    }
    start = stop + 1;
  }
}

}  // namespace zn::profile
