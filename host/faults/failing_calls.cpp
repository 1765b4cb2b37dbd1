#include "host/faults/failing_calls.h"

#include <commctrl.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>

#include "host/base/host_error.h"

namespace zn::host {
namespace {

constexpr int kMissing = -1;  // also CB_ERR, EOF, CLR_INVALID and the like

// An error tells of itself in the stream, too.
std::int64_t FailStream(const CallArguments& arguments) {
  reinterpret_cast<std::FILE*>(arguments.values[3])->_flag |= _IOERR;
  return 0;
}

// What was not written yet is lost, but the file is closed.
std::int64_t FailClose(const CallArguments& arguments) {
  std::fclose(reinterpret_cast<std::FILE*>(arguments.values[0]));
  return EOF;
}

// Lists answer CB_ERR, other windows 0.
std::int64_t FailSend(const CallArguments& arguments) {
  const std::uint64_t message = arguments.values[1];
  const bool isOfList = (message >= CB_GETEDITSEL && message < CB_MSGMAX) ||
                        message == CBEM_INSERTITEMA || message == CBEM_DELETEITEM;
  return isOfList ? CB_ERR : 0;
}

constexpr FailingCall kFailingCalls[] = {
    // answers an error code
    {"RegCreateKeyExA", ERROR_ACCESS_DENIED},
    {"RegDeleteKeyA", ERROR_ACCESS_DENIED},
    {"RegDeleteValueA", ERROR_ACCESS_DENIED},
    {"RegEnumKeyExA", ERROR_NOT_ENOUGH_MEMORY},
    {"RegOpenKeyExA", ERROR_ACCESS_DENIED},
    {"RegQueryValueExA", ERROR_NOT_ENOUGH_MEMORY},
    {"GetPrinterDataExA", ERROR_NOT_ENOUGH_MEMORY},
    {"SHCreateDirectoryExA", ERROR_ACCESS_DENIED},
    {"CoCreateInstance", static_cast<HRESULT>(0x8007000E)},  // E_OUTOFMEMORY
    {"_splitpath_s", ERANGE},
    // answers -1 or an invalid handle
    {"DeviceCapabilitiesA", kMissing},
    {"DialogBoxParamA", kMissing},
    {"DocumentPropertiesA", kMissing},
    {"FindFirstFileA", kMissing, ERROR_ACCESS_DENIED},
    {"ImageList_AddMasked", kMissing},
    {"ImageList_ReplaceIcon", kMissing},
    {"SetDCBrushColor", kMissing},
    {"SetTextAlign", kMissing},
    {"SetTextColor", kMissing},
    {"remove", kMissing, ERROR_ACCESS_DENIED},
    {"vfprintf", kMissing, ERROR_DISK_FULL},
    {"wcstombs", kMissing},
    // fails in its own way
    {"SendMessageA", 0, ERROR_INVALID_WINDOW_HANDLE, &FailSend},
    {"fclose", kMissing, ERROR_DISK_FULL, &FailClose},
    {"fread", 0, ERROR_READ_FAULT, &FailStream},
    {"fwrite", 0, ERROR_DISK_FULL, &FailStream},
    // all memory of the plug-in
    {"HeapAlloc", 0, ERROR_NOT_ENOUGH_MEMORY, nullptr, true},
    {"calloc", 0, ERROR_NOT_ENOUGH_MEMORY, nullptr, true},
    {"malloc", 0, ERROR_NOT_ENOUGH_MEMORY, nullptr, true},
    {"realloc", 0, ERROR_NOT_ENOUGH_MEMORY, nullptr, true},
    // its texts
    {"LoadStringA", 0, ERROR_RESOURCE_NAME_NOT_FOUND, nullptr, true},
    // answers 0, FALSE or a null handle
    {"BitBlt"},
    {"CheckDlgButton"},
    {"CreateCompatibleBitmap"},
    {"CreateCompatibleDC"},
    {"CreateFontIndirectA"},
    {"CreateWindowExA"},
    {"DeleteFileA", FALSE, ERROR_ACCESS_DENIED},
    {"DrawTextA"},
    {"Ellipse"},
    {"EndDialog"},
    {"EnumChildWindows"},
    {"FillRect"},
    {"FindNextFileA"},
    {"FindResourceA"},
    {"GetActiveWindow"},
    {"GetAncestor"},
    {"GetComputerNameA"},
    {"GetDC"},
    {"GetDeviceCaps"},
    {"GetDlgCtrlID"},
    {"GetDlgItem", 0, ERROR_CONTROL_ID_NOT_FOUND},
    {"GetFocus"},
    {"GetForegroundWindow"},
    {"GetLocaleInfoA"},
    {"GetModuleFileNameA"},
    {"GetModuleHandleA"},
    {"GetObjectA"},
    {"GetParent"},
    {"GetPrinterA", FALSE, RPC_S_SERVER_UNAVAILABLE},
    {"GetPrinterDriverA", FALSE, RPC_S_SERVER_UNAVAILABLE},
    {"GetProcAddress", 0, ERROR_PROC_NOT_FOUND},
    {"GetPropA"},
    {"GetStockObject"},
    {"GetTextMetricsA"},
    {"GetUserNameA"},
    {"GetVersionExA"},
    {"GetWindow"},
    {"GetWindowLongPtrA"},
    {"GetWindowTextA"},
    {"GetWindowsDirectoryA"},
    {"ImageList_Create"},
    {"ImageList_GetImageCount"},
    {"IntersectClipRect"},
    {"InvalidateRect"},
    {"IsWindowVisible"},
    {"LoadImageA"},
    {"LoadLibraryA", 0, ERROR_MOD_NOT_FOUND},
    {"LoadResource"},
    {"LockResource"},
    {"MessageBeep"},
    {"MessageBoxA"},
    {"MoveFileA", FALSE, ERROR_ACCESS_DENIED},
    {"MoveFileExA", FALSE, ERROR_ACCESS_DENIED},
    {"MultiByteToWideChar"},
    {"OpenPrinterA", FALSE, RPC_S_SERVER_UNAVAILABLE},
    {"Polygon"},
    {"RedrawWindow"},
    {"SHGetSpecialFolderPathA"},
    {"SaveDC"},
    {"SelectObject"},
    {"SetBkMode"},
    {"SetFocus"},
    {"SetPrinterW", FALSE, ERROR_ACCESS_DENIED},
    {"SetPropA"},
    {"SetStretchBltMode"},
    {"SetThreadErrorMode"},
    {"SetTimer"},
    {"SetWindowLongPtrA"},
    {"SetWindowTextA"},
    {"StretchDIBits"},
    {"TextOutA"},
    {"VirtualProtect"},
    {"VirtualQuery"},
    {"WideCharToMultiByte"},
    {"fopen", 0, ERROR_ACCESS_DENIED},
    {"setlocale"},
};

constexpr const char* kUnfailing[] = {
    // gives a resource back; what it refuses would stay behind for ever
    "ClosePrinter", "DeleteCriticalSection", "DeleteDC", "DeleteObject", "DestroyIcon", "FindClose",
    "FreeLibrary", "HeapFree", "ImageList_Destroy", "KillTimer", "LeaveCriticalSection",
    "RegCloseKey", "ReleaseDC", "ReleaseSRWLockExclusive", "RemovePropA", "RestoreDC", "_unlock",
    "free",
    // cannot tell a failure, or tells what another call did
    "AcquireSRWLockExclusive", "ConvertDefaultLocale", "EnableWindow", "EnterCriticalSection",
    "GetACP", "GetCurrentProcess", "GetCurrentThreadId", "GetLastError", "GetSysColor",
    "GetSystemDefaultUILanguage", "GetUserDefaultUILanguage", "InitializeCriticalSection",
    "IsDlgButtonChecked", "IsProcessorFeaturePresent", "SetLastError", "ShowWindow", "Sleep",
    "TlsGetValue", "_errno", "_lock", "ferror", "localeconv",
    // works on the caller's own memory
    "EqualRect", "InflateRect", "MulDiv", "OffsetRect", "__iob_func", "lstrcmpiA", "lstrcpynA",
    "lstrcpynW", "memchr", "memcmp", "memcpy", "memmove", "memset", "strcmp", "strlen", "strncmp",
    "wcslen",
    // starts, unwinds and ends code
    "RaiseException", "RtlCaptureContext", "RtlLookupFunctionEntry", "RtlUnwindEx",
    "RtlVirtualUnwind", "TerminateProcess", "_amsg_exit", "_initterm", "abort"};

}  // namespace

const FailingCall* FindFailingCall(const char* function) {
  const std::string_view name = function;
  if (const auto* row = std::ranges::find(kFailingCalls, name, &FailingCall::function);
      row != std::end(kFailingCalls)) {
    return row;
  }
  if (std::ranges::find(kUnfailing, name) == std::end(kUnfailing)) {
    throw HostError("how " + std::string(name) + " fails stands in no row of failing_calls.cpp");
  }
  return nullptr;
}

}  // namespace zn::host
