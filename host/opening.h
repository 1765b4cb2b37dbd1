// The opening of the preferences, up to the moment when the first page stands on the screen.
#pragma once

#include "host/driver/document_sheet.h"

namespace zn::host {

// Waits until the first page of a sheet is drawn.
void ShowFirstPage(PropertySheet& sheet);

// Opens a sheet; the milliseconds from DocumentPropertySheets to its first page.
[[nodiscard]] double TimeOpening(DocumentSheet& sheet);

// Cancels it. Throws HostError when the driver found a fault.
void CloseFaultless(DocumentSheet& sheet);

}  // namespace zn::host
