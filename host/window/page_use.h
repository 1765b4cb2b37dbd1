// Uses the controls of a page as its user would, whatever they are.
#pragma once

#include <windows.h>

#include <map>
#include <string>

namespace zn::host {

// Chooses an entry from the opened list.
void ChooseEntry(HWND list, int entry);

// Presses every push button that the page shows.
void PressButtons(HWND page);

// Changes every other control that can be used at its turn: lists get their next entry, check boxes
// and radios a click, edits another text. A tree's editors are used at every item.
void ChangeControls(HWND page);

// What a page shows, in UTF-8: by control id what is chosen, checked, written or told by a picture,
// or by label the value of a tree's item. Tells also what is disabled or hidden.
[[nodiscard]] std::map<std::string, std::string> ReadControls(HWND page);

}  // namespace zn::host
