#include "oemps/driver_callback.h"

#include <algorithm>
#include <climits>
#include <cstring>

#include "devmode/devmode.h"
#include "identity/printer_event.h"
#include "oemps/device_sheet.h"
#include "oemps/devmode_handler.h"
#include "oemps/document_sheet.h"
#include "oemps/property_page.h"
#include "oemps/satellite.h"
#include "platform/boundary.h"
#include "platform/trace.h"

// A trace of one method; every text begins with its name.
#define TRACE_METHOD(method, format, ...) \
  ZN_TRACE_TEXT("intrface", "IOemUI::" method, format, "IOemUI::" method __VA_OPT__(, ) __VA_ARGS__)

namespace zn {
namespace {

constexpr wchar_t kColorProfileName[] = L"OEMPROFILE.icm";
constexpr ULONG kColorProfileBytes = 32;  // what the core driver is told to reserve
static_assert(sizeof kColorProfileName <= kColorProfileBytes);

}  // namespace

IOemUI::IOemUI() noexcept {
  AddLiveObject();
}

IOemUI::~IOemUI() {
  helper_.reset();
  RemoveLiveObject();
}

HRESULT IOemUI::QueryInterface(REFIID riid, void** ppv) noexcept {
  TRACE_METHOD("QueryInterface",
               " %s():QueryInterface entry. iid.Data1=%d iid.Data2=%d iid.Data3=%d iid.Data4=%d\n",
               static_cast<int>(riid.Data1), riid.Data2, riid.Data3, riid.Data4[0]);
  if (ppv == nullptr) {
    return E_POINTER;
  }
  if (riid == IID_IUnknown) {
    TRACE_METHOD("QueryInterface", " %s():Return pointer to IUnknown.\n");
  } else if (riid == IID_IPrintOemUI) {
    TRACE_METHOD("QueryInterface", " %s():Return pointer to IPrintOemUI.\n");
  } else {
    TRACE_METHOD("QueryInterface", " %s():No Interface. Return NULL.\n");
    *ppv = nullptr;
    return E_NOINTERFACE;
  }
  *ppv = static_cast<IPrintOemUI*>(this);
  AddRef();
  return S_OK;
}

ULONG IOemUI::AddRef() noexcept {
  TRACE_METHOD("AddRef", " %s():AddRef entry.\n");
  return static_cast<ULONG>(::InterlockedIncrement(&references_));
}

ULONG IOemUI::Release() noexcept {
  TRACE_METHOD("Release", " %s():Release entry.\n");
  const LONG left = ::InterlockedDecrement(&references_);
  if (left == 0) {
    delete this;
  }
  return static_cast<ULONG>(left);
}

HRESULT IOemUI::GetInfo(DWORD dwMode, PVOID pBuffer, DWORD cbSize, PDWORD pcbNeeded) noexcept {
  // The interface version (mode 2) is refused on purpose: the core driver then asks by interface.
  const bool known = dwMode == OEMGI_GETSIGNATURE || dwMode == OEMGI_GETVERSION ||
                     dwMode == OEMGI_GETPUBLISHERINFO;
  if (pcbNeeded == nullptr || !known) {
    TRACE_METHOD("GetInfo", " %s():GetInfo() exit pcbNeeded is NULL! ERROR_INVALID_PARAMETER\n");
    return FailWith(ERROR_INVALID_PARAMETER);
  }
  *pcbNeeded = sizeof(DWORD);
  if (cbSize < sizeof(DWORD) || pBuffer == nullptr) {
    TRACE_METHOD("GetInfo", " %s():GetInfo() exit insufficient buffer!\n");
    return FailWith(ERROR_INSUFFICIENT_BUFFER);
  }
  if (dwMode == OEMGI_GETPUBLISHERINFO) {
    TRACE_METHOD("GetInfo", " %s():GetInfo() exit mode not supported.\n");
    *pcbNeeded = 0;
    return FailWith(ERROR_NOT_SUPPORTED);
  }
  const DWORD answer = dwMode == OEMGI_GETSIGNATURE ? kDevModeSignature : kDevModeVersion;
  std::memcpy(pBuffer, &answer, sizeof answer);
  TRACE_METHOD("GetInfo", " %s():GetInfo() exit S_OK, (*pBuffer is %#x).\n",
               static_cast<unsigned>(answer));
  return S_OK;
}

HRESULT IOemUI::DevMode(DWORD dwMode, OEMDMPARAM* pOemDMParam) noexcept {
  return Guarded([&] { return hrOEMDevMode(dwMode, pOemDMParam); });
}

HRESULT IOemUI::PublishDriverInterface(IUnknown* pIUnknown) noexcept {
  TRACE_METHOD("PublishDriverInterface", " %s START");
  if (helper_) {
    return S_OK;  // the first helper stays, whatever is offered later
  }
  if (pIUnknown == nullptr) {
    return FailWith(ERROR_INVALID_PARAMETER);
  }
  return Guarded([&] {
    void* offered = nullptr;
    if (FAILED(pIUnknown->QueryInterface(IID_IPrintOemDriverUI, &offered))) {
      return E_FAIL;
    }
    helper_.reset(static_cast<IPrintOemDriverUI*>(offered));
    return helper_ ? S_OK : E_FAIL;
  });
}

HRESULT IOemUI::CommonUIProp(DWORD dwMode, OEMCUIPPARAM* pOemCUIPParam) noexcept {
  TRACE_METHOD("CommonUIProp", " %s():DCommonUIProp entry.\n");
  return Guarded([&] { return hrOEMPropertyPage(dwMode, pOemCUIPParam); });
}

HRESULT IOemUI::DocumentPropertySheets(PROPSHEETUI_INFO* pPSUIInfo, LPARAM lParam) noexcept {
  TRACE_METHOD("DocumentPropertySheets", " %s():DocumentPropertySheets entry.\n");
  return Guarded([&] { return hrOEMDocumentPropertySheets(pPSUIInfo, lParam, helper_.get()); });
}

HRESULT IOemUI::DevicePropertySheets(PROPSHEETUI_INFO* pPSUIInfo, LPARAM lParam) noexcept {
  TRACE_METHOD("DevicePropertySheets", " %s():DevicePropertySheets entry.\n");
  return Guarded([&] { return hrOEMDevicePropertySheets(pPSUIInfo, lParam); });
}

HRESULT IOemUI::DevQueryPrintEx(OEMUIOBJ*, DEVQUERYPRINT_INFO*, DEVMODEW*, PVOID) noexcept {
  TRACE_METHOD("DevQueryPrintEx", " %s():DevQueryPrintEx entry.\n");
  return E_NOTIMPL;
}

HRESULT IOemUI::DeviceCapabilitiesA(OEMUIOBJ*, HANDLE, PWSTR, WORD, PVOID, DEVMODEW*, PVOID, DWORD,
                                    DWORD*) noexcept {
  TRACE_METHOD("DeviceCapabilitiesA", " %s():DeviceCapabilities entry.\n");
  return E_NOTIMPL;
}

HRESULT IOemUI::UpgradePrinter(DWORD, PBYTE) noexcept {
  TRACE_METHOD("UpgradePrinter", " %s():UpgradePrinter entry.\n");
  return E_NOTIMPL;
}

HRESULT IOemUI::PrinterEvent(PWSTR pPrinterName, INT iDriverEvent, DWORD, LPARAM) noexcept {
  if (iDriverEvent == kPrinterEventDelete) {
    Guarded([&] {
      CleanUpDeletedPrinter(pPrinterName);
      return S_OK;
    });
  }
  return E_NOTIMPL;  // the core driver goes on with its own processing of the event
}

HRESULT IOemUI::DriverEvent(DWORD, DWORD dwLevel, LPBYTE, LPARAM) noexcept {
  TRACE_METHOD("DriverEvent", " %s():DriverEvent entry.\n");
  TRACE_METHOD("DriverEvent", " %s() dwLevel:%d\n", static_cast<int>(dwLevel));
  return E_NOTIMPL;
}

HRESULT IOemUI::QueryColorProfile(HANDLE, OEMUIOBJ*, DEVMODEW*, PVOID, ULONG ulQueryMode,
                                  VOID* pvProfileData, ULONG* pcbProfileData,
                                  FLONG* pflProfileData) noexcept {
  TRACE_METHOD("QueryColorProfile", " %s():QueryColorProfile entry.\n");
  if (ulQueryMode != QCP_DEVICEPROFILE) {
    return E_FAIL;
  }
  if (pcbProfileData == nullptr) {
    return FailWith(ERROR_INVALID_PARAMETER);
  }
  const ULONG room = *pcbProfileData;
  *pcbProfileData = kColorProfileBytes;
  if (pvProfileData == nullptr || room < kColorProfileBytes) {
    return FailWith(ERROR_INSUFFICIENT_BUFFER);
  }
  if (pflProfileData == nullptr) {
    return FailWith(ERROR_INVALID_PARAMETER);
  }
  // The byte count stands as the character limit; the name ends well before either.
  ::lstrcpynW(static_cast<wchar_t*>(pvProfileData), kColorProfileName,
              static_cast<int>(std::min<ULONG>(room, INT_MAX)));
  *pflProfileData = QCP_PROFILEDISK;
  return S_OK;
}

HRESULT IOemUI::FontInstallerDlgProc(HWND, UINT, WPARAM, LPARAM) noexcept {
  TRACE_METHOD("FontInstallerDlgProc", " %s():FontInstallerDlgProc entry.\n");
  return E_NOTIMPL;
}

HRESULT IOemUI::UpdateExternalFonts(HANDLE, HANDLE, PWSTR) noexcept {
  TRACE_METHOD("UpdateExternalFonts", " %s():UpdateExternalFonts entry.\n");
  return E_NOTIMPL;
}

}  // namespace zn
