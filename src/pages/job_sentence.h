// What the illustrations show, in words: for the mouse that rests on them and for who cannot see
// them. Words of options are those that the page's lists show, so that nothing is loaded for them.
#pragma once

#include <windows.h>

#include <string>

#include "pages/job_picture.h"
#include "session/sheet_context.h"

namespace zn {

// The name of the paper that comes out; empty when the list has none.
[[nodiscard]] std::string OutputPaperName(HWND page, const SheetContext& sheet);

[[nodiscard]] std::string LayoutSentence(HWND page, const SheetContext& sheet,
                                         const JobPicture& picture);
// Of an option that the installed device lacks it says so.
[[nodiscard]] std::string OutputSentence(HWND page, const SheetContext& sheet);

}  // namespace zn
