// The merge: ranges, control characters, what a source of another header tells.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <string_view>

#include "tests/devmode/reference_merge.h"

namespace zn::test {
namespace {

CDevMode MergedFrom(const CDevMode& source) {
  CDevMode block = Defaulted();
  block.Merge(&source);
  return block;
}

TEST(Merge, NumbersAtTheirLimits) {
  struct Row {
    std::size_t offset;
    std::uint32_t value, merged;
  };
  // clang-format off
  const Row rows[] = {
      {12, 7, 1}, {12, 0, 0}, {16, 5, 1}, {24, 0, 600}, {24, 1, 1}, {24, 1200, 1200},
      {24, 1201, 600}, {24, 0xFFFFFFFF, 600}, {1308, 0xFFFFFFFF, 0xFFFFFFFF}, {1312, 0, 1},
      {1348, 66040, 66040}, {1348, 66041, 42000}, {9112, 6, 0}, {9208, 7, 0}, {9212, 5, 5},
      {9244, 0, 1}, {9296, 500, 0},
  };
  // clang-format on
  for (const Row& row : rows) {
    CDevMode source = Defaulted();
    source.SetDWord(row.offset, row.value);
    EXPECT_EQ(MergedFrom(source).GetDWord(row.offset), row.merged)
        << "at " << row.offset << " of " << row.value;
  }
}

TEST(Merge, UnchangedSheetChangesNothingButThreeDefaults) {
  const CDevMode merged = MergedFrom(Defaulted());
  CDevMode expected = Defaulted();
  for (const std::size_t offset : {9244, 9248, 9320}) {
    expected.SetDWord(offset, 1);
  }
  EXPECT_EQ(FirstDifference(merged, expected), -1);
  EXPECT_EQ(FirstDifference(MergedFrom(merged), merged), -1);
}

TEST(Merge, ControlCharactersAreCutOut) {
  struct Row {
    std::string text, merged, mergedComment;
  };
  const Row rows[] = {
      {"\x01", "", ""},
      {"a\tb\x1F c d, eight and more\x1F", "ab c d, eight and more", "ab c d, eight and more"},
      {"one\r\ntwo", "onetwo", "one\r\ntwo"},
      {"\r\r\n\n", "", "\r\n"},
      {"end\r", "end", "end"},
      {"\x83\x5c\x7f\x80\xff", "\x83\x5c\x7f\x80\xff", "\x83\x5c\x7f\x80\xff"},
  };
  for (const Row& row : rows) {
    CDevMode source = Defaulted();
    for (const std::size_t offset : {std::size_t{104}, devmode::kComment, devmode::kJobName}) {
      source.SetText(offset, row.text);
    }
    const CDevMode merged = MergedFrom(source);
    EXPECT_EQ(merged.GetText(104), row.merged);
    EXPECT_EQ(merged.GetText(devmode::kComment), row.mergedComment);
    EXPECT_EQ(merged.GetText(devmode::kJobName), row.text) << "not repaired";
  }
}

// Blocks without terminators, full of controls, with line ends across the ends of fields.
TEST(Merge, HostileBlocksMergeAsThePlainMergeSays) {
  constexpr std::string_view kBytes("xx\xFF\r\n\x1F\x20\0", 8);
  std::mt19937 random(20240711);
  for (unsigned round = 0; round < 300; ++round) {
    SCOPED_TRACE(round);
    CDevMode source;
    CDevMode destination;
    const auto hostile = [&] { return std::byte(kBytes[random() % (1 + round % kBytes.size())]); };
    std::ranges::generate(source.Bytes(), hostile);
    std::ranges::generate(destination.Bytes(), hostile);
    if (round % 3 != 0) {  // of our size, and every other time with the destination's header
      const CDevMode defaulted = Defaulted();
      std::memcpy(&source, &defaulted, round % 3 == 1 ? kDevModeHeaderSize : sizeof kDevModeSize);
      std::memcpy(&destination, &defaulted, kDevModeHeaderSize);
    }
    CDevMode expected = destination;
    PlainMerge(expected, source);
    destination.Merge(&source);
    ASSERT_EQ(FirstDifference(destination, expected), -1);
    expected = destination;
    destination.Merge(&destination);
    ASSERT_TRUE(std::ranges::equal(destination.Bytes(), expected.Bytes()));
  }
}

// The sanitizer sees a read behind the source. Only one of our size tells anything.
TEST(Merge, SourceOfAnotherHeaderTellsItsFlagsAtMost) {
  struct Row {
    std::uint32_t size, version;
    std::uint32_t flags;  // of the merged block
  };
  for (const Row& row : {Row{12, 2, 0}, Row{20, 2, 0}, Row{9216, 2, 0}, Row{9327, 2, 0},
                         Row{9329, 2, 0}, Row{0xFFFFFFFF, 2, 0}, Row{9328, 1, 1}}) {
    SCOPED_TRACE(row.size);
    CDevMode source = Defaulted();
    source.SetDWord(devmode::kSize, row.size);
    source.SetDWord(devmode::kVersion, row.version);
    source.SetDWord(devmode::kCarriedFlag, 1);
    source.SetDWord(devmode::kTiffDpi, 300);
    source.SetDWord(devmode::kOverWriteFlag, 1);
    const auto memory = std::make_unique<std::byte[]>(std::min(row.size, kDevModeSize));
    std::memcpy(memory.get(), &source, std::min(row.size, kDevModeSize));

    CDevMode destination = Defaulted();
    destination.SetDWord(devmode::kSize, row.size);  // a header of its own kind is not read either
    std::ranges::fill(destination.Bytes().subspan(kDevModeHeaderSize), std::byte{0xAB});
    const CDevMode before = destination;
    destination.CopyFrom(memory.get());
    EXPECT_TRUE(std::ranges::equal(destination.Bytes(), before.Bytes()));

    destination = Defaulted();
    destination.SetDWord(devmode::kTiffDpi, 2000);
    destination.SetText(104, "its\town");
    destination.Merge(memory.get());
    EXPECT_EQ(destination.GetDWord(devmode::kCarriedFlag), row.flags);
    EXPECT_EQ(destination.GetDWord(devmode::kOverWriteFlag), row.flags);
    EXPECT_EQ(destination.GetTiffDPI(), 600U) << "its own fields are repaired";
    EXPECT_EQ(destination.GetText(104), "itsown");
  }
}

}  // namespace
}  // namespace zn::test
