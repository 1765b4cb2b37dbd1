// The companion's own instance, for its dialogs and texts.
#pragma once

#include <windows.h>

#include <string>

namespace zn::companion {

[[nodiscard]] std::string LoadText(UINT id);

// Runs a modal dialog of this module; `procedure` finds `parameter` in WM_INITDIALOG's lParam.
// Answers the dialog's result; 0 when it could not be shown.
int RunDialog(int templateId, HWND owner, DLGPROC procedure, void* parameter) noexcept;

// The procedure of a dialog whose object is the parameter of RunDialog.
template <class Dialog>
INT_PTR CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_INITDIALOG) {
    ::SetWindowLongPtrA(window, DWLP_USER, lParam);
  }
  auto* const dialog = reinterpret_cast<Dialog*>(::GetWindowLongPtrA(window, DWLP_USER));
  try {
    if (dialog != nullptr && message == WM_INITDIALOG) {
      dialog->OnInitDialog(window);
      return TRUE;
    }
    return dialog != nullptr && message == WM_COMMAND
               ? dialog->OnCommand(LOWORD(wParam), HIWORD(wParam))
               : FALSE;
  } catch (...) {
    return FALSE;
  }
}

// Runs a modal dialog on its object, which has OnInitDialog(window) and OnCommand(control,
// notification).
template <class Dialog>
int RunDialog(int templateId, HWND owner, Dialog& dialog) noexcept {
  return RunDialog(templateId, owner, &DialogProcedure<Dialog>, &dialog);
}

[[nodiscard]] std::string ControlText(HWND dialog, int control);

}  // namespace zn::companion
