#include "profile/profile_lines.h"

#include <algorithm>
#include <array>
#include <bit>
#include <bitset>
#include <cstddef>
#include <cstdint>
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

using FlagMask = std::uint32_t;  // one bit per flag item
static_assert(kFlagItems.size() <= 32);

// Each flag key once, with all the items that share it.
struct FlagKey {
  std::string_view suffix;
  FlagMask items;
};

struct FlagKeys {
  std::array<FlagKey, kFlagItems.size()> keys{};
  std::array<std::uint32_t, 256> byCharacter{};  // by telling character, one bit per key
};

constexpr std::size_t kTellingCharacter = 5;  // no other place tells so many keys apart

static_assert(std::ranges::all_of(kFlagItems, [](const FlagItem& item) {
  return item.suffix.size() > kTellingCharacter && !item.expected.empty();
}));

constexpr FlagKeys kFlagKeys = [] {
  FlagKeys result;
  std::size_t count = 0;
  for (std::size_t i = 0; i < kFlagItems.size(); ++i) {
    const std::string_view suffix = kFlagItems[i].suffix;
    if (i == 0 || suffix != kFlagItems[i - 1].suffix) {
      result.byCharacter[static_cast<unsigned char>(suffix[kTellingCharacter])] |= 1U << count;
      result.keys[count++].suffix = suffix;
    }
    result.keys[count - 1].items |= FlagMask{1} << i;
  }
  return result;
}();

// The items whose keys begin with the stem and go on as `rest` does.
FlagMask FlagsNamedBy(std::string_view rest) {
  FlagMask named = 0;
  if (rest.size() > kTellingCharacter) {
    auto keys = kFlagKeys.byCharacter[static_cast<unsigned char>(rest[kTellingCharacter])];
    for (; keys != 0; keys &= keys - 1) {
      const FlagKey& key = kFlagKeys.keys[std::countr_zero(keys)];
      if (rest.starts_with(key.suffix)) {
        named |= key.items;
      }
    }
  }
  return named;
}

// The items whose expected values end with a character.
constexpr std::array<FlagMask, 256> kFlagsByLastCharacter = [] {
  std::array<FlagMask, 256> masks{};
  for (std::size_t i = 0; i < kFlagItems.size(); ++i) {
    masks[static_cast<unsigned char>(kFlagItems[i].expected.back())] |= FlagMask{1} << i;
  }
  return masks;
}();

// The items of `named` whose expected values may be in the line: of all the trays mostly one.
FlagMask RuleOut(FlagMask named, std::string_view line) {
  FlagMask possible = 0;
  for (const char character : line) {
    possible |= kFlagsByLastCharacter[static_cast<unsigned char>(character)];
  }
  return named & possible;
}

void TakeFlags(std::string_view line, NextCharacter& underscore, CProfileInfo::ItemTable& items) {
  FlagMask named = 0;
  const char* const end = line.data() + line.size();
  for (const char* at = underscore.From(line.data()); at < end; at = underscore.From(at + 1)) {
    if (Between(line.data(), at + 1).ends_with(kFlagStem)) {
      named |= FlagsNamedBy(Between(at + 1, end));
    }
  }
  if ((named & (named - 1)) != 0) {  // several; counting the bits would call a library function
    named = RuleOut(named, line);
  }
  for (; named != 0; named &= named - 1) {
    const int i = std::countr_zero(named);
    if (items[i].present == 0 && line.find(kFlagItems[i].expected) != line.npos) {
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
    if (number <= values.count && before.ends_with(values.stem.back()) &&
        before.ends_with(values.stem)) {
      return {values.firstItem + number - 1, Between(digits - values.stem.size(), end)};
    }
  }
  return {-1, {}};
}

void TakeValue(std::string_view line, NextCharacter& equals, CProfileInfo::ItemTable& items) {
  int taken = CProfileInfo::kItemCount;
  const char* value = nullptr;
  std::bitset<CProfileInfo::kItemCount> seen;
  const char* const end = line.data() + line.size();
  for (const char* at = equals.From(line.data()); at < end; at = equals.From(at + 1)) {
    const ValueKey key = KeyBefore(at, line);
    // Of several keys the walk meets the lowest item first; of one key only the first occurrence.
    if (key.item < 0 || key.item >= taken || seen[key.item]) {
      continue;
    }
    seen.set(key.item);
    if (Between(line.data(), key.text.data()).find(key.text) == line.npos) {
      taken = key.item;
      value = at + 1;
    }
  }
  if (value != nullptr) {
    items[taken].value = Between(value, end);
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
    TakeFlags(line, underscore, items);
    TakeValue(line, equals, items);
    start = stop + 1;
  }
}

}  // namespace zn::profile
