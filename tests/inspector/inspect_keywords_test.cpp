#include <gtest/gtest.h>

#include "tests/inspector/inspector.h"

namespace zn::test {
namespace {

struct Row {
  std::vector<std::string> words;
  int exitCode;
  std::string output;
};

TEST(InspectKeywords, AnswersAndRefusals) {
  const Row rows[] = {
      {{"keyword", "Collate"}, 0, "9 Collate\n"},
      {{"keyword", "NupBorder"}, 0, "265 NupBorder\n"},
      {{"keyword", "collate"}, 1, ""},
      {{"keyword", ""}, 1, ""},
      {{"keyword"}, 2, ""},
      {{"keyword", "Collate", "Duplex"}, 2, ""},
      {{"codes", "59"}, 0, "10 9 8 7 6 5 4 3 2 1 0\n"},
      {{"codes", "330"}, 0, "0 1 2\n"},
      {{"codes", "4294967295"}, 0, "0 1\n"},
      {{"codes", "4294967296"}, 2, ""},
      {{"codes", "-1"}, 2, ""},
      {{"codes", "9x"}, 2, ""},
      {{"codes", ""}, 2, ""},
      {{"codes"}, 2, ""},
      {{}, 2, ""},
      {{"nonsense"}, 2, ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.words));
    const Outcome outcome = RunInspector(row.words);
    EXPECT_EQ(outcome.exitCode, row.exitCode);
    EXPECT_EQ(outcome.output, row.output);
    EXPECT_EQ(outcome.IsOneLineError(), row.exitCode != 0) << outcome.error;
  }
}

}  // namespace
}  // namespace zn::test
