// Defaults, copying, texts and private ids of the settings block.
#include "devmode/devmode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "tests/devmode/reference_merge.h"

namespace zn::test {
namespace {

constexpr std::byte kOdd{0xAB};

CDevMode FilledWith(std::byte byte) {
  CDevMode block;
  std::ranges::fill(block.Bytes(), byte);
  return block;
}

// A current header before bytes that are nobody's default.
CDevMode OddBlock() {
  CDevMode block = FilledWith(kOdd);
  const CDevMode defaulted = Defaulted();
  std::memcpy(&block, &defaulted, kDevModeHeaderSize);
  return block;
}

// Where two blocks have the same byte, or not.
std::vector<std::size_t> Offsets(const CDevMode& left, const CDevMode& right, bool same) {
  std::vector<std::size_t> found;
  for (std::size_t at = 0; at < kDevModeSize; ++at) {
    if ((left.Bytes()[at] == right.Bytes()[at]) == same) {
      found.push_back(at);
    }
  }
  return found;
}

TEST(DevModeDefaults, AreWrittenOverAllButTheGaps) {
  CDevMode block = FilledWith(kOdd);
  block.SetDefaults();
  EXPECT_TRUE(block.IsCurrent());
  EXPECT_EQ(std::memcmp(&block, "\x70\x24\0\0TFSM\x02\0\0\0", kDevModeHeaderSize), 0);
  struct Row {
    std::size_t offset;
    std::uint32_t value;
  };
  for (const Row& row :
       {Row{24, 600},     Row{28, 90},      Row{1312, 1},     Row{1320, 300},   Row{1328, 16},
        Row{1344, 29700}, Row{1348, 42000}, Row{1364, 29700}, Row{1368, 42000}, Row{1648, 29700},
        Row{1652, 42000}, Row{1656, 20200}, Row{1660, 20200}, Row{1664, 20200}, Row{2960, 2},
        Row{2964, 90},    Row{9108, 128},   Row{9212, 0},     Row{9244, 0},     Row{9324, 0}}) {
    EXPECT_EQ(block.GetDWord(row.offset), row.value) << row.offset;
  }
  EXPECT_EQ(block.GetText(devmode::kComment), "");
  EXPECT_EQ(Offsets(block, FilledWith(kOdd), true),
            (std::vector<std::size_t>{9101, 9102, 9103, 9308, 9309, 9310, 9311}));
}

TEST(DevModeCopy, TakesEverythingButTheAuthenticationState) {
  const CDevMode source = OddBlock();
  CDevMode destination = Defaulted();
  destination.CopyFrom(source);
  EXPECT_EQ(
      Offsets(destination, source, false),
      (std::vector<std::size_t>{71,   103,  359,  619,  684,  943,  1019, 1091, 1163, 1235, 1307,
                                1991, 2153, 2959, 9101, 9102, 9103, 9112, 9113, 9114, 9115, 9148,
                                9173, 9206, 9208, 9209, 9210, 9211, 9212, 9213, 9214, 9215}))
      << "ends of clipped texts, reserved bytes, authentication state";
}

TEST(DevModeCopy, NothingWhenTheHeadersDiffer) {
  for (const std::size_t offset : {devmode::kSize, devmode::kSignature, devmode::kVersion}) {
    CDevMode source = OddBlock();
    source.SetDWord(offset, source.GetDWord(offset) - 1);
    CDevMode destination = Defaulted();
    destination.CopyFrom(source);
    EXPECT_TRUE(std::ranges::equal(destination.Bytes(), Defaulted().Bytes())) << offset;
  }
}

TEST(DevModeCopy, NothingFromABlockThatSaysItIsShorter) {
  CDevMode source = OddBlock();
  CDevMode destination = Defaulted();
  source.SetDWord(devmode::kSize, kDevModeSize - 1);
  destination.SetDWord(devmode::kSize, kDevModeSize - 1);
  destination.CopyFrom(source);
  EXPECT_EQ(destination.GetTiffDPI(), 600U);
}

TEST(DevModeText, IsBoundedByItsFieldAndLeavesNothingOfAnEarlierOne) {
  CDevMode block = FilledWith(kOdd);
  EXPECT_EQ(block.GetText(devmode::kJobOwnerPassword), std::string(25, '\xAB'));
  block.SetText(devmode::kJobOwnerPassword, std::string(300, 'p'));
  EXPECT_EQ(block.GetText(devmode::kJobOwnerPassword), std::string(24, 'p'));
  EXPECT_EQ(block.Bytes()[devmode::kJobOwnerPassword - 1], kOdd);
  EXPECT_EQ(block.Bytes()[devmode::kAccountId], kOdd);
  block.SetText(devmode::kJobOwnerPassword, std::string_view("p\0cret", 6));
  EXPECT_EQ(block.GetText(devmode::kJobOwnerPassword), "p");
  EXPECT_EQ(std::memcmp(&block.Bytes()[devmode::kJobOwnerPassword], "p\0\0\0\0\0\0", 7), 0);
}

TEST(DevModePrivateIds, FindTheirFields) {
  struct Row {
    std::uint32_t id;
    int offset;  // -1: none
    int bits;
  };
  for (const Row& row :
       {Row{4300, -1, 0},    Row{4301, 20, 32},   Row{4302, 24, 16},   Row{4311, 1236, 32},
        Row{4312, 1324, 16}, Row{4313, 1308, 16}, Row{4315, 1316, 32}, Row{4317, -1, 0},
        Row{4318, 1992, 32}, Row{4325, 2020, 32}, Row{4330, 1348, 32}, Row{4339, -1, 0},
        Row{4344, 1664, 16}, Row{4345, -1, 0},    Row{4348, 2156, 32}, Row{4352, 2964, 16},
        Row{4355, 9108, 32}, Row{4356, -1, 0},    Row{0, -1, 0},       Row{0xFFFFFFFF, -1, 0}}) {
    SCOPED_TRACE(row.id);
    const DevModeField* field = FindPrivateField(row.id);
    ASSERT_EQ(field != nullptr, row.offset >= 0);
    if (field != nullptr) {
      EXPECT_EQ(field->offset, row.offset);
      EXPECT_EQ(field->privateWidth, row.bits);
    }
  }
}

}  // namespace
}  // namespace zn::test
