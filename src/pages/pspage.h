// What the pages and dialogs share: filling and reading lists and radio groups from keyword
// options, labels from the companion module, messages, and the warning images.
//
// Selections are read from the option selection table of the sheet: `useDefault` picks the default
// instead of the current one, and its low 16 bits are the option index.
#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "bridge/companion.h"
#include "platform/handles.h"
#include "session/sheet_context.h"

namespace zn {

// ZNPunch lists positions and hole counts together, whatever the session reports.
inline constexpr std::uint32_t kPunchEntries = 16;

[[nodiscard]] std::uint32_t OptionIndex(const SheetContext& sheet, KeywordId id, bool useDefault);
// How many options the session has for a keyword; 16 for ZNPunch.
[[nodiscard]] std::uint32_t OptionCount(SheetContext& sheet, KeywordId id);

// Sets the label and, with `colon`, the text of IDS_LABEL_COLON behind it. An empty label leaves
// the template's text.
void SetLabelText(HWND label, const std::string& text, bool colon);

// The list that belongs to a label is the window behind it: the templates keep this order. Null
// when the label is missing.
[[nodiscard]] HWND ListOfLabel(HWND page, int labelId) noexcept;

// Fills the extended list behind the label with the companion's option names and selects the
// option. With `images`, entry i shows images[i]; entries beyond the array show none. False when a
// control is missing; a list that cannot be filled keeps its entries.
bool InitComboBox(HWND page, SheetContext& sheet, KeywordId id, int labelId, bool useDefault,
                  std::span<const int> images = {});

// Gives the radio buttons the companion's option names and checks the selected one.
bool InitRadioGroup(HWND page, SheetContext& sheet, KeywordId id, int groupLabelId,
                    std::span<const int> radioIds, bool useDefault);

// Writes the selected index of the list behind the label into the current selection; a list
// without a selection leaves it. False when there is none.
bool StoreComboSelection(HWND page, SheetContext& sheet, KeywordId id, int labelId);

// The selected index of a list; nothing when none is selected or the list is missing.
[[nodiscard]] std::optional<std::uint32_t> SelectedIndex(HWND list) noexcept;

// Checks the radio of `index` (any other value checks none) and clears the others. A keyboard
// focus on one of them moves to the checked one.
void CheckRadio(HWND page, std::span<const int> radioIds, std::uint32_t index) noexcept;
// Index of the checked radio, looked for from the last to the first; -1 when none is checked.
[[nodiscard]] int CheckedRadio(HWND page, std::span<const int> radioIds) noexcept;

// The text of a control, at most `maxBytes` long.
[[nodiscard]] std::string ControlText(HWND control, int maxBytes);

// A message box with texts of the string table; captionId 0 shows no caption.
int ShowMessage(HWND owner, UINT textId, UINT captionId, UINT style);
int ShowMessage(HWND owner, const std::string& text, UINT captionId, UINT style);

// The warning icons of the module: made at the first use and kept while the module is loaded.
struct WarningImages {
  HICON icon16, icon24, icon32;  // shared icons
  UniqueImageList m_hImgWarningList_16;
};
const WarningImages& LoadWarningImage();

// The images of one of the module's bitmaps; those of staples and holes end with the warning icon.
// Made at the first use and kept while the module is loaded. Null for any other bitmap.
[[nodiscard]] HIMAGELIST SharedImages(UINT bitmapId);

// Gives extended lists their images; a list gets the height that it needs for them.
struct ListImages {
  int listId;
  UINT bitmapId;
};
void AttachImages(HWND page, std::span<const ListImages> lists);

// Gives every option whose flag is 0 the last image of the list. 1 when there was one; 0 also for
// a missing or empty list.
int SetWarningIndex(std::span<const std::uint32_t> availableFlags, std::span<int> imageIndices,
                    HIMAGELIST imageList) noexcept;

}  // namespace zn
