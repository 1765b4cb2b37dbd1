// znhost as its user calls it.
#include <cstdio>

#include "host/base/files.h"
#include "tests/host/host_fixture.h"

namespace zn::test {
namespace {

using HostProgram = HostTest;

struct Outcome {
  int code;
  std::string output;  // both streams; line ends are \n
};

Outcome RunHost(const std::string& words) {
  FILE* const pipe =
      ::_popen(("\"\"" + host::ProgramFolder() + "znhost.exe\" " + words + " 2>&1\"").c_str(), "r");
  std::string output;
  char part[256];
  while (std::fgets(part, sizeof part, pipe) != nullptr) {
    output += part;
  }
  return {::_pclose(pipe), output};
}

TEST_F(HostProgram, RefusalsGetOneLine) {
  const struct {
    const char* words;
    int code;
  } rows[] = {{"", 2},
              {"dance", 2},
              {"soak 0", 2},
              {"faults some", 2},
              {"soak 2 --shots x", 2},
              {"prefs --devmod x", 2},
              {"event delete", 2},
              {"prefs --queue \"no such queue\"", 1},
              {"prefs --devmode C:\\windows", 1}};
  for (const auto& [words, code] : rows) {
    const Outcome outcome = RunHost(words);
    EXPECT_EQ(outcome.code, code) << words;
    EXPECT_TRUE(outcome.output.starts_with("znhost: ")) << words;
    EXPECT_EQ(outcome.output.find('\n'), outcome.output.size() - 1) << words;
  }
}

TEST_F(HostProgram, SoakFindsNoGrowth) {
  const auto [code, output] = RunHost("soak 2 --queue \"" + queue_->Name() + '"');
  EXPECT_EQ(code, 0) << output;
  for (const char* line : {"rounds: 2\n", "\nGDI objects: ", "\nwindows: ", "\nhandles: ",
                           "\nheap blocks: ", "\ncompanion loads of a round: "}) {
    EXPECT_THAT(output, ::testing::HasSubstr(line));
  }
}

TEST_F(HostProgram, OpeningIsTimedAndLoadsTheCompanionOnceForAPage) {
  const auto [code, output] = RunHost("open 1 --queue \"" + queue_->Name() + '"');
  EXPECT_EQ(code, 0) << output;
  EXPECT_TRUE(output.starts_with("open: ")) << output;
  EXPECT_THAT(output, ::testing::HasSubstr("\ncompanion loads of a page: 1.000 times, "));
}

}  // namespace
}  // namespace zn::test
