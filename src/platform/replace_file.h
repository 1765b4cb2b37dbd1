// Replacing a file in one step, so that there is always a whole one.
#pragma once

namespace zn {

// Whether a file can be made there. It is empty then, whatever it was before.
[[nodiscard]] bool CanCreateFile(const char* path) noexcept;

// `from` takes the place of `to`, or gets its name when there is none. False, and both as they
// were, when that is impossible.
bool ReplaceInOneStep(const char* from, const char* to) noexcept;

}  // namespace zn
