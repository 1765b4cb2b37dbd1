#include "favorites/favorite_name.h"

#include <algorithm>

#include "platform/device_name.h"
#include "platform/double_byte.h"

namespace zn {
namespace {

constexpr std::string_view kForbidden = "\\/:*?\"<>|";

bool IsControl(char c) noexcept {
  constexpr unsigned char kFirstPrintable = 0x20;
  constexpr unsigned char kDelete = 0x7F;
  const auto code = static_cast<unsigned char>(c);
  return code < kFirstPrintable || code == kDelete;
}

// The full-width blank of the code page; empty when it has none.
std::string_view WideBlank(std::uint32_t codePage) noexcept {
  switch (codePage) {
    case 932:
      return "\x81\x40";
    case 936:
    case 949:
      return "\xA1\xA1";
    case 950:
      return "\xA1\x40";
    default:
      return {};
  }
}

// Whether every character can stand in a file's name, and one of them is no blank.
bool IsUsable(std::string_view name, std::uint32_t codePage) noexcept {
  bool isBlank = true;
  while (!name.empty()) {
    const std::size_t size = IsLeadByte(name.front(), codePage) ? 2 : 1;
    if (size > name.size()) {
      return false;
    }
    if (size == 1 &&
        (IsControl(name.front()) || kForbidden.find(name.front()) != kForbidden.npos)) {
      return false;
    }
    const std::string_view character = name.substr(0, size);
    isBlank = isBlank && (character == " " || character == WideBlank(codePage));
    name.remove_prefix(size);
  }
  return !isBlank;
}

}  // namespace

FavoriteNameFault CheckFavoriteName(std::string_view name, std::span<const std::string> reserved,
                                    std::uint32_t codePage) noexcept {
  if (name.size() > kMaxFavoriteName || !IsUsable(name, codePage) || IsDeviceName(name)) {
    return FavoriteNameFault::Unusable;
  }
  return std::ranges::find(reserved, name) != reserved.end() ? FavoriteNameFault::Reserved
                                                             : FavoriteNameFault::None;
}

}  // namespace zn
