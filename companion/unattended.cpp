#include "companion/unattended.h"

#include <array>
#include <string_view>

namespace zn::companion {

UnattendedAnswer ReadUnattendedAnswer() {
  std::array<char, 1024> variable{};
  const DWORD length = ::GetEnvironmentVariableA("ZN_COMPANION_ANSWER", variable.data(),
                                                 static_cast<DWORD>(variable.size()));
  UnattendedAnswer answer;
  if (length == 0 || length >= variable.size()) {
    return answer;
  }
  answer.active = true;
  std::string_view rest(variable.data(), length);
  for (bool first = true; !rest.empty(); first = false) {
    const std::size_t end = rest.find(';');
    const std::string_view word = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    if (first) {
      answer.button = word == "ok" ? IDOK : IDCANCEL;
    } else if (const std::size_t equal = word.find('='); equal != std::string_view::npos) {
      answer.assignments.push_back(
          {std::string(word.substr(0, equal)), std::string(word.substr(equal + 1))});
    }
  }
  return answer;
}

}  // namespace zn::companion
