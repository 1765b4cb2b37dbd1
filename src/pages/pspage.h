// What pages and dialogs do with single controls: labels, lists, radio buttons, texts, messages.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "session/sheet_context.h"

namespace zn {

// How many options the session has for a keyword; 16 for ZNPunch, whose list shows positions and
// hole counts together, whatever the session reports.
[[nodiscard]] std::uint32_t OptionCount(SheetContext& sheet, KeywordId id);

// The controls of a page or dialog in their order, by one question to the system. Without the last
// ones when memory runs out.
[[nodiscard]] std::vector<HWND> ControlsOf(HWND dialog) noexcept;

// Sets the label and, with `colon`, the text of IDS_LABEL_COLON behind it. An empty label leaves
// the template's text.
void SetLabelText(HWND label, const std::string& text, bool colon);

// Replaces the entries of a list. Those of an extended one get images: one per entry, or none at
// all. The entries' item data count up from `firstData`, if it is given.
void FillList(HWND list, bool isExtended, std::span<std::string> names, std::span<const int> images,
              std::optional<LPARAM> firstData = {});
// Adds entries behind the others.
void AddToList(HWND list, bool isExtended, std::span<std::string> names,
               std::span<const int> images, std::optional<LPARAM> firstData);

// The text of a list's entry; empty when there is no such entry.
[[nodiscard]] std::string EntryText(HWND list, std::uint32_t entry, bool isExtended);

// The selected index of a list; nothing when none is selected or the list is missing.
[[nodiscard]] std::optional<std::uint32_t> SelectedIndex(HWND list) noexcept;
// The item data of the selected entry; nothing as above.
[[nodiscard]] std::optional<std::uint32_t> SelectedItemData(HWND list) noexcept;
// Selects an entry; none when there is no such entry.
void SelectEntry(HWND list, std::size_t entry) noexcept;
// Selects the first entry with this item data; none: the selection stays.
void SelectItemData(HWND list, std::uint32_t data) noexcept;

// Checks the radio of `index` (any other value checks none) and clears the others, up to the first
// that is missing. A keyboard focus on one of them moves to the checked one.
void CheckRadio(HWND page, std::span<const int> radioIds, std::uint32_t index) noexcept;
// Index of the checked radio, looked for from the last to the first; -1 when none is checked.
[[nodiscard]] int CheckedRadio(HWND page, std::span<const int> radioIds) noexcept;

// The text of a control, at most `maxBytes` long.
[[nodiscard]] std::string ControlText(HWND control, int maxBytes);

// A message box with texts of the string table; captionId 0 shows no caption.
int ShowMessage(HWND owner, UINT textId, UINT captionId, UINT style);
int ShowMessage(HWND owner, const std::string& text, UINT captionId, UINT style);

}  // namespace zn
