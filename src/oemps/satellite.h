// The satellite resource module: the plug-in's dialogs and texts in another language, loaded while
// an IOemUI object lives.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace zn {

// Counts a new IOemUI object; the first loads the satellite when there is one. Also makes the
// resource instance known to the dialog code. User-interface threads only, not protected.
void AddLiveObject() noexcept;

// Takes an object off the count; the last one frees the satellite.
void RemoveLiveObject() noexcept;

// The satellites to try for a module: its path without the extension, the three-letter language
// abbreviation, ".dll"; in the order user language, its primary language, system language, its
// primary language, language of the active code page. None is named twice.
[[nodiscard]] std::vector<std::string> SatelliteCandidates(const std::string& modulePath);

}  // namespace zn
