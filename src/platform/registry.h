// Keys and text values below HKEY_CURRENT_USER.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "platform/handles.h"

namespace zn {

// Both are empty when the key cannot be had.
[[nodiscard]] UniqueKey OpenUserKey(const std::string& path, REGSAM access) noexcept;
[[nodiscard]] UniqueKey CreateUserKey(const std::string& path, REGSAM access) noexcept;

// The value's bytes up to a zero, of whatever type, cut to `limit` characters. Nothing for a value
// that is missing or has no bytes; the last error then says why. May throw std::bad_alloc.
[[nodiscard]] std::optional<std::string> ReadText(HKEY key, const char* value, std::size_t limit);

}  // namespace zn
