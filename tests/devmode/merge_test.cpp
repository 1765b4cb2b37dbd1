// The merge: ranges, flags, control characters, what is carried from a source with another header.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "devmode/devmode.h"
#include "tests/devmode/reference_merge.h"

namespace zn::test {
namespace {

CDevMode MergedFrom(const CDevMode& source) {
  CDevMode block = Defaulted();
  block.Merge(source);
  return block;
}

TEST(Merge, NumbersAtTheirLimits) {
  struct Row {
    std::size_t offset;
    std::uint32_t value, merged;
  };
  // clang-format off
  const Row rows[] = {
      {12, 7, 1}, {12, 0, 0}, {24, 0, 600}, {24, 1, 1}, {24, 1200, 1200}, {24, 1201, 600},
      {24, 0xFFFFFFFF, 600}, {28, 999, 999}, {28, 1000, 90}, {32, 0, 1}, {36, 500, 500},
      {36, 501, 1}, {1308, 0xFFFFFFFF, 0xFFFFFFFF}, {1312, 0, 1}, {1312, 6, 1}, {1316, 1, 1},
      {1316, 2, 0}, {1320, 99, 300}, {1320, 100, 100}, {1320, 401, 300}, {1324, 10000, 1},
      {1328, 31, 16}, {1344, 999, 29700}, {1344, 1000, 1000}, {1344, 33000, 33000},
      {1344, 33001, 29700}, {1348, 66040, 66040}, {1348, 66041, 42000}, {1352, 5000, 5000},
      {1352, 5001, 0}, {1356, 2500, 2500}, {1356, 2501, 0}, {1384, 24400, 24400}, {1384, 24401, 0},
      {1652, 999, 42000}, {1664, 11969, 20200}, {1664, 11970, 11970}, {1664, 22660, 22660},
      {1664, 22661, 20200}, {2020, 12345, 12345}, {2960, 1, 2}, {2960, 255, 255}, {2964, 54, 90},
      {2964, 350, 350}, {9104, 3, 0}, {9108, 256, 128}, {9112, 6, 0}, {9208, 7, 0}, {9212, 5, 5}, {9228, 101, 0}, {9244, 0, 1},
      {9244, 500, 500}, {9288, 99, 99}, {9288, 100, 0}, {9296, 500, 0}, {9312, 101, 101},
      {9312, 102, 0}, {9320, 0, 1}, {9324, 101, 0},
  };
  // clang-format on
  for (const Row& row : rows) {
    CDevMode source = Defaulted();
    source.SetDWord(row.offset, row.value);
    EXPECT_EQ(MergedFrom(source).GetDWord(row.offset), row.merged)
        << "at " << row.offset << " of " << row.value;
  }
}

TEST(Merge, OnlyThreeDefaultsChange) {
  const CDevMode defaulted = Defaulted();
  const CDevMode merged = MergedFrom(defaulted);
  std::vector<std::size_t> changed;
  for (const DevModeField& field : DevModeFields()) {
    if (!std::ranges::equal(merged.Bytes().subspan(field.offset, field.width),
                            defaulted.Bytes().subspan(field.offset, field.width))) {
      changed.push_back(field.offset);
    }
  }
  EXPECT_EQ(changed, (std::vector<std::size_t>{9244, 9248, 9320}));
}

TEST(Merge, ControlCharactersAreCutOut) {
  constexpr std::size_t kText = 104;
  struct Row {
    std::string text, merged, mergedComment;
  };
  const Row rows[] = {
      {"plain", "plain", "plain"},
      {"\x01", "", ""},
      {"a\tb\x1F"
       "c d",
       "abc d", "abc d"},
      {"one\r\ntwo", "onetwo", "one\r\ntwo"},
      {"\r\r\n\n", "", "\r\n"},
      {"end\r", "end", "end"},
      {"\x83\x5c\x7f\x80\xff", "\x83\x5c\x7f\x80\xff", "\x83\x5c\x7f\x80\xff"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    CDevMode source = Defaulted();
    for (const std::size_t offset :
         {kText, devmode::kComment, devmode::kJobName, devmode::kFavoriteName,
          devmode::kDeviceProfile, devmode::kJobOwnerPassword}) {
      source.SetText(offset, row.text);
    }
    const CDevMode merged = MergedFrom(source);
    EXPECT_EQ(merged.GetText(kText), row.merged);
    EXPECT_EQ(merged.GetText(devmode::kJobOwnerPassword), row.merged);
    EXPECT_EQ(merged.GetText(devmode::kComment), row.mergedComment);
    for (const std::size_t offset :
         {devmode::kJobName, devmode::kFavoriteName, devmode::kDeviceProfile}) {
      EXPECT_EQ(merged.GetText(offset), row.text) << "not repaired: " << offset;
    }
  }
}

// The scan looks at many bytes at once; so controls and terminators go to every position.
TEST(Merge, ControlCharacterAtEveryPositionOfEveryText) {
  for (const DevModeField& field : DevModeFields()) {
    if (field.repair != Repair::Controls && field.repair != Repair::Comment) {
      continue;
    }
    for (std::size_t at = 0; at < field.copyBound; ++at) {
      CDevMode source = Defaulted();
      std::string text(field.width, 'x');
      text[at] = '\x1F';
      text[(at + 7) % text.size()] = '\0';
      std::memcpy(&source.Bytes()[field.offset], text.data(), text.size());
      const std::string_view copied =
          std::string_view(text).substr(0, std::min<std::size_t>(text.find('\0'), field.copyBound));
      ASSERT_EQ(MergedFrom(source).GetText(field.offset), WithoutControls(copied, false))
          << field.offset << " with a control character at " << at;
    }
  }
}

TEST(Merge, CommentEndingInHalfALineEnd) {
  CDevMode block = Defaulted();
  auto comment = block.Bytes().subspan(devmode::kComment, 516);
  std::ranges::fill(comment, std::byte{'x'});
  comment.back() = std::byte{'\r'};
  block.SetDWord(2960, 0x0A0A0A0A);  // line feeds behind the field
  block.SetDWord(devmode::kVersion, 3);
  block.Merge(Defaulted());  // another header: repaired as it is
  EXPECT_EQ(block.GetText(devmode::kComment), std::string(515, 'x'));
  EXPECT_EQ(block.GetDWord(2960), 2U);
}

TEST(Merge, RandomBlocksComeOutGoodAndStable) {
  std::mt19937 random(20240711);
  for (int round = 0; round < 300; ++round) {
    SCOPED_TRACE(round);
    GuardedBlock source;
    GuardedBlock destination;
    // Few values per round, so that long texts without terminators and long runs of controls occur.
    const unsigned kinds = 2U << (round % 8);
    std::ranges::generate(source.block.Bytes(), [&] { return std::byte(random() % kinds * 37); });
    std::ranges::generate(destination.block.Bytes(), [&] { return std::byte(random()); });
    if (round % 3 != 0) {  // with the same header
      const CDevMode defaulted = Defaulted();
      std::memcpy(&source.block, &defaulted, kDevModeHeaderSize);
      destination.block.SetDefaults();
    }
    destination.block.Merge(source.block);
    ASSERT_EQ(FirstBadField(destination.block), -1);

    CDevMode again = destination.block;
    again.Merge(destination.block);
    ASSERT_TRUE(std::ranges::equal(again.Bytes(), destination.block.Bytes()));
    again = source.block;
    again.Merge(source.block);
    source.block.Merge(source.block);  // in place
    ASSERT_TRUE(std::ranges::equal(again.Bytes(), source.block.Bytes()));
    ASSERT_TRUE(source.IsIntact() && destination.IsIntact());
  }
}

TEST(Merge, OtherVersionGivesOnlyItsFlags) {
  CDevMode source = Defaulted();
  source.SetDWord(devmode::kVersion, 1);
  source.SetDWord(devmode::kCarriedFlag, 3);
  source.SetDWord(devmode::kTiffDpi, 300);
  source.SetDWord(devmode::kOverWriteFlag, 4);
  CDevMode destination = Defaulted();
  destination.SetDWord(devmode::kTiffDpi, 2000);
  destination.SetText(104, "its\town");
  destination.Merge(source);
  EXPECT_EQ(destination.GetTiffDPI(), 600U);
  EXPECT_EQ(destination.GetText(104), "itsown");
  EXPECT_EQ(destination.GetDWord(devmode::kCarriedFlag), 1U);
  EXPECT_EQ(destination.GetDWord(devmode::kOverWriteFlag), 4U);
}

// The sanitizer sees a read behind the source.
TEST(Merge, ShorterSourceIsReadOnlyAsFarAsItGoes) {
  for (const std::uint32_t size : {12U, 16U, 20U, 100U, 9212U, 9216U, 9327U}) {
    SCOPED_TRACE(size);
    std::vector<std::byte> memory(size);
    std::memcpy(memory.data(), &size, sizeof size);
    if (size >= 20) {
      memory[devmode::kCarriedFlag] = std::byte{1};
    }
    CDevMode destination = Defaulted();
    destination.SetDWord(devmode::kOverWriteFlag, 9);
    destination.Merge(*reinterpret_cast<const CDevMode*>(memory.data()));
    EXPECT_EQ(destination.GetDWord(devmode::kCarriedFlag), size >= 20 ? 1U : 0U);
    EXPECT_EQ(destination.GetDWord(devmode::kOverWriteFlag), size >= 9216 ? 0U : 9U);
    EXPECT_EQ(destination.GetTiffDPI(), 600U);
  }
}

}  // namespace
}  // namespace zn::test
