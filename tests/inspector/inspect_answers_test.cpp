// The operations that answer in one line, and what every operation refuses.
#include "tests/inspector/inspector.h"

namespace zn::test {
namespace {

TEST(Inspector, AnswersInOneLine) {
  const struct {
    std::vector<std::string> words;
    std::string answer;
  } rows[] = {
      {{"keyword", "Collate"}, "9 Collate"},
      {{"keyword", "NupBorder"}, "265 NupBorder"},
      {{"codes", "59"}, "10 9 8 7 6 5 4 3 2 1 0"},
      {{"codes", "330"}, "0 1 2"},
      {{"codes", "4294967295"}, "0 1"},
      {{"restriction", "--group", "0"}, "allowed"},
      {{"restriction", "--group", "1"}, "refused 4101"},
      {{"restriction", "--group", "2", "ZNStaple=19", "ZNMixSizePrint=1"}, "refused 4102"},
      {{"restriction", "--group", "2", "ZNStaple=9", "ZNPunch=1"}, "conflict ZNPunch"},
      {{"restriction", "--group", "0", "ZNStaple=9", "ZNPunch=1"}, "conflict ZNStaple"},
      {{"restriction", "--group", "2", "ZNStaple=9", "ZNBookletFinishing=1"}, "conflict -"},
      {{"restriction", "--group", "4", "Duplex=1", "ZNMediaType=10", "ZNMediaTypeWeight=5"},
       "conflict Duplex"},
      {{"restriction", "--group", "5", "Duplex=1", "ZNMediaTypeBypass=5",
        "ZNMediaTypeWeightBypass=8"},
       "conflict Duplex"},
      {{"restriction", "--group", "3", "Duplex=1", "ZNMediaTypeBypass=6",
        "ZNAutoTraySettingToBypass=1"},
       "allowed"},
      {{"restriction", "--group", "2", "ZNStaple=9", "ZNPunch=-2147483648"}, "allowed"},
  };
  for (const auto& [words, answer] : rows) {
    EXPECT_EQ(Inspect(words), answer + '\n') << testing::PrintToString(words);
  }
}

TEST(Inspector, RefusesInOneLine) {
  const TempFolder folder;
  const std::string block = folder.Path("block");
  EXPECT_EQ(Inspect({"devmode", "--default", block}), "");
  const std::string bytes = folder.Read("block");
  const std::string shorter = folder.Write("short", bytes.substr(1));
  const std::string longer = folder.Write("long", bytes + 'x');
  const std::string favorite = folder.Write("good.pfj", "1\n2\n");
  const std::string bad = folder.Write("bad.pfj", "12\n");
  const std::string missing = folder.Path("missing");
  const std::string out = folder.Path("out");
  const std::string nowhere = folder.Path("no/such/folder");
  const struct {
    int exitCode;
    std::vector<std::vector<std::string>> rows;
  } tables[] = {
      {1,  // failed
       {{"keyword", "collate"},
        {"keyword", ""},
        {"devmode", "--default", nowhere},
        {"favorite", bad},
        {"favorite", missing},
        {"favorite", bad, "--save", out},
        {"favorite", favorite, "--save", nowhere}}},
      {2,  // not understood
       {{},
        {"nonsense"},
        {"keyword"},
        {"keyword", "Collate", "Duplex"},
        {"codes"},
        {"codes", ""},
        {"codes", "-1"},
        {"codes", "9x"},
        {"codes", "4294967296"},
        {"devmode"},
        {"devmode", "--default"},
        {"devmode", "--unknown", out},
        {"devmode", block, block},
        {"devmode", missing},
        {"devmode", shorter},
        {"devmode", longer},
        {"devmode", "--convert", block, out},
        {"devmode", "--convert", shorter, block, out},
        {"devmode", "--convert", block, longer, out},
        {"devmode", "--merge", block, missing, out},
        {"favorite"},
        {"favorite", favorite, "--save"},
        {"favorite", favorite, "--store", out},
        {"record"},
        {"record", "--fresh"},
        {"profile"},
        {"profile", favorite, favorite},
        {"restriction"},
        {"restriction", "ZNStaple=9"},
        {"restriction", "--group"},
        {"restriction", "--group", "-1"},
        {"restriction", "--group", "6"},
        {"restriction", "--group", "2", "ZNStaple=2147483648"},
        {"restriction", "--group", "2", "ZNStaple=1x"},
        {"restriction", "--group", "2", "ZNStaple="},
        {"restriction", "--group", "2", "ZNStaple"},
        {"restriction", "--group", "2", "Collate=1"},
        {"restriction", "--group", "2", "=1"}}},
  };
  for (const auto& [exitCode, rows] : tables) {
    for (const std::vector<std::string>& words : rows) {
      const Outcome outcome = RunInspector(words);
      EXPECT_EQ(outcome.exitCode, exitCode) << testing::PrintToString(words);
      EXPECT_TRUE(outcome.IsOneLineError()) << testing::PrintToString(words) << outcome.error;
      EXPECT_FALSE(std::filesystem::exists(out)) << testing::PrintToString(words);
    }
  }
}

}  // namespace
}  // namespace zn::test
