// The module's instance and the module that resources come from.
#pragma once

#include <windows.h>

#include <string>

namespace zn {

// The plug-in's own instance; set once at process attach (tests set the DLL they loaded).
void SetModuleInstance(HINSTANCE instance) noexcept;
[[nodiscard]] HINSTANCE ModuleInstance() noexcept;

// The satellite resource module; null: the plug-in's own resources (Japanese) are used.
void SetSatelliteInstance(HINSTANCE satellite) noexcept;
[[nodiscard]] HINSTANCE SatelliteInstance() noexcept;

// Where every dialog, string and image is loaded from: the satellite when there is one.
[[nodiscard]] HINSTANCE ResourceInstance() noexcept;

// A text of the string table in the ANSI code page, at most `maxBytes` long; empty when missing.
[[nodiscard]] std::string LoadResourceString(UINT id, int maxBytes = 1023);

}  // namespace zn
