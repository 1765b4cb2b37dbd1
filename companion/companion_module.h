// The companion's own instance, for its dialogs and texts.
#pragma once

#include <windows.h>

#include <string>

namespace zn::companion {

[[nodiscard]] HINSTANCE Instance() noexcept;
[[nodiscard]] std::string LoadText(UINT id);

// Runs a modal dialog of this module; `procedure` finds `parameter` in WM_INITDIALOG's lParam.
// Answers the dialog's result; 0 when it could not be shown.
int RunDialog(int templateId, HWND owner, DLGPROC procedure, void* parameter) noexcept;

// Where a dialog keeps its object.
template <class Object>
[[nodiscard]] Object* DialogObject(HWND dialog, UINT message, LPARAM lParam) noexcept {
  if (message == WM_INITDIALOG) {
    ::SetWindowLongPtrA(dialog, DWLP_USER, lParam);
  }
  return reinterpret_cast<Object*>(::GetWindowLongPtrA(dialog, DWLP_USER));
}

[[nodiscard]] std::string ControlText(HWND dialog, int control);

}  // namespace zn::companion
