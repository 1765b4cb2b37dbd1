// znhost as its user calls it.
#include <cstdio>

#include "host/files.h"
#include "tests/host/host_fixture.h"

namespace zn::test {
namespace {

struct Outcome {
  int code;
  std::string output;  // both streams
};

Outcome RunHost(const std::string& words) {
  const std::string command = "\"\"" + host::ProgramFolder() + "znhost.exe\" " + words + " 2>&1\"";
  FILE* pipe = ::_popen(command.c_str(), "rb");
  if (pipe == nullptr) {
    return {-1, {}};
  }
  std::string output;
  char part[256];
  while (const std::size_t count = std::fread(part, 1, sizeof part, pipe)) {
    output.append(part, count);
  }
  return {::_pclose(pipe), output};
}

TEST(HostProgramTest, BadWordsGetOneLineAndExitCodeTwo) {
  for (const char* words : {"", "dance", "soak 0", "soak five", "prefs --shots", "prefs --devmod x",
                            "event delete", "install --queue"}) {
    const Outcome outcome = RunHost(words);
    EXPECT_EQ(outcome.code, 2) << words;
    EXPECT_TRUE(outcome.output.starts_with("znhost: ")) << words;
    EXPECT_EQ(std::count(outcome.output.begin(), outcome.output.end(), '\n'), 1)
        << words << ": " << outcome.output;
  }
}

TEST(HostProgramTest, PrinterEventIsHandedOn) {
  const Outcome outcome = RunHost("event delete \"ZN No Such Printer\"");
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.output, "event delete ZN No Such Printer: 0x80004001\r\n");  // E_NOTIMPL
}

TEST(HostProgramTest, UnknownQueueFailsInOneLine) {
  const Outcome outcome = RunHost("prefs --queue \"no such queue\"");
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.output, "znhost: no such queue: no such queue\r\n");
}

}  // namespace
}  // namespace zn::test
