// A queue's full DEVMODE as the host's core driver keeps it: the public part, the core driver's
// private part, the selections of the printer description's features, the plug-in's block.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "devmode/devmode.h"
#include "platform/driver_private_devmode.h"

namespace zn::host {

// Behind the core driver's private values: what the items of a sheet show.
struct ItemSelections {
  static constexpr std::size_t kMaxFeatures = 512;
  static constexpr std::size_t kPublicItems = 18;  // DMPUB_ numbers 0 to 17

  std::uint32_t signature;
  std::int32_t publicItems[kPublicItems];  // by DMPUB_ number; those that no feature holds
  std::uint16_t features[kMaxFeatures];    // option index by place in the printer description
};

struct PrivatePart {
  DriverPrivateDevMode driver;
  ItemSelections items;
  CDevMode block;
};
static_assert(offsetof(PrivatePart, block) + kDevModeSize == sizeof(PrivatePart),
              "the block ends the DEVMODE");

class QueueDevMode {
 public:
  // Zeroed but for the sizes and versions; `device` is the queue's name.
  explicit QueueDevMode(std::wstring_view device);

  // Nullopt when the bytes are not a DEVMODE that this host wrote.
  [[nodiscard]] static std::optional<QueueDevMode> FromBytes(std::string_view bytes);
  [[nodiscard]] static std::optional<QueueDevMode> FromPublic(const DEVMODEW* stored,
                                                              std::size_t available);

  [[nodiscard]] DEVMODEW& Public() { return *reinterpret_cast<DEVMODEW*>(bytes_.data()); }
  [[nodiscard]] PrivatePart& Private() {
    return *reinterpret_cast<PrivatePart*>(bytes_.data() + sizeof(DEVMODEW));
  }
  [[nodiscard]] const PrivatePart& Private() const {
    return *reinterpret_cast<const PrivatePart*>(bytes_.data() + sizeof(DEVMODEW));
  }
  [[nodiscard]] std::string_view Bytes() const {
    return {reinterpret_cast<const char*>(bytes_.data()), bytes_.size()};
  }

 private:
  std::vector<std::byte> bytes_;
};

}  // namespace zn::host
