// The modal dialogs that the pages open: a dialog object that lives as long as its window.
#pragma once

#include <windows.h>

#include "pages/accessible_texts.h"
#include "platform/boundary.h"
#include "platform/resources.h"
#include "session/plugin_context.h"
#include "session/sheet_context.h"

namespace zn {

// What every dialog object has; its window is there from WM_INITDIALOG on.
class ModalDialog {
 protected:
  [[nodiscard]] HWND Control(int id) const noexcept { return ::GetDlgItem(window_, id); }

  HWND window_ = nullptr;

 private:
  template <class Dialog>
  friend INT_PTR CALLBACK ModalDialogProc(HWND, UINT, WPARAM, LPARAM);
};

// Hands a dialog's messages to its object: WM_COMMAND with the notification code, the control id
// and the control window; WM_NOTIFY when there is an OnNotify. Closing the window is pressing
// Cancel (IDCANCEL). No exception leaves it.
template <class Dialog>
INT_PTR CALLBACK ModalDialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return GuardedOr(INT_PTR{0}, [&]() -> INT_PTR {
    auto* dialog = reinterpret_cast<Dialog*>(::GetWindowLongPtrA(window, DWLP_USER));
    if (message == WM_INITDIALOG && dialog == nullptr) {
      // Once: any process can send a second one, with whatever pointer.
      dialog = reinterpret_cast<Dialog*>(lParam);
      ::SetWindowLongPtrA(window, DWLP_USER, lParam);
      if (::GetWindowLongPtrA(window, DWLP_USER) != lParam) {
        ::EndDialog(window, IDCANCEL);  // its buttons would do nothing
        return 0;
      }
      static_cast<ModalDialog&>(*dialog).window_ = window;
      const INT_PTR result = dialog->OnInitDialog();
      AccessibleTexts().NameExtendedLists(window);
      return result;
    }
    if (dialog == nullptr) {
      return 0;
    }
    switch (message) {
      case WM_COMMAND:
        return dialog->OnCommand(HIWORD(wParam), LOWORD(wParam), reinterpret_cast<HWND>(lParam));
      case WM_NOTIFY:
        if constexpr (requires { dialog->OnNotify(nullptr); }) {
          return dialog->OnNotify(reinterpret_cast<NMHDR*>(lParam));
        }
        return 0;
      case WM_DESTROY:
        AccessibleTexts().Forget(window);
        return 0;
      case WM_CLOSE:
        return dialog->OnCommand(BN_CLICKED, IDCANCEL, nullptr);
      default:
        return 0;
    }
  });
}

// Shows the template over the active window, or over the sheet when none is active, until the
// dialog is closed; the result is what it was ended with, or -1 when it could not be shown.
template <class Dialog>
INT_PTR RunModalDialog(UINT templateId, Dialog& dialog) {
  HWND owner = ::GetActiveWindow();
  if (const SheetContext* sheet = ThePlugInContext().sheet; owner == nullptr && sheet != nullptr) {
    owner = ::GetAncestor(sheet->activePage, GA_ROOT);
  }
  return ::DialogBoxParamA(ResourceInstance(), MAKEINTRESOURCEA(templateId), owner,
                           &ModalDialogProc<Dialog>, reinterpret_cast<LPARAM>(&dialog));
}

}  // namespace zn
