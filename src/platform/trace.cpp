#include "platform/trace.h"

#include <cstdio>

#ifdef _WIN32
#include <windows.h>
#endif

namespace zn::trace {
namespace {

constexpr int kMaxText = 1024;

void DebuggerOutput([[maybe_unused]] const char* source, [[maybe_unused]] int line,
                    [[maybe_unused]] const char* function, [[maybe_unused]] const char* text) {
#ifdef _WIN32
  char located[kMaxText + 128];
  std::snprintf(located, sizeof located, "%s(%d): %s", source, line, text);
  ::OutputDebugStringA(located);
#endif
}

Sink g_sink = &DebuggerOutput;

}  // namespace

void SetSink(Sink sink) noexcept {
  g_sink = sink != nullptr ? sink : &DebuggerOutput;
}

void Write(const char* source, int line, const char* function, const char* format, ...) noexcept {
  char text[kMaxText];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  g_sink(source, line, function, text);
}

}  // namespace zn::trace
