// The code page of the system's single-byte texts.
#pragma once

#include <cstdint>

namespace zn {

inline constexpr std::uint32_t kJapaneseCodePage = 932;

// The ANSI code page; the Japanese one where there is no Windows.
[[nodiscard]] std::uint32_t SystemCodePage() noexcept;

}  // namespace zn
