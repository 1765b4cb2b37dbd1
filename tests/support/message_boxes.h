// The message boxes that a module shows while the object lives: recorded, and answered.
#pragma once

#include <windows.h>

#include <deque>
#include <string>
#include <vector>

#include "iat_patch.h"

namespace zn::test {

class MessageBoxes {
 public:
  struct Box {
    std::string text, caption;
    UINT type;
  };

  // `answer` is that of the boxes beyond `answers`; 0: the box fails.
  explicit MessageBoxes(HMODULE module, int answer = IDOK) : box_(module, "MessageBoxA", &Record) {
    shown.clear();
    answers.clear();
    lastAnswer_ = answer;
  }

  static inline std::vector<Box> shown;
  static inline std::deque<int> answers;

 private:
  static int WINAPI Record(HWND, LPCSTR text, LPCSTR caption, UINT type) {
    shown.push_back({text, caption != nullptr ? caption : "(null)", type});
    if (answers.empty()) {
      return lastAnswer_;
    }
    const int answer = answers.front();
    answers.pop_front();
    return answer;
  }

  static inline int lastAnswer_;
  ImportPatch box_;
};

}  // namespace zn::test
