// The core driver's private part of the DEVMODE, which stands right behind the public part
// (dmSize bytes) and before the plug-in's settings block. Shared with the driver host.
#pragma once

#include <cstdint>

namespace zn {

struct DriverPrivateDevMode {
  // Bits of `flags`.
  static constexpr std::uint32_t kSendErrorHandler = 0x2;
  static constexpr std::uint32_t kMirrorPrint = 0x4;

  std::uint32_t flags;
  std::uint32_t noBorder;              // 1: N-up pages are drawn without a border
  std::uint32_t psOutputOption;        // id 257
  std::uint32_t trueTypeFontDownload;  // id 258
  std::uint32_t customPaperWidth;      // id 262, thousandths of a millimetre
  std::uint32_t customPaperHeight;     // id 263, thousandths of a millimetre
  std::uint32_t customPaperDirection;  // id 264
  std::uint16_t psLanguageLevel;       // id 259
  std::uint16_t reserved;
};

static_assert(sizeof(DriverPrivateDevMode) == 32);

// Commit copies ids 257, 258, 262 to 264 and 259 only when dmDriverVersion is above this value.
inline constexpr std::uint16_t kDriverVersionWithoutPrivateValues = 0x0501;

}  // namespace zn
