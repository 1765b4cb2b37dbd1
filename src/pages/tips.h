// Tooltips of a page's controls; screen readers tell them as the controls' descriptions.
#pragma once

#include <windows.h>

#include <string>

#include "pages/accessible_texts.h"

namespace zn {

class PageTips {
 public:
  explicit PageTips(HWND page) noexcept : page_(page) {}

  // What the control shows while the mouse rests on it; an empty text shows nothing. Lists are
  // given as themselves, also extended ones. The page's window of the tips is made for the first
  // text; it belongs to the sheet and goes with it.
  void Set(HWND control, const std::string& text);

 private:
  HWND page_;
  AccessibleTexts accessible_;
};

// When the page goes.
void ForgetTips(HWND page) noexcept;

}  // namespace zn
