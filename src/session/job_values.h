// The sheet's job values: its own copy, by name, and the core driver's block.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "platform/double_byte.h"
#include "session/sheet_context.h"

namespace zn {

// The core driver's block; null when there is none or its header is not ours.
[[nodiscard]] inline CDevMode* SettingsBlock(const SheetContext& sheet) noexcept {
  return sheet.pDevMode != nullptr && sheet.pDevMode->IsCurrent() ? sheet.pDevMode : nullptr;
}

// Into both, so that commit cannot put an older value back.
inline void WriteJobValue(SheetContext& sheet, std::size_t offset, std::uint32_t value) noexcept {
  sheet.jobValues.SetDWord(offset, value);
  if (CDevMode* const block = SettingsBlock(sheet)) {
    block->SetDWord(offset, value);
  }
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

enum class JobNameMode : std::uint32_t { Automatic = 0, Entered = 1 };

// Any value but that of Entered is automatic.
[[nodiscard]] inline JobNameMode JobNameModeOf(const SheetContext& sheet) noexcept {
  constexpr auto kEntered = static_cast<std::uint32_t>(JobNameMode::Entered);
  const std::uint32_t value = sheet.jobValues.GetDWord(devmode::kJobNameMode);
  return value == kEntered ? JobNameMode::Entered : JobNameMode::Automatic;
}
inline void SetJobNameMode(SheetContext& sheet, JobNameMode mode) noexcept {
  sheet.jobValues.SetDWord(devmode::kJobNameMode, static_cast<std::uint32_t>(mode));
}

inline constexpr std::size_t kMaxJobName = 255;  // bytes

// At most so long, also of a field that lacks its terminator.
[[nodiscard]] inline std::string_view JobNameOf(const SheetContext& sheet) noexcept {
  return CutText(sheet.jobValues.GetText(devmode::kJobName), kMaxJobName);
}
inline void SetJobName(SheetContext& sheet, std::string_view name) noexcept {
  sheet.jobValues.SetText(devmode::kJobName, name);
}

// The name of the device profile, bare or as a path: at most 259 bytes. The driver's name while the
// job names none.
[[nodiscard]] inline std::string_view DeviceProfileOf(const SheetContext& sheet) noexcept {
  constexpr std::size_t kMaxProfile = 259;
  const std::string_view named = sheet.jobValues.GetText(devmode::kDeviceProfile);
  return named.empty() ? TextOf(sheet.driverName) : CutText(named, kMaxProfile);
}
// The driver's name does not become the job's own where the job's block names none.
inline void SetDeviceProfile(SheetContext& sheet, std::string_view name) noexcept {
  const CDevMode* const block = SettingsBlock(sheet);
  const bool isOwn = name != TextOf(sheet.driverName) ||
                     (block != nullptr && !block->GetText(devmode::kDeviceProfile).empty());
  sheet.jobValues.SetText(devmode::kDeviceProfile, isOwn ? name : std::string_view());
}

}  // namespace zn
