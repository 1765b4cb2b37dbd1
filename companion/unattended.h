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

// Shows a dialog, or answers in its place. Run() shows it and tells the button; Apply(assignments)
// does what an "ok" stands for and tells whether it could.
template <class Dialog>
[[nodiscard]] int AnswerOrRun(Dialog&& dialog) {
  const UnattendedAnswer answer = ReadUnattendedAnswer();
  if (!answer.active) {
    return dialog.Run();
  }
  return answer.button == IDOK && dialog.Apply(answer.assignments) ? IDOK : IDCANCEL;
}

}  // namespace zn::companion
