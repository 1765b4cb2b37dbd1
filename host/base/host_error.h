// What ends a verb of the host: one line for the user.
#pragma once

#include <stdexcept>
#include <string>

namespace zn::host {

struct HostError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// `what` with the system's error number behind it.
[[noreturn]] void ThrowSystemError(const std::string& what);

}  // namespace zn::host
