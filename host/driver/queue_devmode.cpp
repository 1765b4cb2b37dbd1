#include "host/driver/queue_devmode.h"

#include <algorithm>
#include <cstring>

namespace zn::host {
namespace {

constexpr std::uint32_t kSelectionsSignature = 0x48534E5A;  // "ZNSH" in memory
constexpr WORD kDriverVersion = 0x0600;
constexpr std::size_t kFullSize = sizeof(DEVMODEW) + sizeof(PrivatePart);

}  // namespace

QueueDevMode::QueueDevMode(std::wstring_view device) : bytes_(kFullSize) {
  DEVMODEW& devmode = Public();
  device.copy(devmode.dmDeviceName, std::min<std::size_t>(device.size(), CCHDEVICENAME - 1));
  devmode.dmSpecVersion = DM_SPECVERSION;
  devmode.dmDriverVersion = kDriverVersion;
  devmode.dmSize = sizeof(DEVMODEW);
  devmode.dmDriverExtra = sizeof(PrivatePart);
  Private().items.signature = kSelectionsSignature;
}

std::optional<QueueDevMode> QueueDevMode::FromBytes(std::string_view bytes) {
  QueueDevMode full(L"");
  if (bytes.size() != kFullSize) {
    return std::nullopt;
  }
  std::memcpy(full.bytes_.data(), bytes.data(), kFullSize);
  const DEVMODEW& devmode = full.Public();
  const bool ours = devmode.dmSize == sizeof(DEVMODEW) &&
                    devmode.dmDriverExtra == sizeof(PrivatePart) &&
                    devmode.dmDriverVersion == kDriverVersion &&
                    full.Private().items.signature == kSelectionsSignature;
  return ours ? std::optional(std::move(full)) : std::nullopt;
}

std::optional<QueueDevMode> QueueDevMode::FromPublic(const DEVMODEW* stored,
                                                     std::size_t available) {
  if (stored == nullptr || available < kFullSize) {
    return std::nullopt;
  }
  return FromBytes({reinterpret_cast<const char*>(stored), kFullSize});
}

}  // namespace zn::host
