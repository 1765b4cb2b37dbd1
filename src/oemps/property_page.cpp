#include "oemps/property_page.h"

#include "oemps/device_sheet.h"
#include "oemps/document_sheet.h"
#include "oemps/sheet_record.h"
#include "platform/boundary.h"

namespace zn {

HRESULT hrOEMPropertyPage(DWORD dwMode, OEMCUIPPARAM* pOemCUIPParam) {
  if (pOemCUIPParam == nullptr || !IsWhole(pOemCUIPParam->cbSize, sizeof *pOemCUIPParam)) {
    return FailWith(ERROR_INVALID_PARAMETER);
  }
  switch (dwMode) {
    case OEMCUIP_DOCPROP:
      return PrepareDocument(*pOemCUIPParam);
    case OEMCUIP_PRNPROP:
      return RecordPrinter(*pOemCUIPParam);
    default:
      return FailWith(ERROR_INVALID_PARAMETER);
  }
}

}  // namespace zn
