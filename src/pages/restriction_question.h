// Asks the user about forbidden combinations of finishing and paper settings, and carries out the
// answers on the option selection table.
#pragma once

#include <windows.h>

#include <functional>
#include <span>

#include "session/restriction.h"
#include "session/sheet_context.h"

namespace zn {

// Checks the current selections after the setting `group` has changed. 0: they are allowed. 1: they
// are not, and the user was told; `answer` is then IDOK (change the other setting to its default)
// or IDCANCEL (refuse the change), or 0 when no box could be shown, and `keyword` the other
// setting; it is left alone when there is none to name.
int CheckRestriction(HWND window, SheetContext& sheet, restriction::Group group, int& answer,
                     KeywordId& keyword);

// A keyword's selection before the change.
struct OldSelection {
  KeywordId id;
  std::uint32_t value;
};

// A change that a page has just made in the option selection table, and what the page does about
// the answers.
struct RestrictedChange {
  HWND window;
  restriction::Group group;
  std::span<const OldSelection> old;           // what a refusal puts back
  std::function<void()> showOld;               // shows the values that were put back
  std::function<void(KeywordId)> showDefault;  // shows a setting that went back to its default
};

// Runs the check until it allows the selections, six times at most. An answer to change the other
// setting sets it (and its weight or holes) to its default; a refusal puts the old selections back,
// and when the check and the user refuse those, too, they stand. An OK that has nothing to change
// counts as refusal. False when there was no answer; the selections then stay as they are.
bool ResolveRestrictions(SheetContext& sheet, const RestrictedChange& change);

}  // namespace zn
