// What crosses between the plug-in and the companion UI module, which another compiler builds:
// the six exported functions, the records they exchange and the sizes of their buffers. All texts
// are in the ANSI code page and end with a zero. The exports are found by the decorated names in
// the string table (IDS_FUNC_...); both modules use the platform's default calling convention.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>

namespace ddb {
class CPrintOption;
}

namespace zn::companion_abi {

// Sizes of the buffers handed over, terminator included.
inline constexpr std::size_t kLabelSize = 64;        // GetPrintOptionString
inline constexpr std::size_t kOptionTextSize = 256;  // GetPrintOptionStringList
inline constexpr std::size_t kPathSize = 260;        // every text of the two dialogs

// One text as the companion's C++ library lays it out. Only the module that assigned a text can
// free it, so the plug-in copies texts out and leaves the memory alone.
struct StringRecord {
  static constexpr std::uint64_t kInlineCapacity = 15;

  union {
    char inlineText[kInlineCapacity + 1] = {};  // while capacity is at most kInlineCapacity
    const char* text;                           // otherwise
  };
  std::uint64_t size = 0;                    // bytes, terminator not counted
  std::uint64_t capacity = kInlineCapacity;  // what an empty text has
};
static_assert(sizeof(StringRecord) == 32 && offsetof(StringRecord, size) == 16 &&
              offsetof(StringRecord, capacity) == 24);

// One row of the summary tree.
struct SummaryItem {
  std::int32_t level;              // 0 heading, 1 item, 2 and 3 nested items
  std::uint32_t id;                // below 338 a keyword id, from 338 on a heading of the companion
  std::uint32_t reserved[2] = {};  // the companion may use them
};
static_assert(sizeof(SummaryItem) == 16);

// While its summary dialog is open, the companion sends this message to the page. lParam points
// to kSummaryItemCount SummaryItems, which the page fills; unused rows stay zero and come last.
inline constexpr UINT kSendTreeItemsMessage = WM_USER + 100;
inline constexpr std::size_t kSummaryItemCount = 50;

// One favourite in the summary dialog; valid for the time of the call.
struct FavoriteSummaryEntry {
  const char* name;  // without the change mark
  const char* comment;
  ddb::CPrintOption* settings;
};

// The functions. An int result of 0 is failure or cancel.
// The print option setting dialog. Edits `working`; `reference` holds the default settings. Four
// texts of kPathSize bytes: the record's name, the folder of the favourites, the folder of the
// driver (in), and the device profile (in and out).
using PrintOptionSettingFunction = int(ddb::CPrintOption* working, ddb::CPrintOption* reference,
                                       char* recordName, char* favoriteFolder, char* driverFolder,
                                       char* profile, HWND owner);

// The favourites summary dialog.
//   favorites       FavoriteSummaryEntry[*count], in the order of the page's list
//   selection       in: index of the selected favourite, -1 for the standard settings;
//                   out: the row that the user left selected
//   current         the settings of the sheet
//   defaults        the standard settings
//   name            kPathSize bytes, in: the selected favourite's name; out: as `selection`
//   favoriteFolder  kPathSize bytes, in
//   deleted         std::uint8_t[*count], all 0; the module sets 1 where the user deleted the row
//   count           in: number of favourites; out: how many rows were set to 1
//   driverFolder    kPathSize bytes, in
//   profile         kPathSize bytes, in: the device profile
//   owner           the property sheet, owner of the dialog
//   page            receives kSendTreeItemsMessage
using FavoriteSummaryFunction = int(void* favorites, int* selection, ddb::CPrintOption* current,
                                    ddb::CPrintOption* defaults, char* name, char* favoriteFolder,
                                    void* deleted, int* count, char* driverFolder, char* profile,
                                    HWND owner, HWND page);

// The names of the stored print options that end with `filter` (empty: all), at most `capacity`;
// `count` receives how many were filled. `names` holds `capacity` empty records.
using GetPrintOptionListFunction = int(StringRecord* names, const char* filter, int capacity,
                                       int* count);

// Frees what the module keeps between calls.
using DeleteMemberFunction = void();

// The label of a keyword id, or of one of the companion's own label numbers.
using GetPrintOptionStringFunction = int(int* id, char* text, unsigned long size);

// The name of the option `*index` of `id`; 0 when there is no such option.
using GetPrintOptionStringListFunction = int(int* id, char* text, unsigned long size, int* index);

}  // namespace zn::companion_abi
