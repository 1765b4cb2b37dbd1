#include "host/base/stopwatch.h"

#include <windows.h>

namespace zn::host {

double MillisecondsNow() noexcept {
  LARGE_INTEGER frequency;
  LARGE_INTEGER count;
  ::QueryPerformanceFrequency(&frequency);
  ::QueryPerformanceCounter(&count);
  return static_cast<double>(count.QuadPart) * 1000 / static_cast<double>(frequency.QuadPart);
}

}  // namespace zn::host
