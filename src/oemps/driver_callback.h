// IOemUI: the object that receives every call of the core driver.
#pragma once

#include "platform/driver_interfaces.h"

namespace zn {

// Forwards to the module's handlers, or answers E_NOTIMPL so that the core driver does its default
// processing. Starts with one reference and without the driver's helper interface.
class IOemUI final : public IPrintOemUI {
 public:
  IOemUI() noexcept;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppv) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override;
  ULONG STDMETHODCALLTYPE Release() noexcept override;

  HRESULT STDMETHODCALLTYPE GetInfo(DWORD dwMode, PVOID pBuffer, DWORD cbSize,
                                    PDWORD pcbNeeded) noexcept override;
  HRESULT STDMETHODCALLTYPE DevMode(DWORD dwMode, OEMDMPARAM* pOemDMParam) noexcept override;
  HRESULT STDMETHODCALLTYPE PublishDriverInterface(IUnknown* pIUnknown) noexcept override;
  HRESULT STDMETHODCALLTYPE CommonUIProp(DWORD dwMode,
                                         OEMCUIPPARAM* pOemCUIPParam) noexcept override;
  HRESULT STDMETHODCALLTYPE DocumentPropertySheets(PROPSHEETUI_INFO* pPSUIInfo,
                                                   LPARAM lParam) noexcept override;
  HRESULT STDMETHODCALLTYPE DevicePropertySheets(PROPSHEETUI_INFO* pPSUIInfo,
                                                 LPARAM lParam) noexcept override;
  HRESULT STDMETHODCALLTYPE DevQueryPrintEx(OEMUIOBJ* poemuiobj, DEVQUERYPRINT_INFO* pDQPInfo,
                                            DEVMODEW* pPublicDM, PVOID pOEMDM) noexcept override;
  HRESULT STDMETHODCALLTYPE DeviceCapabilitiesA(OEMUIOBJ* poemuiobj, HANDLE hPrinter,
                                                PWSTR pDeviceName, WORD wCapability, PVOID pOutput,
                                                DEVMODEW* pPublicDM, PVOID pOEMDM, DWORD dwOld,
                                                DWORD* dwResult) noexcept override;
  HRESULT STDMETHODCALLTYPE UpgradePrinter(DWORD dwLevel,
                                           PBYTE pDriverUpgradeInfo) noexcept override;
  HRESULT STDMETHODCALLTYPE PrinterEvent(PWSTR pPrinterName, INT iDriverEvent, DWORD dwFlags,
                                         LPARAM lParam) noexcept override;
  HRESULT STDMETHODCALLTYPE DriverEvent(DWORD dwDriverEvent, DWORD dwLevel, LPBYTE pDriverInfo,
                                        LPARAM lParam) noexcept override;
  HRESULT STDMETHODCALLTYPE QueryColorProfile(HANDLE hPrinter, OEMUIOBJ* poemuiobj,
                                              DEVMODEW* pPublicDM, PVOID pOEMDM, ULONG ulQueryMode,
                                              VOID* pvProfileData, ULONG* pcbProfileData,
                                              FLONG* pflProfileData) noexcept override;
  HRESULT STDMETHODCALLTYPE FontInstallerDlgProc(HWND hWnd, UINT usMsg, WPARAM wParam,
                                                 LPARAM lParam) noexcept override;
  HRESULT STDMETHODCALLTYPE UpdateExternalFonts(HANDLE hPrinter, HANDLE hHeap,
                                                PWSTR pwstrCartridges) noexcept override;

 private:
  ~IOemUI();  // not virtual: it would shift the slots

  LONG references_ = 1;
  UniqueDriverUI helper_;  // null until published
};

}  // namespace zn
