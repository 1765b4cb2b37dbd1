// The settings block that the spooler stores for the printer.
#pragma once

#include <windows.h>

#include "devmode/devmode.h"
#include "platform/spooler.h"

namespace zn {

// Copies the block of the user's default DEVMODE, or of the printer's global default when the user
// has none. False, and `block` as it was, when there is no DEVMODE or it cannot be read, when its
// own sizes do not fit the memory it came in, or when it carries no block of ours.
bool ReadStoredBlock(HANDLE printer, const PrinterInfo2& info, CDevMode& block) noexcept;

}  // namespace zn
