// Pictures of windows as PNG files.
#pragma once

#include <windows.h>

#include <string>

namespace zn::host {

// Writes what the screen shows of the window. Throws HostError.
void SaveScreenshot(HWND window, const std::string& path);

}  // namespace zn::host
