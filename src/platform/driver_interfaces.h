// The published plug-in interfaces and structures of the core PostScript driver's user interface
// that MinGW lacks or only half declares. Members, order and values are those of the public
// reference; sizes and offsets are asserted for x64 below.
#pragma once

#include <windows.h>
// These must come behind windows.h.
#include <compstui.h>
#include <prsht.h>
#include <unknwn.h>
#include <winspool.h>

#include <cstddef>
#include <memory>

namespace zn {

// {ABCE80D7-9F46-11D1-882A-00C04FB961EC}
inline constexpr CLSID CLSID_OEMUI = {
    0xABCE80D7, 0x9F46, 0x11D1, {0x88, 0x2A, 0x00, 0xC0, 0x4F, 0xB9, 0x61, 0xEC}};
// {C6A7A9D0-774C-11D1-947F-00A0C90640B8}
inline constexpr IID IID_IPrintOemUI = {
    0xC6A7A9D0, 0x774C, 0x11D1, {0x94, 0x7F, 0x00, 0xA0, 0xC9, 0x06, 0x40, 0xB8}};
// {292515F9-B54B-489B-9275-BAB56821395E}
inline constexpr IID IID_IPrintOemUI2 = {
    0x292515F9, 0xB54B, 0x489B, {0x92, 0x75, 0xBA, 0xB5, 0x68, 0x21, 0x39, 0x5E}};
// {92B05D50-78BC-11D1-9480-00A0C90640B8}
inline constexpr IID IID_IPrintOemDriverUI = {
    0x92B05D50, 0x78BC, 0x11D1, {0x94, 0x80, 0x00, 0xA0, 0xC9, 0x06, 0x40, 0xB8}};
// {085CCFCA-3ADF-4C9E-B491-D851A6EDC997}
inline constexpr IID IID_IPrintCoreUI2 = {
    0x085CCFCA, 0x3ADF, 0x4C9E, {0xB4, 0x91, 0xD8, 0x51, 0xA6, 0xED, 0xC9, 0x97}};

// GetInfo modes.
enum : DWORD {
  OEMGI_GETSIGNATURE = 1,
  OEMGI_GETINTERFACEVERSION = 2,
  OEMGI_GETVERSION = 3,
  OEMGI_GETPUBLISHERINFO = 4,
  OEMGI_GETREQUESTEDHELPERINTERFACES = 5,
};
// DevMode modes.
enum : DWORD { OEMDM_SIZE = 1, OEMDM_DEFAULT = 2, OEMDM_CONVERT = 3, OEMDM_MERGE = 4 };
// CommonUIProp modes, and DrvUpdateUISetting's dwMode.
enum : DWORD { OEMCUIP_DOCPROP = 1, OEMCUIP_PRNPROP = 2 };
// QueryColorProfile query modes and result flags.
enum : ULONG { QCP_DEVICEPROFILE = 0, QCP_SOURCEPROFILE = 1 };
enum : FLONG { QCP_PROFILEMEMORY = 1, QCP_PROFILEDISK = 2 };
// Printer events.
inline constexpr INT kPrinterEventDelete = 4;
// Flags of the device and of the document sheet: the user may view, not change.
inline constexpr DWORD DPS_NOPERMISSION = 1;
inline constexpr DWORD DM_NOPERMISSION = 0x20;

struct OEMDMPARAM {
  DWORD cbSize;
  PVOID pdriverobj;
  HANDLE hPrinter;
  HANDLE hModule;
  DEVMODEW* pPublicDMIn;
  DEVMODEW* pPublicDMOut;
  PVOID pOEMDMIn;
  PVOID pOEMDMOut;
  DWORD cbBufSize;
};

struct OEMUIPROCS {
  PVOID DrvGetDriverSetting;
  PVOID DrvUpdateUISetting;
};

struct OEMUIOBJ {
  DWORD cbSize;
  OEMUIPROCS* pOemUIProcs;
};

struct OEMCUIPPARAM;
using OEMCUIPCALLBACK = LONG(APIENTRY*)(CPSUICBPARAM*, OEMCUIPPARAM*);

struct OEMCUIPPARAM {
  DWORD cbSize;
  OEMUIOBJ* poemuiobj;
  HANDLE hPrinter;
  PWSTR pPrinterName;
  HANDLE hModule;
  HANDLE hOEMHeap;
  DEVMODEW* pPublicDM;
  PVOID pOEMDM;
  DWORD dwFlags;
  OPTITEM* pDrvOptItems;
  DWORD cDrvOptItems;
  OPTITEM* pOEMOptItems;
  DWORD cOEMOptItems;
  PVOID pOEMUserData;
  OEMCUIPCALLBACK OEMCUIPCallback;
};

struct OEMUIPSPARAM {
  DWORD cbSize;
  OEMUIOBJ* poemuiobj;
  HANDLE hPrinter;
  PWSTR pPrinterName;
  HANDLE hModule;
  HANDLE hOEMHeap;
  DEVMODEW* pPublicDM;
  PVOID pOEMDM;
  PVOID pOEMUserData;  // in another order than in OEMCUIPPARAM
  DWORD dwFlags;
  PVOID pOemEntry;
};

// What OPTITEM::UserData of a driver-supplied item points to.
struct USERDATA {
  DWORD dwSize;
  ULONG_PTR dwItemID;
  PSTR pKeyWordName;  // not localised
  DWORD dwReserved[8];
};

struct DEVQUERYPRINT_INFO {
  WORD cbSize;
  WORD Level;
  HANDLE hPrinter;
  DEVMODEW* pDevMode;
  PWSTR pszErrorStr;
  DWORD cchErrorStr;
  DWORD cchNeeded;
};

static_assert(sizeof(OEMDMPARAM) == 72 && offsetof(OEMDMPARAM, cbBufSize) == 64);
static_assert(sizeof(OEMCUIPPARAM) == 120 && offsetof(OEMCUIPPARAM, OEMCUIPCallback) == 112);
static_assert(sizeof(OEMUIPSPARAM) == 88 && offsetof(OEMUIPSPARAM, dwFlags) == 72);
static_assert(sizeof(USERDATA) == 56 && offsetof(USERDATA, dwReserved) == 24);
static_assert(sizeof(DEVQUERYPRINT_INFO) == 40);
static_assert(sizeof(OPTITEM) == 88 && sizeof(OPTTYPE) == 48 && sizeof(OPTPARAM) == 48);
static_assert(sizeof(COMPROPSHEETUI) == 128 && sizeof(CPSUICBPARAM) == 64);
static_assert(sizeof(PROPSHEETUI_INFO) == 48 && sizeof(INSERTPSUIPAGE_INFO) == 32);

// Implemented by the core driver.
struct IPrintOemDriverUI : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE DrvGetDriverSetting(PVOID pci, PCSTR Feature, PVOID pOutput,
                                                        DWORD cbSize, PDWORD pcbNeeded,
                                                        PDWORD pdwOptionsReturned) = 0;
  virtual HRESULT STDMETHODCALLTYPE DrvUpgradeRegistrySetting(HANDLE hPrinter, PCSTR pFeature,
                                                              PCSTR pOption) = 0;
  virtual HRESULT STDMETHODCALLTYPE DrvUpdateUISetting(PVOID pci, PVOID pOptItem,
                                                       DWORD dwPreviousSelection, DWORD dwMode) = 0;
};

struct InterfaceReleaser {
  void operator()(IUnknown* held) const noexcept { held->Release(); }
};
using UniqueDriverUI = std::unique_ptr<IPrintOemDriverUI, InterfaceReleaser>;

struct IPrintOemCommon : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE GetInfo(DWORD dwMode, PVOID pBuffer, DWORD cbSize,
                                            PDWORD pcbNeeded) = 0;
  virtual HRESULT STDMETHODCALLTYPE DevMode(DWORD dwMode, OEMDMPARAM* pOemDMParam) = 0;
};

// Implemented by the plug-in; the order of declaration is the published slot order 0 to 16.
struct IPrintOemUI : IPrintOemCommon {
  virtual HRESULT STDMETHODCALLTYPE PublishDriverInterface(IUnknown* pIUnknown) = 0;
  virtual HRESULT STDMETHODCALLTYPE CommonUIProp(DWORD dwMode, OEMCUIPPARAM* pOemCUIPParam) = 0;
  virtual HRESULT STDMETHODCALLTYPE DocumentPropertySheets(PROPSHEETUI_INFO* pPSUIInfo,
                                                           LPARAM lParam) = 0;
  virtual HRESULT STDMETHODCALLTYPE DevicePropertySheets(PROPSHEETUI_INFO* pPSUIInfo,
                                                         LPARAM lParam) = 0;
  virtual HRESULT STDMETHODCALLTYPE DevQueryPrintEx(OEMUIOBJ* poemuiobj,
                                                    DEVQUERYPRINT_INFO* pDQPInfo,
                                                    DEVMODEW* pPublicDM, PVOID pOEMDM) = 0;
  virtual HRESULT STDMETHODCALLTYPE DeviceCapabilitiesA(OEMUIOBJ* poemuiobj, HANDLE hPrinter,
                                                        PWSTR pDeviceName, WORD wCapability,
                                                        PVOID pOutput, DEVMODEW* pPublicDM,
                                                        PVOID pOEMDM, DWORD dwOld,
                                                        DWORD* dwResult) = 0;
  virtual HRESULT STDMETHODCALLTYPE UpgradePrinter(DWORD dwLevel, PBYTE pDriverUpgradeInfo) = 0;
  virtual HRESULT STDMETHODCALLTYPE PrinterEvent(PWSTR pPrinterName, INT iDriverEvent,
                                                 DWORD dwFlags, LPARAM lParam) = 0;
  virtual HRESULT STDMETHODCALLTYPE DriverEvent(DWORD dwDriverEvent, DWORD dwLevel,
                                                LPBYTE pDriverInfo, LPARAM lParam) = 0;
  virtual HRESULT STDMETHODCALLTYPE QueryColorProfile(HANDLE hPrinter, OEMUIOBJ* poemuiobj,
                                                      DEVMODEW* pPublicDM, PVOID pOEMDM,
                                                      ULONG ulQueryMode, VOID* pvProfileData,
                                                      ULONG* pcbProfileData,
                                                      FLONG* pflProfileData) = 0;
  virtual HRESULT STDMETHODCALLTYPE FontInstallerDlgProc(HWND hWnd, UINT usMsg, WPARAM wParam,
                                                         LPARAM lParam) = 0;
  virtual HRESULT STDMETHODCALLTYPE UpdateExternalFonts(HANDLE hPrinter, HANDLE hHeap,
                                                        PWSTR pwstrCartridges) = 0;
};

}  // namespace zn
