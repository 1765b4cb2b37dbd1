// Settings blocks of any content and length merge as the plain merge says, a second merge changes
// nothing, and a copy keeps its own header. The input is a row of patches on a defaulted block:
// offset (2 bytes), length (1), bytes.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "tests/devmode/reference_merge.h"

namespace {

using zn::CDevMode;
using zn::kDevModeSize;

void Require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

void Patch(CDevMode& block, const std::uint8_t* data, std::size_t size) {
  while (size > 3) {
    const std::size_t offset = (data[0] | data[1] << 8) % kDevModeSize;
    const std::size_t length = std::min({std::size_t{data[2]}, size - 3, kDevModeSize - offset});
    std::memcpy(&block.Bytes()[offset], data + 3, length);
    data += 3 + length;
    size -= 3 + length;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CDevMode source = zn::test::Defaulted();
  Patch(source, data, size);
  CDevMode expected = zn::test::Defaulted();
  zn::test::PlainMerge(expected, source);

  // The source as long as it says itself, so that the sanitizer sees a read behind it.
  const std::size_t length =
      std::clamp(source.GetDWord(zn::devmode::kSize), zn::kDevModeHeaderSize, kDevModeSize);
  const auto memory = std::make_unique<std::byte[]>(length);
  std::memcpy(memory.get(), &source, length);
  CDevMode merged = zn::test::Defaulted();
  merged.Merge(memory.get());
  Require(zn::test::FirstDifference(merged, expected) == -1);

  CDevMode copied = zn::test::Defaulted();
  copied.CopyFrom(memory.get());
  Require(copied.IsCurrent());

  CDevMode again = merged;
  again.Merge(&again);
  Require(std::ranges::equal(again.Bytes(), merged.Bytes()));
  expected = source;
  zn::test::PlainMerge(expected, source);
  source.Merge(&source);
  Require(zn::test::FirstDifference(source, expected) == -1);
  return 0;
}
