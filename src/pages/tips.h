// Tooltips of a page's controls; screen readers tell them as the controls' descriptions.
#pragma once

#include <windows.h>

#include <string>

namespace zn {

// What the control shows while the mouse rests on it; an empty text shows nothing. Lists are given
// as themselves, also extended ones. The page's window of the tips is made for the first text; it
// belongs to the sheet and goes with it.
void SetTip(HWND page, HWND control, const std::string& text);

// When the page goes.
void ForgetTips(HWND page) noexcept;

}  // namespace zn
