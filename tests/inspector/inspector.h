// Runs the real zninspect, which stands beside the test program, and looks at what it says.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/temp_folder.h"

namespace zn::test {

struct Outcome {
  int exitCode = -1;
  std::string output;  // line ends are \n
  std::string error;

  // Usage and failure are told in exactly one line, with nothing on stdout.
  [[nodiscard]] bool IsOneLineError() const;
};

// The words must not hold quotes or end in a backslash.
[[nodiscard]] Outcome RunInspector(const std::vector<std::string>& words);

// The same for what must succeed: its output.
[[nodiscard]] std::string Inspect(const std::vector<std::string>& words);

// The lines of a text, without their ends.
[[nodiscard]] std::vector<std::string> Lines(std::string_view text);

}  // namespace zn::test
