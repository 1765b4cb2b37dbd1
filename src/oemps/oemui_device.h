// The plug-in's page in the printer properties.
#pragma once

#include <windows.h>

namespace zn {

// Dialog procedure of the page: its button opens the authentication manager of the second
// companion module for the printer that CommonUIProp recorded.
INT_PTR CALLBACK DevicePropPageProc(HWND hDlg, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace zn
