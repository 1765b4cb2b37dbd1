#include "ddb/password.h"

#include <string_view>

namespace ddb {
namespace {

// Stored passwords depend on these characters: never change them.
constexpr std::string_view kKey = "lantern=paper_harbor";
static_assert(kKey.size() == 20);

// Characters turn within their own range, so that no control character and no terminator appears.
struct Range {
  unsigned first;
  unsigned count;
};
constexpr Range kAscii{0x20, 95};
constexpr Range kUpperHalf{0x80, 128};

char Turn(char c, unsigned steps, bool back) {
  const auto byte = static_cast<unsigned char>(c);
  for (const Range& range : {kAscii, kUpperHalf}) {
    const unsigned position = byte - range.first;
    if (position < range.count) {
      const unsigned turn = steps % range.count;
      const unsigned turned = position + (back ? range.count - turn : turn);
      return static_cast<char>(range.first + turned % range.count);
    }
  }
  return c;
}

void TurnAll(std::span<char> field, bool back) {
  for (std::size_t i = 0; i < field.size() && field[i] != '\0'; ++i) {
    const unsigned key = static_cast<unsigned char>(kKey[i % kKey.size()]);
    field[i] = Turn(field[i], key + static_cast<unsigned>(i), back);
  }
}

}  // namespace

void ScramblePassword(std::span<char> field) {
  TurnAll(field, false);
}

void UnscramblePassword(std::span<char> field) {
  TurnAll(field, true);
}

}  // namespace ddb
