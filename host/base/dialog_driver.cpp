#include "host/base/dialog_driver.h"

#include <string_view>

namespace zn::host {
namespace {

// What the timer works on, on the sheet's thread.
struct Drive {
  HWND sheet;
  const std::function<void(HWND)>& onDialog;
};
const Drive* g_drive = nullptr;

BOOL CALLBACK FindDialog(HWND window, LPARAM found) {
  char className[8] = "";
  ::GetClassNameA(window, className, sizeof className);
  if (window != g_drive->sheet && std::string_view(className) == "#32770" &&
      ::IsWindowVisible(window) && ::IsWindowEnabled(window)) {
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }
  return TRUE;
}

void CALLBACK OnTick(HWND, UINT, UINT_PTR, DWORD) {
  HWND dialog = nullptr;
  ::EnumThreadWindows(::GetCurrentThreadId(), &FindDialog, reinterpret_cast<LPARAM>(&dialog));
  if (dialog == nullptr) {
    return;
  }
  try {
    g_drive->onDialog(dialog);
  } catch (...) {
    ::EndDialog(dialog, IDCANCEL);
  }
}

class Timer {
 public:
  explicit Timer(UINT tick) : timer_(::SetTimer(nullptr, 0, tick, &OnTick)) {}
  ~Timer() {
    ::KillTimer(nullptr, timer_);
    g_drive = nullptr;
  }
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

 private:
  UINT_PTR timer_;
};

}  // namespace

void DriveDialogs(HWND sheet, UINT tick, const std::function<void(HWND)>& onDialog,
                  const std::function<void()>& open) {
  const Drive drive{sheet, onDialog};
  g_drive = &drive;
  const Timer timer(tick);
  open();
}

void RefuseDialog(HWND dialog) {
  for (const int button : {IDNO, IDCANCEL}) {
    if (::GetDlgItem(dialog, button) != nullptr) {
      ::PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
      return;
    }
  }
  ::PostMessageA(dialog, WM_CLOSE, 0, 0);
}

}  // namespace zn::host
