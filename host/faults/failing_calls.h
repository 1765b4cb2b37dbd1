// How the system's functions fail: one row per function that the plug-in imports.
#pragma once

#include <windows.h>

#include <cstdint>

namespace zn::host {

// The first arguments of a call as they came.
struct CallArguments {
  std::uint64_t values[4];
};

// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): in the order in which rows are read
struct FailingCall {
  const char* function;
  std::int64_t result = 0;  // what it returns when it fails
  DWORD error = ERROR_NOT_ENOUGH_MEMORY;
  // What failing comes with and what it returns then; null: nothing but `result`.
  std::int64_t (*fail)(const CallArguments& arguments) = nullptr;
  // One piece of code calls it for many callers: a call site is told by these, too.
  bool byCallers = false;
};

// Null for a function that cannot fail: it has no way to tell, or a failure of it alone would be
// the injector's own, as of one that gives a resource back. Throws HostError for one that nobody
// has thought of.
[[nodiscard]] const FailingCall* FindFailingCall(const char* function);

}  // namespace zn::host
