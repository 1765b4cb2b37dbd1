// The companion module's print option setting dialog on the settings of a sheet.
#pragma once

#include <windows.h>

#include "session/sheet_context.h"

namespace zn {

// Hands the sheet's current settings to the dialog, with the default settings as reference. Closed
// with OK, what the dialog changed becomes the current selections and job values, and its profile
// becomes the job's device profile. False, and the sheet as it was, when the dialog was cancelled
// or the companion module is missing.
bool RunPrintOptionSetting(SheetContext& sheet, HWND owner);

}  // namespace zn
