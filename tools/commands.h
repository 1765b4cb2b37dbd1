// The operations of zninspect. Each takes the words behind its name, prints to stdout, prints one
// line to stderr on failure, and answers the exit code.
#pragma once

#include <span>
#include <string_view>

namespace zn::inspect {

inline constexpr int kOk = 0;
inline constexpr int kFailed = 1;  // the operation itself reports failure
inline constexpr int kUsage = 2;   // bad words, or input that cannot be read

using Arguments = std::span<const char* const>;

struct Command {
  std::string_view name;
  std::string_view usage;
  int (*run)(Arguments arguments);
};

// Prints "zninspect: MESSAGE" as one line; answers `code`.
int Fail(int code, std::string_view message);

int RunCodes(Arguments arguments);
int RunDevMode(Arguments arguments);
int RunFavorite(Arguments arguments);
int RunKeyword(Arguments arguments);
int RunProfile(Arguments arguments);
int RunRecord(Arguments arguments);
int RunRestriction(Arguments arguments);
int RunTables(Arguments arguments);

}  // namespace zn::inspect
