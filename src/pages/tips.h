// Tooltips of a page's controls; screen readers tell them as the controls' descriptions.
#pragma once

#include <windows.h>

#include <string>

#include "pages/accessible_texts.h"

namespace zn {

// Makes the window that shows them, when the mouse first comes: they would double the messages of
// their controls while the page opens. It belongs to the sheet and goes with it. False when it is
// there already or cannot be made.
bool MakeTips(HWND page) noexcept;

class PageTips {
 public:
  explicit PageTips(HWND page) noexcept;

  // What the control shows while the mouse rests on it, once there is a window for it; an empty
  // text shows nothing. Lists are given as themselves, also extended ones.
  void Set(HWND control, const std::string& text);

 private:
  HWND page_;
  HWND tips_;
  AccessibleTexts accessible_;
};

// When the page goes.
void ForgetTips(HWND page) noexcept;

}  // namespace zn
