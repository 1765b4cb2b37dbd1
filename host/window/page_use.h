// Uses the controls of a page as its user would, whatever they are.
#pragma once

#include <windows.h>

namespace zn::host {

// Chooses an entry from the opened list.
void ChooseEntry(HWND list, int entry);

// Presses every push button that the page shows.
void PressButtons(HWND page);

// Changes every other control that can be used at its turn: lists get their next entry, check boxes
// and radios a click, edits another text. A tree's editors are used at every item.
void ChangeControls(HWND page);

}  // namespace zn::host
