// The system's own words for an error.
#pragma once

#include <windows.h>

#include <string>

namespace zn {

// In the user's language; empty when the system has none. May throw std::bad_alloc.
[[nodiscard]] std::string SystemMessage(DWORD error);

}  // namespace zn
