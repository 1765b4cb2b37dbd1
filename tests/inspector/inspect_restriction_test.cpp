#include <gtest/gtest.h>

#include "tests/inspector/inspector.h"

namespace zn::test {
namespace {

TEST(InspectRestriction, AnswersAndRefusals) {
  const struct {
    std::vector<std::string> words;
    int exitCode;
    std::string output;
  } rows[] = {
      {{"--group", "0"}, 0, "allowed\n"},
      {{"--group", "1"}, 0, "refused 4101\n"},
      {{"--group", "2", "ZNStaple=19", "ZNMixSizePrint=1"}, 0, "refused 4102\n"},
      {{"--group", "2", "ZNStaple=9", "ZNPunch=1"}, 0, "conflict ZNPunch\n"},
      {{"--group", "0", "ZNStaple=9", "ZNPunch=1"}, 0, "conflict ZNStaple\n"},
      {{"--group", "2", "ZNStaple=9", "ZNBookletFinishing=1"}, 0, "conflict -\n"},
      {{"--group", "4", "Duplex=1", "ZNMediaType=10", "ZNMediaTypeWeight=5"},
       0,
       "conflict Duplex\n"},
      {{"--group", "5", "Duplex=1", "ZNMediaTypeBypass=5", "ZNMediaTypeWeightBypass=8"},
       0,
       "conflict Duplex\n"},
      {{"--group", "3", "Duplex=1", "ZNMediaTypeBypass=6", "ZNAutoTraySettingToBypass=1"},
       0,
       "allowed\n"},
      {{"--group", "2", "ZNStaple=9", "ZNPunch=-2147483648"}, 0, "allowed\n"},
      {{"--group", "2", "ZNStaple=2147483648"}, 2, ""},
      {{"--group", "2", "ZNStaple=1x"}, 2, ""},
      {{"--group", "2", "ZNStaple="}, 2, ""},
      {{"--group", "2", "ZNStaple"}, 2, ""},
      {{"--group", "2", "Collate=1"}, 2, ""},
      {{"--group", "2", "=1"}, 2, ""},
      {{"--group", "6"}, 2, ""},
      {{"--group", "-1"}, 2, ""},
      {{"--group"}, 2, ""},
      {{"ZNStaple=9"}, 2, ""},
      {{}, 2, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.words));
    std::vector<std::string> words = {"restriction"};
    words.insert(words.end(), row.words.begin(), row.words.end());
    const Outcome outcome = RunInspector(words);
    EXPECT_EQ(outcome.exitCode, row.exitCode);
    EXPECT_EQ(outcome.output, row.output);
    EXPECT_EQ(outcome.IsOneLineError(), row.exitCode != 0) << outcome.error;
  }
}

}  // namespace
}  // namespace zn::test
