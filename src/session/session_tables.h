// Which keyword and private ids the session treats in a special way, and where in the settings
// block their values stand.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "devmode/devmode.h"
#include "keywords/keyword_ids.h"
#include "platform/driver_private_devmode.h"

namespace zn {

// Lists that the device supplies: the core driver's item always holds 0 for them, the real choice
// is kept in the settings block.
struct DeviceList {
  KeywordId id;
  std::uint16_t offset;  // 0: not kept
  std::uint8_t first;    // what the block holds for selection 0
};

// clang-format off
inline constexpr auto kDeviceLists = std::to_array<DeviceList>({
    {KW_USERCURVEIMAGE,               9216, 0},
    {KW_DENSITYADJUSTMENTIMAGE,       9220, 0},
    {KW_USERCURVECHARACTER,           9224, 0},
    {KW_DENSITYADJUSTMENTCHARACTER,   9228, 0},
    {KW_RGBOUTPUTPROFILE,             9240, 0},
    {KW_FORMNO,                       9244, 0},  // the selection is the number itself
    {KW_FORMNOFORREGISTER,               0, 0},
    {KW_WMSELECTION,                  9248, 0},  // the selection is the number itself
    {KW_IMAGECALIBRATION,             9252, 0},
    {KW_CHARACTERCALIBRATION,         9256, 0},
    {KW_PROFILEFORPRINTER,            9260, 0},
    {KW_PROFILERGBFORIMAGE,           9264, 0},
    {KW_PROFILERGBFORCHAR,            9268, 0},
    {KW_PROFILERGBFORIMAGECHAR,       9272, 0},
    {KW_PROFILECMYKFORIMAGE,          9276, 0},
    {KW_PROFILECMYKFORCHAR,           9280, 0},
    {KW_PROFILECMYKFORIMAGECHAR,      9284, 0},
    {KW_AUTOTRAPPINGSETUPFILE,        9288, 0},
    {KW_AUTOTRAPPINGPROCESS,          9292, 0},
    {KW_IMPOSITIONTEMPLATEFILE,       9296, 0},
    {KW_PROFILEFORPDFPREFLIGHT,       9300, 0},
    {KW_PAGINATIONTEMPLATEFILE,       9304, 0},
    {KW_IMPOSITIONPAGINATIONTEMPFILE, 9308, 0},
    {KW_SPOTCOLORCORRECTIONPROFILE,   9312, 0},
    {KW_REPLACECOLOR,                 9316, 0},
    {KW_CLEARPROCESSREGISTERDPATTERN, 9320, 1},  // the pattern's number
    {KW_PERFECTBINDER,                9324, 0},
});
// clang-format on

// Custom colour choices: code `firstCode` is custom number 1. Number 0 means none.
struct CustomColor {
  KeywordId id;
  std::size_t offset;
  std::uint32_t firstCode;
};
inline constexpr std::uint32_t kCustomColorCount = 100;
inline constexpr auto kCustomColors = std::to_array<CustomColor>({
    {KW_CMYKSIMULATION, devmode::kCustomCmyk, 20},
    {KW_RGBCOLORCORRECT, devmode::kCustomRgb, 11},
});

// Flags that say whether the custom paper size is chosen.
struct CustomSizeFlag {
  KeywordId id;
  std::size_t offset;
};
inline constexpr std::uint32_t kCustomSizeCode = 20;
inline constexpr auto kCustomSizeFlags = std::to_array<CustomSizeFlag>({
    {KW_BOOKLETPAPERSIZE, devmode::kBookletSizeFlag},
    {KW_REPEATPRINTPAPERSIZE, devmode::kRepeatSizeFlag},
    {KW_IMPOSITIONOUTPUTPAPERSIZE, devmode::kImpositionSizeFlag},
});

// What the core driver keeps in its private part of the DEVMODE.
struct DriverFlag {
  KeywordId id;
  std::uint32_t bit;
};
inline constexpr auto kDriverFlags = std::to_array<DriverFlag>({
    {KW_PSSENDERRORHANDLER, DriverPrivateDevMode::kSendErrorHandler},
    {KW_MIRRORPRINT, DriverPrivateDevMode::kMirrorPrint},
});
struct DriverValue {
  KeywordId id;
  std::uint32_t DriverPrivateDevMode::*member;
};
inline constexpr auto kDriverValues = std::to_array<DriverValue>({
    {KW_PSOUTPUTOPTION, &DriverPrivateDevMode::psOutputOption},
    {KW_TRUETYPEFONTDOWNLOAD, &DriverPrivateDevMode::trueTypeFontDownload},
    {KW_CUSTOMPAPERWIDTH, &DriverPrivateDevMode::customPaperWidth},
    {KW_CUSTOMPAPERHEIGHT, &DriverPrivateDevMode::customPaperHeight},
    {KW_CUSTOMPAPERDIRECTION, &DriverPrivateDevMode::customPaperDirection},
});
// A 0 in the core driver's part means that it was never set.
inline constexpr auto kNeverZero =
    std::to_array<KeywordId>({KW_CUSTOMPAPERWIDTH, KW_CUSTOMPAPERHEIGHT, KW_PSLANGUAGELEVEL});

namespace private_id {
inline constexpr std::uint32_t kSaveTiff = 4301;
inline constexpr std::uint32_t kNotReadable = 5824;  // from here on reads answer 0xFFFFFFFF
}  // namespace private_id

struct IdRange {
  std::uint32_t first, last;
  [[nodiscard]] constexpr bool Holds(std::uint32_t id) const noexcept {
    return id >= first && id <= last;
  }
};

// Fields that can be set but not read.
inline constexpr auto kWriteOnlyIds = std::to_array<IdRange>({{4306, 4311}, {4353, 4355}});

// Setting these answers 0 although the field is written; their callers ignore the answer.
inline constexpr auto kZeroAnswerIds = std::to_array<IdRange>({{4312, 4316}, {4354, 4355}});

// What commit writes back of the sheet's numbers; 4304 and 4305 are written by their setter only.
inline constexpr auto kCommittedIds = std::to_array<IdRange>(
    {{4301, 4303}, {4306, 4316}, {4318, 4338}, {4340, 4344}, {4348, 4348}, {4351, 4355}});

template <std::size_t kCount>
[[nodiscard]] constexpr bool Holds(const std::array<IdRange, kCount>& ranges,
                                   std::uint32_t id) noexcept {
  for (const IdRange& range : ranges) {
    if (range.Holds(id)) {
      return true;
    }
  }
  return false;
}

}  // namespace zn
