// The illustrations of the basic page and of the tray and output page: what the job will look like,
// drawn and in words, the control's text.
#pragma once

#include <windows.h>

#include "session/sheet_context.h"

namespace zn {

enum class IllustrationKind : std::uint8_t {
  Layout,  // the sheet of paper with the pages on it, the number of copies
  Output,  // staples, holes, order and offset of the printed sheets
};

// Bytes of an illustration's words; longer ones are set again each time.
inline constexpr int kMaxSentence = 1023;

// Shows the current selections: to be called after every change and when the page is shown, once
// its lists show the selections. Reads nothing but the sheet and the lists.
void ShowIllustration(HWND page, const SheetContext& sheet, IllustrationKind kind);

// False when there is nothing to draw into.
bool DrawIllustration(const DRAWITEMSTRUCT& item, const SheetContext& sheet, IllustrationKind kind);

}  // namespace zn
