// Tooltips of a page's controls: one window for each page that has an illustration.
#pragma once

#include <windows.h>

#include <string>

namespace zn {

// Makes the window, once. It belongs to the sheet and goes with it.
void MakeTips(HWND page);

// What the control shows while the mouse rests on it; an empty text shows nothing. Lists are given
// as themselves, also extended ones. Nothing happens on a page without tips.
void SetTip(HWND page, HWND control, const std::string& text);

}  // namespace zn
