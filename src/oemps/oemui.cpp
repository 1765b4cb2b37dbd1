#include "oemps/oemui.h"

namespace zn {
HRESULT hrOEMPropertyPage(DWORD, OEMCUIPPARAM*) {
  return E_NOTIMPL;
}
HRESULT hrOEMDocumentPropertySheets(PROPSHEETUI_INFO*, LPARAM, IPrintOemDriverUI*) {
  return E_NOTIMPL;
}
HRESULT hrOEMDevicePropertySheets(PROPSHEETUI_INFO*, LPARAM) {
  return E_NOTIMPL;
}
}  // namespace zn
