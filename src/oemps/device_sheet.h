// The plug-in's page in the printer properties. What is declared here may throw only
// std::bad_alloc.
#pragma once

#include "platform/driver_interfaces.h"

namespace zn {

// The printer mode of hrOEMPropertyPage.
HRESULT RecordPrinter(OEMCUIPPARAM& param);

// Answers as hrOEMDocumentPropertySheets does.
HRESULT hrOEMDevicePropertySheets(PROPSHEETUI_INFO* pPSUIInfo, LPARAM lParam);

// Dialog procedure of the page: its button opens the authentication manager of the second
// companion module for the printer that CommonUIProp recorded. No exception leaves it.
INT_PTR CALLBACK DevicePropPageProc(HWND hDlg, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace zn
