// The sheet's job values: its own copy and the core driver's block, written together so that
// commit cannot put an older value back.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "session/sheet_context.h"

namespace zn {

// The core driver's block; null when there is none or its header is not ours.
[[nodiscard]] inline CDevMode* SettingsBlock(const SheetContext& sheet) noexcept {
  return sheet.pDevMode != nullptr && sheet.pDevMode->IsCurrent() ? sheet.pDevMode : nullptr;
}

inline void WriteJobValue(SheetContext& sheet, std::size_t offset, std::uint32_t value) noexcept {
  sheet.jobValues.SetDWord(offset, value);
  if (CDevMode* const block = SettingsBlock(sheet)) {
    block->SetDWord(offset, value);
  }
}

[[nodiscard]] inline JobNameMode JobNameModeOf(std::uint32_t value) noexcept {
  constexpr auto kEntered = static_cast<std::uint32_t>(JobNameMode::Entered);
  return value == kEntered ? JobNameMode::Entered : JobNameMode::Automatic;
}

template <std::size_t kSize>
[[nodiscard]] std::string_view TextOf(const char (&text)[kSize]) noexcept {
  return {text, ::strnlen(text, kSize)};
}

// Cuts to the array and terminates.
template <std::size_t kSize>
void CopyText(char (&to)[kSize], std::string_view from) noexcept {
  const std::size_t length = std::min(from.size(), kSize - 1);
  std::memcpy(to, from.data(), length);
  to[length] = '\0';
}

}  // namespace zn
