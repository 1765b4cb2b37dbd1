// Answers the dialogs that code under test or measurement opens, while it waits for them.
#pragma once

#include <windows.h>

#include <functional>

namespace zn::host {

// Runs `open`. While a dialog of this thread other than `sheet` is up and takes input, hands the
// topmost one to `onDialog` every `tick` milliseconds; that works on it and closes it, now or
// later. A dialog whose handling throws is cancelled. One run at a time.
void DriveDialogs(HWND sheet, UINT tick, const std::function<void(HWND dialog)>& onDialog,
                  const std::function<void()>& open);

// Closes a dialog so that nothing changes: a question is answered with no.
void RefuseDialog(HWND dialog);

}  // namespace zn::host
