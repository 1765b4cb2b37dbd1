#include "platform/resources.h"

#include <algorithm>
#include <array>

namespace zn {
namespace {

HINSTANCE g_module = nullptr;
HINSTANCE g_satellite = nullptr;

}  // namespace

void SetModuleInstance(HINSTANCE instance) noexcept {
  g_module = instance;
}
HINSTANCE ModuleInstance() noexcept {
  return g_module;
}

void SetSatelliteInstance(HINSTANCE satellite) noexcept {
  g_satellite = satellite;
}
HINSTANCE SatelliteInstance() noexcept {
  return g_satellite;
}

HINSTANCE ResourceInstance() noexcept {
  return g_satellite != nullptr ? g_satellite : g_module;
}

std::string LoadResourceString(UINT id, int maxBytes) {
  std::array<char, 1024> text{};
  const int room = std::clamp(maxBytes + 1, 1, static_cast<int>(text.size()));
  const int length = ::LoadStringA(ResourceInstance(), id, text.data(), room);
  return {text.data(), static_cast<std::size_t>(std::max(length, 0))};
}

}  // namespace zn
