// Defaults, copying, texts and private ids of the settings block.
#include "devmode/devmode.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <tuple>
#include <utility>
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
  EXPECT_EQ(block.GetTiffDPI(), 600U);
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

TEST(DevMode, TextIsCutBetweenCharacters) {
  constexpr std::size_t kUserName = 40;  // of 32 bytes, terminator included
  for (const auto& [text, cut] : {std::pair(std::string(30, 'x') + "\x83\x5C", 30U),
                                  {std::string(29, 'x') + "\x83\x5C\x83\x5C", 31U},
                                  {std::string(31, '\xB1') + "x", 31U}}) {
    CDevMode block = Defaulted();
    block.SetText(kUserName, text);
    EXPECT_EQ(block.GetText(kUserName), text.substr(0, cut));
    CDevMode source = Defaulted();
    std::memcpy(&source.Bytes()[kUserName], text.data(), 32);  // nothing ends it
    block = Defaulted();
    block.CopyFrom(&source);
    EXPECT_EQ(block.GetText(kUserName), text.substr(0, cut));
    source.Merge(&source);
    EXPECT_EQ(source.GetText(kUserName), text.substr(0, cut));
  }
}

TEST(DevMode, AuthenticationDataIsWhatWasEnteredOrTheLogon) {
  CDevMode block = OddBlock();
  for (const auto& [method, specify, answer] :
       {std::tuple(1U, "EnterName", "1 owner secret account"),
        {2U, "LoginName", "0 logon secret account"},
        {1U, "entername", "0 logon secret account"},
        {0U, "EnterName", "0   "}}) {
    block.SetAuthenticationData(method, specify, "owner", "secret", "account", "logon");
    std::string texts = std::to_string(block.GetDWord(devmode::kOwnerNameSource));
    for (const auto text :
         {devmode::kJobOwnerName, devmode::kJobOwnerPassword, devmode::kAccountId}) {
      texts.append(1, ' ').append(block.GetText(text));
    }
    EXPECT_EQ(texts, answer) << method << specify;
    EXPECT_EQ(block.GetDWord(devmode::kManagementMethod), method);
  }
}

TEST(DevMode, PrivateIdsFindTheirFields) {
  EXPECT_EQ(FindPrivateField(4355), FindDevModeField(9108));
  for (const std::uint32_t id : {0U, 4300U, 4317U, 0xFFFFFFFFU}) {
    EXPECT_EQ(FindPrivateField(id), nullptr) << id;
  }
}

}  // namespace
}  // namespace zn::test
