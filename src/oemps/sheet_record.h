// What the document sheet and the device sheet of the plug-in do alike with the core driver's
// record of a sheet.
#pragma once

#include "platform/driver_interfaces.h"

namespace zn {

// Whether a record is whole by its own size member. 0 tells no size.
[[nodiscard]] constexpr bool IsWhole(DWORD cbSize, std::size_t size) noexcept {
  return cbSize == 0 || cbSize >= size;
}

// The sheet record is there, whole, and of the version that this plug-in knows.
[[nodiscard]] bool IsUsable(const PROPSHEETUI_INFO* info) noexcept;

// PROPSHEETUI_REASON_GET_INFO_HEADER and _SET_RESULT; `lParam` as the core driver passes it.
void AnswerHeader(PROPSHEETUI_INFO& info, LPARAM lParam) noexcept;
void AnswerSetResult(PROPSHEETUI_INFO& info, LPARAM lParam) noexcept;

// Adds one dialog page of the resource module; `lParam` reaches the page at WM_INITDIALOG. The
// page's handle, 0 on failure.
LONG_PTR AddDialogPage(const PROPSHEETUI_INFO& info, int templateId, DLGPROC procedure,
                       LPARAM lParam) noexcept;

}  // namespace zn
