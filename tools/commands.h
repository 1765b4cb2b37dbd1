// The operations of zninspect. Each takes the words behind its name, puts what it finds out, prints
// one line to stderr for what fails, and answers the exit code.
#pragma once

#include <span>
#include <string_view>

#include "tools/output.h"

namespace zn::inspect {

inline constexpr int kOk = 0;
inline constexpr int kFailed = 1;    // an input is bad, an operation fails, two inputs differ
inline constexpr int kUsage = 2;     // bad words; for diff all trouble
inline constexpr int kMisused = -1;  // as kUsage, but the caller is still to print the usage

using Arguments = std::span<const char* const>;

struct Command {
  std::string_view name;
  std::string_view usage;
  std::string_view purpose;
  int (*run)(Arguments arguments, const Output& out);
};

int RunDevMode(Arguments arguments, const Output& out);
int RunDiff(Arguments arguments, const Output& out);
int RunFavorite(Arguments arguments, const Output& out);
int RunKeyword(Arguments arguments, const Output& out);
int RunPpd(Arguments arguments, const Output& out);
int RunProfile(Arguments arguments, const Output& out);
int RunRecord(Arguments arguments, const Output& out);
int RunRestriction(Arguments arguments, const Output& out);
int RunTables(Arguments arguments, const Output& out);

}  // namespace zn::inspect
