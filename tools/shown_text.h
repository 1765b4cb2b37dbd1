// Texts of files that anybody can have written, as the inspector prints them.
#pragma once

#include <string>
#include <string_view>

namespace zn::inspect {

// One line without raw control characters: those become \r, \n, \t or \xNN, a backslash of its own
// stays; all other bytes pass through.
[[nodiscard]] std::string EscapeControls(std::string_view text);

// What is told of a password: its length.
[[nodiscard]] std::string PasswordNote(std::string_view password);

}  // namespace zn::inspect
