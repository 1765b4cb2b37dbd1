#include "session/stored_settings.h"

#include <cstring>

#include "platform/full_devmode.h"
#include "platform/trace.h"

namespace zn {
namespace {

constexpr const char* kSource = "session\\session";
constexpr const char* kFunction = "CSession::HidePrinterSetting";

// The block stands at the end of the full DEVMODE. `currentSize` is the full size that the driver
// tells; a DEVMODE of another size was stored by another version and ends where it says itself.
bool CopyBlock(const DEVMODEA* devMode, std::size_t available, std::size_t currentSize,
               CDevMode& block) noexcept {
  const DevModeExtent extent = MeasureDevMode(devMode, available);
  for (const std::size_t fullSize : {currentSize, extent.fullSize}) {
    if (fullSize > extent.fullSize || fullSize < extent.publicSize + kDevModeSize) {
      continue;
    }
    CDevMode stored;
    std::memcpy(&stored, reinterpret_cast<const std::byte*>(devMode) + (fullSize - kDevModeSize),
                sizeof stored);
    if (stored.IsCurrent()) {
      block = stored;
      return true;
    }
  }
  return false;
}

template <class Info>
bool CopyBlock(const Info& info, std::size_t currentSize, CDevMode& block) noexcept {
  return CopyBlock(info->pDevMode, info.BytesFrom(info->pDevMode), currentSize, block);
}

}  // namespace

bool ReadStoredBlock(HANDLE printer, const PrinterInfo2& info, CDevMode& block) noexcept {
  if (!info) {
    return false;
  }
  const LONG size =
      ::DocumentPropertiesA(nullptr, printer, info->pPrinterName, nullptr, nullptr, 0);
  if (size <= 0) {
    return false;
  }
  const auto currentSize = static_cast<std::size_t>(size);
  {
    const PrinterInfo9 user(printer);
    if (!user) {
      ZN_TRACE_TEXT(kSource, kFunction, "%s() PRINTER_INFO_9 get error\n", kFunction);
      return false;
    }
    if (user->pDevMode != nullptr) {
      ZN_TRACE_TEXT(kSource, kFunction, "Pi9 is Not NULL");
      return CopyBlock(user, currentSize, block);
    }
  }
  ZN_TRACE_TEXT(kSource, kFunction, "Pi9 is NULL Get Pi8\n");
  const PrinterInfo8 global(printer);
  if (!global) {
    ZN_TRACE_TEXT(kSource, kFunction, "%s() PRINTER_INFO_8 get error\n", kFunction);
    return false;
  }
  return CopyBlock(global, currentSize, block);
}

}  // namespace zn
