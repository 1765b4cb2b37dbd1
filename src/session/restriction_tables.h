// Which finishing and paper options cannot go together. The tables are bound to the option indexes
// of the printer description.
#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>

namespace zn::restriction {

constexpr std::uint16_t Bits(std::initializer_list<int> numbers) {
  std::uint16_t bits = 0;
  for (const int number : numbers) {
    bits = static_cast<std::uint16_t>(bits | 1U << number);
  }
  return bits;
}

inline constexpr int kPunchOptions = 6;

// Per staple option the punch options it cannot go with, without booklet finishing.
inline constexpr std::array<std::uint16_t, 22> kPunchesAgainstStaple{
    Bits({}),            // 0
    Bits({2, 4}),        // 1
    Bits({1, 4}),        // 2
    Bits({2, 3}),        // 3
    Bits({1, 3}),        // 4
    Bits({1, 2, 4}),     // 5
    Bits({1, 2, 3}),     // 6
    Bits({2, 3, 4}),     // 7
    Bits({1, 3, 4}),     // 8
    Bits({1, 2, 3, 4}),  // 9
    Bits({1, 2, 3, 4}),  // 10
    Bits({1, 2, 3, 4}),  // 11
    Bits({1, 2, 4}),     // 12
    Bits({1, 2, 3}),     // 13
    Bits({2, 3, 4}),     // 14
    Bits({1, 3, 4}),     // 15
    Bits({1, 2, 4}),     // 16
    Bits({1, 2, 3}),     // 17
    Bits({2, 3, 4}),     // 18
    Bits({1, 3, 4}),     // 19
    Bits({}),            // 20
    Bits({}),            // 21
};

inline constexpr int kWeights = 9;
inline constexpr std::uint16_t kEveryWeight = Bits({0, 1, 2, 3, 4, 5, 6, 7, 8});
inline constexpr std::uint16_t kHeavyWeights = Bits({3, 4, 5, 6, 7, 8});

// Per paper type the weights that cannot be printed on both sides.
inline constexpr auto kOneSidedWeights = [] {
  std::array<std::uint16_t, 35> weights{};
  for (const int type : {1, 6, 7, 8, 14}) {
    weights[type] = kEveryWeight;
  }
  for (const int type : {5, 11, 12}) {
    weights[type] = kHeavyWeights;
  }
  weights[10] = Bits({4, 5});
  return weights;
}();

// By punch holes and punch option.
inline constexpr std::array<std::array<std::uint8_t, 5>, 3> kPunchCodes{{
    {0, 1, 2, 3, 4},
    {0, 9, 10, 11, 12},
    {0, 5, 6, 7, 8},
}};

}  // namespace zn::restriction
