// What the lines of a device profile say.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "profile/profile_info.h"
#include "profile/profile_lines.h"
#include "tests/profile/reference_walk.h"

namespace zn {
namespace {

using ::testing::ElementsAreArray;

CProfileInfo::ItemTable Take(std::string_view text) {
  CProfileInfo::ItemTable items = CProfileInfo().Items();
  profile::TakeLines(text, items);
  return items;
}

std::vector<int> PresentIn(const CProfileInfo::ItemTable& items) {
  std::vector<int> present;
  for (int i = 0; i < CProfileInfo::kItemCount; ++i) {
    if (items[i].present != 0) {
      present.push_back(i);
    }
  }
  return present;
}

struct Row {
  std::string_view text;
  std::vector<int> present;
};

TEST(ProfileLines, MarkTheItemsTheyName) {
  const Row rows[] = {
      {"HasOption_InputSlot=Manual", {4}},
      {"HasOption_InputSlot=Tray1, Tray8 Manual\n", {0, 4, 7}},
      {"HasOption_ZNStaple=false\n", {}},
      {"HasOption_ZNStaple=true\r\n", {13}},
      {"HasOption_ZNStapleX=true\n", {13}},
      {"true for XHasOption_ZNStaple\n", {13}},  // nothing ties the value to the "="
      {"hasoption_ZNStaple=true\nHasOption_ZNStaple=True\n", {}},
      {"HasOption_ZNStaple=tr\nue\n", {}},
      {"HasOption_CFinisher HasOption_SideTray=true\n", {8, 25}},
      {"HasOption_HasOption_InterTray=true\n", {24}},
      {"HasOption_OutputTray_StackerTray=true", {19}},
      {"HasOption_StackerTray=true\nHasOption_=true\nHasOption_OutputTray_=true\n", {}},
      {"HasOption_ZNPunch=true Watermark2=x\n", {15, 57}},  // flags do not end the line
      {"Watermark=x\nWatermark0=x\nWatermark01=x\nWatermark101=x\nWatermark1000=x\n", {}},
      {"CustomPaperName21=x\nCustomPaperName1 =x\n=x\nWatermark1\n", {}},
      {"Watermark2=Watermark1=x\n", {56}},  // the lower item comes first in the walk
      {"Watermark1=Watermark2=x\n", {56}},
      {"Watermark10 Watermark1=x\n", {}},               // only the first occurrence counts
      {"Watermark10 Watermark1=Watermark2=x\n", {57}},  // and the walk goes on behind it
      {"TrappingProfile100=a CustomPaperName20=b", {45}},
      {"[Options]\n\n\r\n; comment\nUnknown=true\n", {}},
  };
  for (const Row& row : rows) {
    EXPECT_THAT(PresentIn(Take(row.text)), ElementsAreArray(row.present)) << row.text;
  }
}

TEST(ProfileLines, ValuesAreTheRestOfTheLineAsItStands) {
  using namespace std::string_view_literals;
  const struct {
    std::string_view text;
    int item;
    std::string_view value;
  } rows[] = {
      {"CustomPaperName3=Glossy A4\n"sv, 28, "Glossy A4"sv},
      {"CustomPaperName20=  a=b  \r\n"sv, 45, "  a=b  "sv},
      {"Watermark1=\n"sv, 56, ""sv},
      {"Watermark10=X"sv, 65, "X"sv},
      {"xWatermark100=\x95\x5C\r\r\n"sv, 155, "\x95\x5C\r"sv},
      {"TrappingProfile1=nul\0l\n"sv, 156, "nul\0l"sv},
      {"TrappingProfile100=no line end\r"sv, 255, "no line end\r"sv},
      {"Watermark5=first\nWatermark5=second\n"sv, 60, "second"sv},
      {"Watermark5=Watermark5=x\n"sv, 60, "Watermark5=x"sv},
  };
  for (const auto& row : rows) {
    const CProfileInfo::ItemTable items = Take(row.text);
    EXPECT_EQ(items[row.item].value, row.value) << row.text;
    EXPECT_THAT(PresentIn(items), ElementsAreArray({row.item})) << row.text;
  }
}

// Lines put together from what keys and values are made of meet every way in which they can
// overlap, repeat and interrupt each other.
TEST(ProfileLines, AnswerAsTheItemByItemWalk) {
  static constexpr std::string_view kPieces[] = {
      "HasOption_", "InputSlot",   "OutputTray_StackerTray",
      "ZNStaple",   "SBFinisher",  "_",
      "true",       "Tray1",       "Manual",
      "Tray8",      "=",           "=",
      "Watermark",  "Watermark1=", "CustomPaperName",
      "Trapping",   "Profile",     "TrappingProfile",
      "1",          "0",           "2",
      "Watermark",  "Watermark2=", "10",
      "100",        "\n",          "\n",
      "\r\n",       "\r",          " ",
      "x"};
  std::mt19937 random(4711);
  for (int round = 0; round < 4000; ++round) {
    std::string text;
    for (auto piece = random() % 24; piece > 0; --piece) {
      text += kPieces[random() % std::size(kPieces)];
    }
    ASSERT_EQ(test::FirstDifference(Take(text), test::WalkProfile(text)), -1) << text;
  }
}

}  // namespace
}  // namespace zn
