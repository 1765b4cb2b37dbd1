#include "platform/full_devmode.h"

#include <cstdint>
#include <cstring>

namespace zn {
namespace {

// The oldest public parts end behind dmFields.
template <class DevMode>
constexpr std::size_t kLeastPublicSize = offsetof(DevMode, dmFields) + sizeof(DWORD);

template <class DevMode>
DevModeExtent Measure(const DevMode* devMode, std::size_t available) noexcept {
  if (devMode == nullptr || available < kLeastPublicSize<DevMode> ||
      devMode->dmSize < kLeastPublicSize<DevMode>) {
    return {};
  }
  const std::size_t publicSize = devMode->dmSize;
  const std::size_t fullSize = publicSize + devMode->dmDriverExtra;
  return fullSize <= available ? DevModeExtent{publicSize, fullSize} : DevModeExtent{};
}

// Offset of the core driver's part; 0 when there is no room for it.
std::size_t FindDriverPart(const DEVMODEW* devMode, const void* block) noexcept {
  const DevModeExtent extent = MeasureDevMode(devMode);
  const auto begin = reinterpret_cast<std::uintptr_t>(devMode);
  const auto blockAt = reinterpret_cast<std::uintptr_t>(block);
  const bool holdsBlock = blockAt >= begin && blockAt - begin < extent.fullSize;
  const std::size_t end = holdsBlock ? blockAt - begin : extent.fullSize;
  return end >= extent.publicSize + sizeof(DriverPrivateDevMode) ? extent.publicSize : 0;
}

}  // namespace

DevModeExtent MeasureDevMode(const DEVMODEA* devMode, std::size_t available) noexcept {
  return Measure(devMode, available);
}

DevModeExtent MeasureDevMode(const DEVMODEW* devMode) noexcept {
  return Measure(devMode, SIZE_MAX);
}

bool LoadDriverPart(const DEVMODEW* devMode, const void* block,
                    DriverPrivateDevMode& part) noexcept {
  const std::size_t offset = FindDriverPart(devMode, block);
  if (offset == 0) {
    return false;
  }
  std::memcpy(&part, reinterpret_cast<const std::byte*>(devMode) + offset, sizeof part);
  return true;
}

bool StoreDriverPart(DEVMODEW* devMode, const void* block,
                     const DriverPrivateDevMode& part) noexcept {
  const std::size_t offset = FindDriverPart(devMode, block);
  if (offset == 0) {
    return false;
  }
  std::memcpy(reinterpret_cast<std::byte*>(devMode) + offset, &part, sizeof part);
  return true;
}

}  // namespace zn
