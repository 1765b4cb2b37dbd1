// Answers the modal dialogs that open while the object lives: each gets the action once, on the
// timer that its own message loop serves.
#pragma once

#include <windows.h>

#include <functional>

namespace zn::test {

class DialogDriver {
 public:
  // `action` must end the dialog.
  explicit DialogDriver(std::function<void(HWND dialog)> action);
  ~DialogDriver();
  DialogDriver(const DialogDriver&) = delete;
  DialogDriver& operator=(const DialogDriver&) = delete;

  [[nodiscard]] int DialogCount() const { return dialogs_; }

 private:
  static void CALLBACK OnTick(HWND, UINT, UINT_PTR, DWORD);

  std::function<void(HWND)> action_;
  HWND last_ = nullptr;
  int dialogs_ = 0;
  UINT_PTR timer_;
};

}  // namespace zn::test
