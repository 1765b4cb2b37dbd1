// The few platform declarations that the client needs, so that it builds with nothing but a
// compiler for the other C++ ABI of x64: no system headers, no C runtime. Declared anew, so that a
// fault in the plug-in's own declarations shows.
#pragma once

using BOOL = int;
using WORD = unsigned short;
using DWORD = unsigned long;
using ULONG = unsigned long;
using HRESULT = long;
using HANDLE = void*;
using LPARAM = long long;

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001);
inline constexpr HRESULT E_NOINTERFACE = static_cast<HRESULT>(0x80004002);
inline constexpr HRESULT E_POINTER = static_cast<HRESULT>(0x80004003);
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = static_cast<HRESULT>(0x80040110);
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = static_cast<HRESULT>(0x80040111);

inline constexpr DWORD ERROR_NOT_SUPPORTED = 50;
inline constexpr DWORD ERROR_INVALID_PARAMETER = 87;
inline constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;

struct GUID {
  DWORD data1;
  WORD data2;
  WORD data3;
  unsigned char data4[8];

  bool operator==(const GUID&) const = default;
};

inline constexpr GUID IID_IUnknown = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID IID_IClassFactory = {1, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr GUID CLSID_OEMUI = {
    0xABCE80D7, 0x9F46, 0x11D1, {0x88, 0x2A, 0x00, 0xC0, 0x4F, 0xB9, 0x61, 0xEC}};
inline constexpr GUID IID_IPrintOemUI = {
    0xC6A7A9D0, 0x774C, 0x11D1, {0x94, 0x7F, 0x00, 0xA0, 0xC9, 0x06, 0x40, 0xB8}};
inline constexpr GUID IID_IPrintOemUI2 = {
    0x292515F9, 0xB54B, 0x489B, {0x92, 0x75, 0xBA, 0xB5, 0x68, 0x21, 0x39, 0x5E}};
inline constexpr GUID IID_IPrintOemDriverUI = {
    0x92B05D50, 0x78BC, 0x11D1, {0x94, 0x80, 0x00, 0xA0, 0xC9, 0x06, 0x40, 0xB8}};

struct __declspec(novtable) IUnknown {
  virtual HRESULT QueryInterface(const GUID& iid, void** out) = 0;
  virtual ULONG AddRef() = 0;
  virtual ULONG Release() = 0;
};

struct __declspec(novtable) IClassFactory : IUnknown {
  virtual HRESULT CreateInstance(IUnknown* outer, const GUID& iid, void** out) = 0;
  virtual HRESULT LockServer(BOOL lock) = 0;
};

struct DevModeParam {
  DWORD size;
  void* driverObject;
  HANDLE printer;
  HANDLE module;
  void* publicIn;
  void* publicOut;
  void* privateIn;
  void* privateOut;
  DWORD bufferSize;
};

struct CommonUiParam {
  DWORD size;
  void* object;
  HANDLE printer;
  wchar_t* printerName;
  HANDLE module;
  HANDLE heap;
  void* publicDevMode;
  void* privateDevMode;
  DWORD flags;
  void* driverItems;
  DWORD driverItemCount;
  void* ownItems;
  DWORD ownItemCount;
  void* userData;
  void* callback;
};

struct SheetInfo {
  WORD size;
  WORD version;
  WORD flags;
  WORD reason;
  HANDLE sheet;
  void* callback;
  LPARAM init;
  unsigned long long userData;
  unsigned long long result;
};

struct SheetHeader {
  WORD size;
  WORD flags;
  wchar_t* title;
  HANDLE parent;
  HANDLE instance;
  HANDLE icon;
};

struct SetResultInfo {
  WORD size;
  WORD reserved;
  HANDLE setResult;
  unsigned long long result;
};

struct __declspec(novtable) IPrintOemDriverUI : IUnknown {
  virtual HRESULT DrvGetDriverSetting(void*, const char*, void*, DWORD, DWORD*, DWORD*) = 0;
  virtual HRESULT DrvUpgradeRegistrySetting(HANDLE, const char*, const char*) = 0;
  virtual HRESULT DrvUpdateUISetting(void*, void*, DWORD, DWORD) = 0;
};

struct __declspec(novtable) IPrintOemUI : IUnknown {
  virtual HRESULT GetInfo(DWORD mode, void* buffer, DWORD size, DWORD* needed) = 0;
  virtual HRESULT DevMode(DWORD mode, DevModeParam* param) = 0;
  virtual HRESULT PublishDriverInterface(IUnknown* helper) = 0;
  virtual HRESULT CommonUIProp(DWORD mode, CommonUiParam* param) = 0;
  virtual HRESULT DocumentPropertySheets(SheetInfo* info, LPARAM lParam) = 0;
  virtual HRESULT DevicePropertySheets(SheetInfo* info, LPARAM lParam) = 0;
  virtual HRESULT DevQueryPrintEx(void*, void*, void*, void*) = 0;
  virtual HRESULT DeviceCapabilities(void*, HANDLE, wchar_t*, WORD, void*, void*, void*, DWORD,
                                     DWORD*) = 0;
  virtual HRESULT UpgradePrinter(DWORD level, unsigned char* info) = 0;
  virtual HRESULT PrinterEvent(wchar_t* printer, int event, DWORD flags, LPARAM lParam) = 0;
  virtual HRESULT DriverEvent(DWORD event, DWORD level, unsigned char* info, LPARAM lParam) = 0;
  virtual HRESULT QueryColorProfile(HANDLE, void*, void*, void*, ULONG mode, void* data,
                                    ULONG* size, ULONG* flags) = 0;
  virtual HRESULT FontInstallerDlgProc(HANDLE window, unsigned message, unsigned long long wParam,
                                       LPARAM lParam) = 0;
  virtual HRESULT UpdateExternalFonts(HANDLE printer, HANDLE heap, wchar_t* cartridges) = 0;
};

extern "C" {
__declspec(dllimport) HANDLE LoadLibraryA(const char* name);
__declspec(dllimport) void* GetProcAddress(HANDLE module, const char* name);
__declspec(dllimport) BOOL FreeLibrary(HANDLE module);
__declspec(dllimport) void ExitProcess(unsigned code);
__declspec(dllimport) HANDLE GetStdHandle(DWORD which);
__declspec(dllimport) BOOL
    WriteFile(HANDLE file, const void* data, DWORD size, DWORD* written, void* overlapped);
__declspec(dllimport) DWORD GetLastError();
__declspec(dllimport) void SetLastError(DWORD error);
}
