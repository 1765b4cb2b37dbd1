// Texts of files that anybody can have written, as the inspector prints them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "ddb/tag_table.h"

namespace zn::inspect {

// A text of the ANSI code page (the Japanese one where there is no Windows) as UTF-8; what is no
// character there is replaced.
[[nodiscard]] std::string Utf8(std::string_view ansi);

// A word of the command line, which is UTF-8 where there is no Windows.
[[nodiscard]] std::string Utf8OfWord(std::string_view word);

enum class ControlForm : std::uint8_t {
  InText,  // \r, \n, \t, else \xNN; a backslash of its own stays
  InJson   // \u00NN
};

// UTF-8 without raw control characters, C1 (U+0080 to U+009F) and DEL among them.
[[nodiscard]] std::string EscapeControls(std::string_view text, ControlForm form);

// Texts of which nothing is told but their length: the record's scrambled ones, and the password of
// the user information that a job uses.
[[nodiscard]] bool IsPassword(const ddb::Tag& tag);
[[nodiscard]] std::string PasswordNote(std::string_view password);

}  // namespace zn::inspect
