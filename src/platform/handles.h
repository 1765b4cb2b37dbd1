// Owners for the Windows resources of this system: one alias per kind, released on every path.
#pragma once

#include <windows.h>
// These must come behind windows.h.
#include <commctrl.h>
#include <prsht.h>
#include <winspool.h>

#include "platform/unique.h"

namespace zn {

using UniqueKey = Unique<HKEY, &::RegCloseKey>;
using UniquePrinter = Unique<HANDLE, &::ClosePrinter>;
using UniqueModule = Unique<HMODULE, &::FreeLibrary>;
using UniqueBitmap = Unique<HBITMAP, &::DeleteObject>;
using UniqueIcon = Unique<HICON, &::DestroyIcon>;
using UniqueFont = Unique<HFONT, &::DeleteObject>;
using UniqueMemoryDC = Unique<HDC, &::DeleteDC>;
using UniqueImageList = Unique<HIMAGELIST, &::ImageList_Destroy>;

}  // namespace zn
