// Defaults, copying, texts and private ids of the settings block.
#include "devmode/devmode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/devmode/reference_merge.h"

namespace zn::test {
namespace {

constexpr std::byte kOdd{0xAB};

CDevMode OddBlock() {
  CDevMode block;
  std::ranges::fill(block.Bytes(), kOdd);
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

TEST(DevMode, DefaultsAreWrittenOverAllButTheGaps) {
  CDevMode block = OddBlock();
  block.SetDefaults();
  EXPECT_EQ(std::memcmp(&block, "\x70\x24\0\0TFSM\x02\0\0\0", kDevModeHeaderSize), 0);
  struct Row {
    std::size_t offset;
    std::uint32_t value;
  };
  for (const Row& row : {Row{24, 600}, Row{1348, 42000}, Row{1364, 29700}, Row{1664, 20200},
                         Row{2960, 2}, Row{2964, 90}, Row{9108, 128}, Row{9244, 0}}) {
    EXPECT_EQ(block.GetDWord(row.offset), row.value) << row.offset;
  }
  EXPECT_EQ(block.GetText(devmode::kComment), "");
  EXPECT_EQ(Offsets(block, OddBlock(), true),
            (std::vector<std::size_t>{9101, 9102, 9103, 9308, 9309, 9310, 9311}));
}

TEST(DevMode, CopyTakesEverythingButTheAuthenticationState) {
  CDevMode source = OddBlock();
  CDevMode destination = Defaulted();
  std::memcpy(&source, &destination, kDevModeHeaderSize);
  destination.CopyFrom(&source);
  EXPECT_EQ(
      Offsets(destination, source, false),
      (std::vector<std::size_t>{71,   103,  359,  619,  684,  943,  1019, 1091, 1163, 1235, 1307,
                                1991, 2153, 2959, 9101, 9102, 9103, 9112, 9113, 9114, 9115, 9148,
                                9173, 9206, 9208, 9209, 9210, 9211, 9212, 9213, 9214, 9215}))
      << "ends of clipped texts, reserved bytes, authentication state";
}

TEST(DevMode, TextIsBoundedByItsFieldAndLeavesNothingOfAnEarlierOne) {
  CDevMode block = OddBlock();
  EXPECT_EQ(block.GetText(devmode::kJobOwnerPassword), std::string(25, '\xAB'));
  block.SetText(devmode::kJobOwnerPassword, std::string(300, 'p'));
  EXPECT_EQ(block.GetText(devmode::kJobOwnerPassword), std::string(24, 'p'));
  block.SetText(devmode::kJobOwnerPassword, std::string_view("p\0cret", 6));
  EXPECT_EQ(std::memcmp(&block.Bytes()[devmode::kJobOwnerPassword - 1],
                        "\xAB"
                        "p\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xAB",
                        27),
            0);
}

TEST(DevMode, PrivateIdsFindTheirFields) {
  struct Row {
    std::uint32_t id;
    int offset;  // -1: none
    int bits;
  };
  for (const Row& row : {Row{0, -1, 0}, Row{4300, -1, 0}, Row{4302, 24, 16}, Row{4312, 1324, 16},
                         Row{4313, 1308, 16}, Row{4315, 1316, 32}, Row{4317, -1, 0},
                         Row{4330, 1348, 32}, Row{4355, 9108, 32}, Row{0xFFFFFFFF, -1, 0}}) {
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
