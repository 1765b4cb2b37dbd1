#include "host/base/host_text.h"

#include <array>

namespace zn::host {

std::string FormatText(UINT id, const std::string& argument) {
  std::array<char, 256> format{};
  const int length = ::LoadStringA(::GetModuleHandleA(nullptr), id, format.data(),
                                   static_cast<int>(format.size()));
  std::string text(format.data(), static_cast<std::size_t>(length));
  if (const std::size_t place = text.find("%s"); place != std::string::npos) {
    text.replace(place, 2, argument);
  }
  return text;
}

}  // namespace zn::host
