#include "tools/shown_text.h"

#include <cstdio>

namespace zn::inspect {

std::string EscapeControls(std::string_view text) {
  constexpr unsigned char kFirstPrintable = 0x20;
  constexpr unsigned char kDelete = 0x7F;
  std::string shown;
  for (const char character : text) {
    const auto code = static_cast<unsigned char>(character);
    if (code >= kFirstPrintable && code != kDelete) {
      shown += character;
    } else if (character == '\r' || character == '\n' || character == '\t') {
      shown.append({'\\', character == '\r' ? 'r' : character == '\n' ? 'n' : 't'});
    } else {
      char escape[5];
      std::snprintf(escape, sizeof escape, "\\x%02X", code);
      shown += escape;
    }
  }
  return shown;
}

std::string PasswordNote(std::string_view password) {
  return password.empty() ? std::string() : "(" + std::to_string(password.size()) + " bytes)";
}

}  // namespace zn::inspect
