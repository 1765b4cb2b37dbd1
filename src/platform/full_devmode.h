// The parts of a full DEVMODE in memory: the public part (dmSize bytes), behind it the core
// driver's private part, and the plug-in's settings block at the end. Sizes found in the memory
// are checked before anything is read by them.
#pragma once

#include <windows.h>

#include <cstddef>

#include "platform/driver_private_devmode.h"

namespace zn {

// Offsets from the start of the DEVMODE; both 0 when the memory holds none.
struct DevModeExtent {
  std::size_t publicSize = 0;
  std::size_t fullSize = 0;  // publicSize and the private bytes
};

// `available` is how many bytes of memory there are; a DEVMODE that claims more has no extent.
[[nodiscard]] DevModeExtent MeasureDevMode(const DEVMODEA* devMode, std::size_t available) noexcept;
// The core driver's own, which is as large as it says; null has no extent.
[[nodiscard]] DevModeExtent MeasureDevMode(const DEVMODEW* devMode) noexcept;

// The core driver's part of `devMode`. False when there is no room for it in front of the settings
// block at `block` (which may also lie elsewhere); then nothing is read or written.
bool LoadDriverPart(const DEVMODEW* devMode, const void* block,
                    DriverPrivateDevMode& part) noexcept;
bool StoreDriverPart(DEVMODEW* devMode, const void* block,
                     const DriverPrivateDevMode& part) noexcept;

}  // namespace zn
