// Reading profile files, and the questions that the pages ask.
#include "profile/profile_info.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <clocale>
#include <cstring>
#include <string>
#include <vector>

#include "platform/trace.h"
#include "tests/profile/reference_walk.h"
#include "tests/support/temp_folder.h"

namespace zn {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::StartsWith;

constexpr unsigned kJapanese = 932;
constexpr std::uint32_t kUntouched = 0xEEEEEEEE;
using List = std::vector<std::uint32_t>;

class ProfileInfoTest : public ::testing::Test {
 protected:
  bool Read(std::string_view text) {
    return profile_.ReadProfile(folder_.Write("profile.cps", text).c_str(), kJapanese);
  }

  // With one value more than the query may write.
  template <class Query>
  List Ask(Query query, int count, std::size_t size) {
    List list(size + 1, kUntouched);
    EXPECT_EQ((profile_.*query)(list.data(), count), 1);
    return list;
  }
  List Trays() { return Ask(&CProfileInfo::GetTrayConfig, 7, 7); }
  List Outputs() { return Ask(&CProfileInfo::GetOutputConfig, 5, 6); }
  static List Bounded(List list) {
    list.push_back(kUntouched);
    return list;
  }
  List Punches(int count) { return Ask(&CProfileInfo::GetPunchConfig, count, 3); }

  void ExpectEverythingInstalled() {
    for (int i = 0; i < CProfileInfo::kItemCount; ++i) {
      EXPECT_EQ(profile_.Items()[i].present, i >= 46 && i <= 55 ? 0U : 1U) << i;
    }
    EXPECT_THAT(Trays(), ElementsAre(1, 1, 1, 1, 1, 1, 1, kUntouched));
    EXPECT_THAT(Outputs(), ElementsAre(1, 1, 1, 1, 1, 0, kUntouched));
    EXPECT_THAT(Punches(3), ElementsAre(1, 1, 1, kUntouched));
    std::string text = "old";
    EXPECT_EQ(profile_.GetWaterMarkConfig(&text, 0), 1);
    EXPECT_EQ(text, "");
  }

  TempFolder folder_;
  CProfileInfo profile_;
};

TEST_F(ProfileInfoTest, MissingFilesAndFoldersCountAsEverythingInstalled) {
  for (const char* name : {"none.cps", ""}) {
    EXPECT_TRUE(Read("Watermark1=x\n"));
    EXPECT_FALSE(profile_.ReadProfile(folder_.Path(name).c_str(), kJapanese));
    ExpectEverythingInstalled();
  }
}

TEST_F(ProfileInfoTest, NamesLoseFolderAndExtensionAndGetTheirOwn) {
  folder_.Write("device.cps", "HasOption_InputSlot=Tray1\n");
  // The second bytes of these characters are a backslash's.
  folder_.Write("\x83\x5C\xE0\x5Cx.cps", "HasOption_InputSlot=Tray1\n");
  for (const char* name : {"device", "device.cps", "device.txt", "C:\\x.y\\device", "C:device.v1",
                           "../other/device", "\x83\x5C\xE0\x5Cx"}) {
    EXPECT_TRUE(profile_.UpdateProfile(folder_.Path().c_str(), name, kJapanese)) << name;
  }
  for (const unsigned codePage : {936, 949, 950}) {
    EXPECT_TRUE(profile_.UpdateProfile(folder_.Path().c_str(), "\x83\x5C\xE0\x5Cx", codePage));
  }
  EXPECT_FALSE(profile_.UpdateProfile(folder_.Path().c_str(), "\x83\x5C\xE0\x5Cx", 1252));
  for (const char* name : {"device.v1.cps", "devic", "", "device\\"}) {
    EXPECT_FALSE(profile_.UpdateProfile(folder_.Path().c_str(), name, kJapanese)) << name;
  }
}

TEST_F(ProfileInfoTest, DevicesAreNeverOpened) {
  for (const char* name : {"COM1", "NUL.x", "aux"}) {
#ifndef _WIN32
    folder_.Write(std::string(name, std::strcspn(name, ".")) + ".cps", "Watermark1=x\n");
#endif
    EXPECT_TRUE(Read("Watermark1=y\n"));
    EXPECT_FALSE(profile_.UpdateProfile(folder_.Path().c_str(), name, kJapanese)) << name;
    ExpectEverythingInstalled();
  }
}

TEST_F(ProfileInfoTest, PathsThatDoNotFitCountAsMissingFiles) {
  const std::string folder = folder_.Path();
  const std::string name(259 - folder.size() - 1 - 4, 'n');
  folder_.Write(name + ".cps", "\n");
  folder_.Write(name + "n.cps", "\n");
  EXPECT_TRUE(profile_.UpdateProfile(folder.c_str(), name.c_str(), kJapanese));
  EXPECT_FALSE(profile_.UpdateProfile(folder.c_str(), (name + 'n').c_str(), kJapanese));
  ExpectEverythingInstalled();
}

// The file is read in blocks of 64 KB; lines cross their borders.
TEST_F(ProfileInfoTest, BlockBordersDoNotShow) {
  for (int shift = -45; shift <= 2; ++shift) {
    const std::string text =
        std::string(65536 + shift - 1, '.') + "\nWatermark7=seven\r\nHasOption_InputSlot=Tray7";
    EXPECT_TRUE(Read(text));
    ASSERT_EQ(test::FirstDifference(profile_.Items(), test::WalkProfile(text)), -1) << shift;
  }
}

TEST_F(ProfileInfoTest, LongLinesAreTakenUpToTheirBound) {
  const std::string bound(1 << 20, 'v');
  std::string text = "Watermark1=" + bound.substr(11) + "\nWatermark2=" + bound +
                     "HasOption_ZNPunch=true\nWatermark3=c\nWatermark4=" + bound + bound + bound;
  EXPECT_TRUE(Read(text));
  const auto& items = profile_.Items();
  EXPECT_EQ(items[56].value.size(), bound.size() - 11);
  EXPECT_EQ(items[57].value.size(), bound.size() - 11);
  EXPECT_EQ(items[58].value, "c");
  EXPECT_EQ(items[59].value.size(), bound.size() - 11);
  EXPECT_THAT(Punches(2), ElementsAre(1, 0, kUntouched, kUntouched));
}

TEST_F(ProfileInfoTest, ListsAnswerInTheirOrder) {
  const struct {
    const char* text;
    List trays, outputs, punches;  // the outputs follow stackers and either finisher
  } rows[] = {
      {"HasOption_InputSlot=Tray2\nHasOption_InputSlot=Tray4\n"
       "HasOption_InputSlot=Tray8\nHasOption_InputSlot=Manual\nHasOption_DFinisher=true\n",
       {1, 0, 1, 0, 0, 0, 1},
       {1, 0, 0, 1, 1, 0},
       {1, 0, 0}},
      {"HasOption_InputSlot=Tray1 Tray6\nHasOption_ZNPunch=true\n"
       "HasOption_CFinisher=true\nHasOption_OutputTray_StackerTray=true\n",
       {1, 1, 0, 0, 1, 0, 0},
       {1, 1, 0, 1, 1, 0},
       {1, 1, 1}},
      {"HasOption_InputSlot=Tray3 Tray7\nHasOption_ZNFold=true\n"
       "HasOption_AFinisher=true\nHasOption_OutputTray_StackerTopTray=true\n",
       {1, 0, 0, 1, 0, 1, 0},
       {1, 0, 1, 0, 0, 0},
       {1, 0, 0}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_TRUE(Read(row.text));
    EXPECT_EQ(Trays(), Bounded(row.trays));
    EXPECT_EQ(Outputs(), Bounded(row.outputs));
    EXPECT_EQ(Punches(3), Bounded(row.punches));
    EXPECT_THAT(Punches(1), ElementsAre(1, kUntouched, kUntouched, kUntouched));
  }
}

TEST_F(ProfileInfoTest, TextsBeyondTheirListAreTheItemsThatFollow) {
  EXPECT_TRUE(
      Read("CustomPaperName1=first\nWatermark1=mark\nTrappingProfile1=trap\n"
           "TrappingProfile100=end\n"));
  const struct {
    int (CProfileInfo::*query)(std::string*, int) const;
    int index;
    const char* text;  // null: refused
  } rows[] = {
      {&CProfileInfo::GetCustomPaperNameConfig, 0, "first"},
      {&CProfileInfo::GetCustomPaperNameConfig, 30, "mark"},
      {&CProfileInfo::GetCustomPaperNameConfig, 229, "end"},
      {&CProfileInfo::GetCustomPaperNameConfig, 230, nullptr},
      {&CProfileInfo::GetCustomPaperNameConfig, -1, nullptr},
      {&CProfileInfo::GetWaterMarkConfig, 100, "trap"},
      {&CProfileInfo::GetWaterMarkConfig, 199, "end"},
      {&CProfileInfo::GetWaterMarkConfig, 200, nullptr},
      {&CProfileInfo::GetWaterMarkConfig, INT_MAX, nullptr},
      {&CProfileInfo::GetWaterMarkConfig, INT_MIN, nullptr},
  };
  for (const auto& row : rows) {
    std::string text = "untouched";
    EXPECT_EQ((profile_.*row.query)(&text, row.index), row.text != nullptr ? 1 : 0) << row.index;
    EXPECT_EQ(text, row.text != nullptr ? row.text : "untouched") << row.index;
    EXPECT_EQ((profile_.*row.query)(nullptr, 0), 0);
  }
}

TEST_F(ProfileInfoTest, ListsOfAnotherLengthAreLeftAlone) {
  std::array<std::uint32_t, 8> list;
  list.fill(kUntouched);
  for (const int count : {INT_MIN, -1, 0, 6, 8}) {
    EXPECT_EQ(profile_.GetTrayConfig(list.data(), count), 0) << count;
    EXPECT_EQ(profile_.GetOutputConfig(list.data(), count), 0) << count;
    EXPECT_EQ(profile_.GetPunchConfig(list.data(), std::min(count, 0)), 0) << count;
  }
  EXPECT_THAT(list, Each(kUntouched));
  EXPECT_EQ(profile_.GetTrayConfig(nullptr, 7), 0);
  EXPECT_EQ(profile_.GetOutputConfig(nullptr, 5), 0);
  EXPECT_EQ(profile_.GetPunchConfig(nullptr, 3), 0);
}

#ifdef _WIN32
TEST_F(ProfileInfoTest, TheCodePagePicksTheLocale) {
  const struct {
    unsigned codePage;
    std::string_view locale;
  } rows[] = {{932, "Japanese"},
              {936, "Chinese (Simplified)"},
              {949, "Korean"},
              {950, "Chinese (Traditional)"}};
  for (const auto& row : rows) {
    std::setlocale(LC_ALL, "C");
    EXPECT_FALSE(profile_.ReadProfile("", row.codePage));
    EXPECT_THAT(std::setlocale(LC_ALL, nullptr), StartsWith(row.locale)) << row.codePage;
  }
  const std::string byDefault = std::setlocale(LC_ALL, "");
  std::setlocale(LC_ALL, "C");
  EXPECT_FALSE(profile_.ReadProfile("", 1252));
  EXPECT_EQ(std::setlocale(LC_ALL, nullptr), byDefault);
}
#endif

#ifdef ZN_TRACE
std::string traced;

TEST_F(ProfileInfoTest, TracesTellTheOutcome) {
  trace::SetSink([](const char*, int, const char*, const char* text) { traced += text; });
  traced.clear();
  profile_.ReadProfile("", 1252);
  EXPECT_EQ(traced,
            "CProfileInfo::UpdateProfile() 1\n"
            "### CProfileInfo::UpdateProfile acp = 1252"
            "CProfileInfo::UpdateProfile() ifs=NULL\n");
  traced.clear();
  std::uint32_t value = 0;
  profile_.GetTrayConfig(&value, 8);
  profile_.GetWaterMarkConfig(nullptr, -3);
  EXPECT_EQ(traced,
            "CProfileInfo::GetTrayConfig()error pbTrayconfig = 1, listcnt = 8\n"
            "CProfileInfo::GetWaterMarkConfig()error psWatermarkselection = 0, listcnt = -3\n");
  trace::SetSink(nullptr);
}
#endif

}  // namespace
}  // namespace zn
