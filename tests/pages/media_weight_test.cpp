// The weight that a paper type keeps or falls back to.
#include "pages/media_weight.h"

#include <gtest/gtest.h>

namespace zn {
namespace {

TEST(MediaWeight, StaysOnlyWithinTheRangeOfTheType) {
  const struct {
    std::uint32_t type, weight, kept;
  } rows[] = {{0, 8, 8},  {0, 9, 1},  {2, 2, 2},  {2, 3, 1},  {4, 2, 3},          {5, 3, 3},
              {10, 3, 4}, {10, 5, 5}, {10, 6, 4}, {13, 6, 6}, {13, 7, 3},         {6, 0, 0},
              {9, 5, 0},  {14, 5, 0}, {34, 5, 0}, {35, 0, 0}, {0xFFFFFFFFU, 5, 0}};
  for (const auto& [type, weight, kept] : rows) {
    EXPECT_EQ(WeightsOf(type).KeepOrStandard(weight), kept) << type << ", " << weight;
    const bool isWeightless = (type >= 6 && type <= 9) || type >= 14;
    EXPECT_EQ(WeightsOf(type).end == 0, isWeightless) << type;
  }
}

}  // namespace
}  // namespace zn
