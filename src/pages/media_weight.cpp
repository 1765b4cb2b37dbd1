#include "pages/media_weight.h"

#include <array>

namespace zn {
namespace {

constexpr WeightRange kNoWeights{0, 0, 0};

// By paper type; the types behind have no weights.
constexpr std::array<WeightRange, 14> kRanges{{
    {0, 9, 1},
    {0, 9, 1},
    {0, 3, 1},
    {0, 9, 1},
    {3, 9, 3},
    {3, 9, 3},
    kNoWeights,
    kNoWeights,
    kNoWeights,
    kNoWeights,
    {4, 6, 4},
    {3, 9, 3},
    {3, 9, 3},
    {3, 7, 3},
}};

}  // namespace

WeightRange WeightsOf(std::uint32_t mediaType) noexcept {
  return mediaType < kRanges.size() ? kRanges[mediaType] : kNoWeights;
}

}  // namespace zn
