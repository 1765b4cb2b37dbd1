// Texts of the host's string table, in the ANSI code page.
#pragma once

#include <windows.h>

#include <string>

#include "host/base/host_ids.h"

namespace zn::host {

// The text `id`, whose one "%s" is replaced.
[[nodiscard]] std::string FormatText(UINT id, const std::string& argument);

}  // namespace zn::host
