#include "platform/registry.h"

#include <algorithm>

namespace zn {

UniqueKey OpenUserKey(const std::string& path, REGSAM access) noexcept {
  HKEY key = nullptr;
  return UniqueKey(
      ::RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, access, &key) == ERROR_SUCCESS ? key
                                                                                         : nullptr);
}

UniqueKey CreateUserKey(const std::string& path, REGSAM access) noexcept {
  HKEY key = nullptr;
  const LSTATUS status = ::RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr,
                                           REG_OPTION_NON_VOLATILE, access, nullptr, &key, nullptr);
  return UniqueKey(status == ERROR_SUCCESS ? key : nullptr);
}

std::optional<std::string> ReadText(HKEY key, const char* value, std::size_t limit) {
  DWORD size = 0;
  LSTATUS status = ::RegQueryValueExA(key, value, nullptr, nullptr, nullptr, &size);
  if (status != ERROR_SUCCESS || size == 0) {
    ::SetLastError(static_cast<DWORD>(status));
    return std::nullopt;
  }
  std::string text(size, '\0');
  status =
      ::RegQueryValueExA(key, value, nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &size);
  if (status != ERROR_SUCCESS) {  // or the value has grown meanwhile
    ::SetLastError(static_cast<DWORD>(status));
    return std::nullopt;
  }
  text.resize(std::min({text.find('\0'), text.size(), static_cast<std::size_t>(size), limit}));
  return text;
}

}  // namespace zn
