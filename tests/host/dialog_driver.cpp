#include "tests/host/dialog_driver.h"

namespace zn::test {
namespace {

DialogDriver* g_driver = nullptr;

// A dialog that disabled its owner and can be used itself.
BOOL CALLBACK FindModal(HWND window, LPARAM found) {
  const HWND owner = ::GetWindow(window, GW_OWNER);
  if (owner != nullptr && !::IsWindowEnabled(owner) && ::IsWindowVisible(window) &&
      ::IsWindowEnabled(window)) {
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }
  return TRUE;
}

}  // namespace

DialogDriver::DialogDriver(std::function<void(HWND)> action)
    : action_(std::move(action)), timer_(::SetTimer(nullptr, 0, 10, &OnTick)) {
  g_driver = this;
}

DialogDriver::~DialogDriver() {
  ::KillTimer(nullptr, timer_);
  g_driver = nullptr;
}

void CALLBACK DialogDriver::OnTick(HWND, UINT, UINT_PTR, DWORD) {
  HWND dialog = nullptr;
  ::EnumThreadWindows(::GetCurrentThreadId(), &FindModal, reinterpret_cast<LPARAM>(&dialog));
  if (g_driver == nullptr || dialog == nullptr || dialog == g_driver->last_) {
    return;
  }
  g_driver->last_ = dialog;
  ++g_driver->dialogs_;
  g_driver->action_(dialog);
}

}  // namespace zn::test
