// The property sheets of the plug-in, as the driver callback object forwards them. They may throw
// only std::bad_alloc; the callers are the boundary.
#pragma once

#include "platform/driver_interfaces.h"

namespace zn {

// Behind CommonUIProp. Document mode: prepares the sheet's data and hides the core driver's own
// document options. Printer mode: records the printer for the device page. E_FAIL with last error
// 87 without a record, for a shorter one, for another mode, and when a sheet's data have no heap;
// all else in the record may be missing.
HRESULT hrOEMPropertyPage(DWORD dwMode, OEMCUIPPARAM* pOemCUIPParam);

// Both: S_OK, or E_FAIL with last error 87 for a sheet record that is missing, too short or of
// another version. `Result` of the record is the answer to its `Reason`.
HRESULT hrOEMDocumentPropertySheets(PROPSHEETUI_INFO* pPSUIInfo, LPARAM lParam,
                                    IPrintOemDriverUI* pOEMHelp);
HRESULT hrOEMDevicePropertySheets(PROPSHEETUI_INFO* pPSUIInfo, LPARAM lParam);

}  // namespace zn
