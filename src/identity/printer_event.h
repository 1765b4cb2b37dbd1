// What the plug-in does when a printer of the user goes.
#pragma once

namespace zn {

// Removes the user's data of the printer with this name. A name that does not convert to the code
// page of the locale "JPN" deletes nothing.
void CleanUpDeletedPrinter(const wchar_t* printerName);

}  // namespace zn
