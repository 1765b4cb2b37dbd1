#include "platform/device_name.h"

#include <algorithm>
#include <array>

namespace zn {
namespace {

constexpr std::array<std::string_view, 6> kDevices{"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
constexpr std::array<std::string_view, 2> kNumberedDevices{"COM", "LPT"};

constexpr char UpperCase(char c) noexcept {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool Equal(std::string_view a, std::string_view b) noexcept {
  return std::ranges::equal(a, b, {}, UpperCase);
}

}  // namespace

bool IsDeviceName(std::string_view fileName) noexcept {
  const std::string_view stem = fileName.substr(0, fileName.find('.'));
  const std::string_view name = stem.substr(0, stem.find_last_not_of(' ') + 1);
  if (name.size() == 4 && name[3] >= '0' && name[3] <= '9') {
    return std::ranges::any_of(kNumberedDevices, [&](std::string_view device) {
      return Equal(name.substr(0, 3), device);
    });
  }
  return std::ranges::any_of(kDevices,
                             [&](std::string_view device) { return Equal(name, device); });
}

}  // namespace zn
