// The current user's job owner and account data per printer, kept in the registry by the
// authentication dialog: filled into the block of every job, removed with the printer.
// May throw std::bad_alloc.
#pragma once

#include "platform/driver_interfaces.h"

#include <string>

#include "devmode/devmode.h"

namespace zn {

// Fills the block's authentication fields from the printer's management method and the user's data
// under `printerKeyName`. True when it filled them; false leaves all of them as they were.
bool OverWriteRegistryData(const PRINTER_INFO_2A& printerInfo, CDevMode& block, HANDLE printer,
                           const std::string& printerKeyName);

// The same for the merge, which goes on in either case: always true.
bool OverWriteRegistryAuthenticationInfo(CDevMode& block, const PRINTER_INFO_2A& printerInfo,
                                         HANDLE printer, const std::string& printerKeyName);

// Removes the current user's data for the printer that a deletion event names. Nothing is told
// when they, or some of them, are not there.
void PrinterEventDelete(const char* printerName);

}  // namespace zn
