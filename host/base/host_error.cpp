#include "host/base/host_error.h"

#include <windows.h>

namespace zn::host {

void ThrowSystemError(const std::string& what) {
  throw HostError(what + " (error " + std::to_string(::GetLastError()) + ")");
}

}  // namespace zn::host
