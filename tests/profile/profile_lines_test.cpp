// What the lines of a device profile say; profile_fuzzer holds any lines against the reference
// walk.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "profile/profile_info.h"
#include "profile/profile_lines.h"

namespace zn {
namespace {

using namespace std::string_view_literals;

TEST(ProfileLines, MarkTheItemsTheyNameAndTakeTheRestAsText) {
  const struct {
    std::string_view text;
    std::vector<int> present;
    std::string_view value = {};  // of the last one, if it is a text
  } rows[] = {
      {"HasOption_InputSlot=Tray1, Tray8 Manual\n", {0, 4, 7}},
      {"HasOption_ZNStaple=false\nHasOption_ZNStaple=tr\nue\nhasoption_ZNStaple=true\n", {}},
      {"true for XHasOption_ZNStapleX\r\n", {13}},  // nothing ties the value to the "="
      {"HasOption_CFinisher HasOption_SideTray=true\n", {8, 25}},
      {"HasOption_OutputTray_StackerTray=true", {19}},
      {"HasOption_ZNPunch=true Watermark2=x\n", {15, 57}, "x"},  // flags do not end the line
      {"Watermark0=x\nWatermark01=x\nWatermark101=x\nCustomPaperName1 =x\n=x\n", {}},
      {"Watermark2=Watermark1=x\n", {56}, "x"},  // the lower item comes first in the walk
      {"Watermark10 Watermark1=x\n", {}},        // only the first occurrence counts
      {"Watermark10 Watermark1=Watermark2=x\n", {57}, "x"},  // and the walk goes on behind it
      {"CustomPaperName20=  a=b  \r\n", {45}, "  a=b  "},
      {"xWatermark100=\x95\x5C\r\r\n", {155}, "\x95\x5C\r"},
      {"TrappingProfile1=nul\0l\n"sv, {156}, "nul\0l"sv},
      {"Watermark5=first\nWatermark5=second", {60}, "second"},
  };
  for (const auto& row : rows) {
    CProfileInfo::ItemTable items = CProfileInfo().Items();
    profile::TakeLines(row.text, items);
    std::vector<int> present;
    for (int i = 0; i < CProfileInfo::kItemCount; ++i) {
      if (items[i].present != 0) {
        present.push_back(i);
      }
    }
    EXPECT_EQ(present, row.present) << row.text;
    if (!row.value.empty()) {
      EXPECT_EQ(items[row.present.back()].value, row.value) << row.text;
    }
  }
}

}  // namespace
}  // namespace zn
