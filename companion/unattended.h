// Answers for dialogs that open while nobody watches: the environment variable
// ZN_COMPANION_ANSWER holds "cancel", or "ok" and assignments, "ok;CL_CMODE=0;profile=ZN5050B".
// What the names mean is each dialog's own.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace zn::companion {

struct Assignment {
  std::string name;
  std::string value;
};

struct UnattendedAnswer {
  bool active = false;  // false: the user answers
  int button = IDCANCEL;
  std::vector<Assignment> assignments;
};

[[nodiscard]] UnattendedAnswer ReadUnattendedAnswer();

}  // namespace zn::companion
