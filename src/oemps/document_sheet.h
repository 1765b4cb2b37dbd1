// The document property sheet (printing preferences): one sheet at a time per process. What is
// declared here may throw only std::bad_alloc.
#pragma once

#include "platform/driver_interfaces.h"

namespace zn {

// The document mode of hrOEMPropertyPage.
HRESULT PrepareDocument(OEMCUIPPARAM& param);

// S_OK, or E_FAIL with last error 87 for a sheet record that is missing, too short or of another
// version. `Result` of the record is the answer to its `Reason`.
HRESULT hrOEMDocumentPropertySheets(PROPSHEETUI_INFO* pPSUIInfo, LPARAM lParam,
                                    IPrintOemDriverUI* pOEMHelp);

}  // namespace zn
