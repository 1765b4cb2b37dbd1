// The one trace facility. Every trace names its source, line and function; the shipping build
// compiles all of it away, arguments included (they are type-checked, never evaluated).
#pragma once

#include <cstdarg>

namespace zn::trace {

// Receives one formatted trace text. `source` is the name of the source ("intrface",
// "oemps\\devmode"), `function` the qualified name ("CSession::DRVGetDWord").
using Sink = void (*)(const char* source, int line, const char* function, const char* text);

// Replaces the receiver (the debugger's output on Windows, nothing elsewhere); null restores it.
void SetSink(Sink sink) noexcept;

void Write(const char* source, int line, const char* function, const char* format, ...) noexcept
    __attribute__((format(printf, 4, 5)));

}  // namespace zn::trace

// ZN_TRACE_TEXT("intrface", "IOemUI::AddRef", " %s():AddRef entry.\n", "IOemUI::AddRef").
// Passwords are never passed to it.
#ifdef ZN_TRACE
#define ZN_TRACE_TEXT(source, function, ...) \
  ::zn::trace::Write((source), __LINE__, (function), __VA_ARGS__)
#else
#define ZN_TRACE_TEXT(source, function, ...)                           \
  do {                                                                 \
    if constexpr (false) {                                             \
      ::zn::trace::Write((source), __LINE__, (function), __VA_ARGS__); \
    }                                                                  \
  } while (false)
#endif
