// Behind CommonUIProp: one record of the core driver for either sheet.
#pragma once

#include "platform/driver_interfaces.h"

namespace zn {

// Document mode: prepares the sheet's data and hides the core driver's own document options.
// Printer mode: records the printer for the device page. E_FAIL with last error 87 without a
// record, for a shorter one, for another mode, and when a sheet's data have no heap; all else in
// the record may be missing. May throw std::bad_alloc.
HRESULT hrOEMPropertyPage(DWORD dwMode, OEMCUIPPARAM* pOemCUIPParam);

}  // namespace zn
