// Scrambling of the two stored passwords: not secrecy, only so that they cannot be read in passing.
// The result is printable, has the password's length and is the same on every machine.
#pragma once

#include <span>

#include "ddb/tag_table.h"

namespace ddb {

// The tags whose texts are passwords.
[[nodiscard]] constexpr bool IsPassword(const Tag& tag) {
  return tag.name == "SP_FMPAS" || tag.name == "USR_SCPS";
}

// Both work in place up to the terminator or the end of the field.
void ScramblePassword(std::span<char> field);
void UnscramblePassword(std::span<char> field);

}  // namespace ddb
