#include "platform/format_text.h"

namespace zn {

std::string FillIn(std::string_view format, std::initializer_list<std::string_view> texts) {
  std::string filled;
  auto text = texts.begin();
  for (std::size_t at = 0; at < format.size(); ++at) {
    const std::string_view two = format.substr(at, 2);
    if (text != texts.end() && (two == "%s" || two == "%d")) {
      filled.append(*text++);
      ++at;
    } else {
      filled += format[at];
    }
  }
  return filled;
}

}  // namespace zn
