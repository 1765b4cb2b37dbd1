// The item table of the device profile: key, expected value and place of every item.
#pragma once

#include <array>
#include <string_view>

namespace zn::profile {

// All flag items share the beginning of their keys.
inline constexpr std::string_view kFlagStem = "HasOption_";

struct FlagItem {
  std::string_view suffix;  // of the key, behind kFlagStem
  std::string_view expected;
};

// By item index. The queries address items by index, so the order is fixed; there is no fifth
// numbered tray, its place is the bypass tray's.
inline constexpr std::array<FlagItem, 26> kFlagItems{{
    {"InputSlot", "Tray1"},
    {"InputSlot", "Tray2"},
    {"InputSlot", "Tray3"},
    {"InputSlot", "Tray4"},
    {"InputSlot", "Manual"},
    {"InputSlot", "Tray6"},
    {"InputSlot", "Tray7"},
    {"InputSlot", "Tray8"},
    {"CFinisher", "true"},
    {"DFinisher", "true"},
    {"AFinisher", "true"},
    {"SBFinisher", "true"},
    {"CHFinisher", "true"},
    {"ZNStaple", "true"},
    {"Booklet", "true"},
    {"ZNPunch", "true"},
    {"ZNFold", "true"},
    {"ZNTrimmer", "true"},
    {"ZNSquareFold", "true"},
    {"OutputTray_StackerTray", "true"},
    {"OutputTray_StackerTopTray", "true"},
    {"AStackerTray", "true"},
    {"SBStackerTray", "true"},
    {"CHStackerTray", "true"},
    {"InterTray", "true"},
    {"SideTray", "true"},
}};

// Value items whose keys are a stem and a number from 1 on.
struct ValueItems {
  std::string_view stem;
  int firstItem;
  int count;
};

inline constexpr ValueItems kPaperNames{"CustomPaperName", 26, 20};
// Items 46 to 55 are reserved.
inline constexpr ValueItems kWatermarks{"Watermark", 56, 100};
inline constexpr ValueItems kTrappingProfiles{"TrappingProfile", 156, 100};

inline constexpr std::array kValueItems{kPaperNames, kWatermarks, kTrappingProfiles};

}  // namespace zn::profile
