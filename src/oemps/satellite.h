// The satellite resource module: the plug-in's dialogs and texts in another language, loaded while
// an IOemUI object lives.
#pragma once

namespace zn {

// Counts a new IOemUI object; the first loads the satellite when there is one. Also makes the
// resource instance known to the dialog code. Any thread may create and release objects.
void AddLiveObject() noexcept;

// Takes an object off the count; the last one frees the satellite.
void RemoveLiveObject() noexcept;

}  // namespace zn
