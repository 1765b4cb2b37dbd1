#include "oemps/device_sheet.h"

#include <array>
#include <string>

#include "identity/printer_identity.h"
#include "oemps/sheet_record.h"
#include "platform/boundary.h"
#include "platform/handles.h"
#include "platform/resources.h"
#include "platform/trace.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

constexpr char kSource[] = "oemui";
constexpr std::size_t kKeyNameSize = 1024;  // bytes, terminator included

using OnAuthenticationManagerDlg = int (*)(HANDLE printer, char* keyName, int mayChange);
constexpr char kAuthenticationExport[] = "?OnAuthenticationManagerDlg@@YAHPEAXPEADH@Z";

// The printer of the device sheet. Plain data of the one user-interface thread.
struct DevicePrinter {
  int mayChange;                           // 1: the user may change the printer's settings
  std::wstring name;                       // as the core driver passed it
  std::array<char, kKeyNameSize> keyName;  // short name and GUID
};

DevicePrinter& TheDevicePrinter() {
  static DevicePrinter printer{};
  return printer;
}

std::string ToAnsi(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  const int size =
      ::WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string ansi(static_cast<std::size_t>(size), '\0');
  ::WideCharToMultiByte(CP_ACP, 0, text.data(), length, ansi.data(), size, nullptr, nullptr);
  return ansi;
}

// What the module's path would be with its drive; only traced.
[[maybe_unused]] std::string TracedModulePath(const std::string& path) {
  std::array<char, 260> folder{};
  ::GetCurrentDirectoryA(folder.size(), folder.data());
  return std::string(folder.data()).substr(0, 2) + path;
}

UniquePrinter OpenWithFullAccess(const std::wstring& name) {
  PRINTER_DEFAULTSA access{nullptr, nullptr, PRINTER_ALL_ACCESS};
  HANDLE printer = nullptr;
  if (!name.empty()) {  // an empty name would open the print server
    ::OpenPrinterA(ToAnsi(name).data(), &printer, &access);
  }
  return UniquePrinter(printer);
}

INT_PTR OpenAuthenticationManager() {
  const std::string path = LoadResourceString(IDS_SECOND_COMPANION_64);
  ZN_TRACE_TEXT(kSource, "DevicePropPageProc", "DLL Name = %s\n", TracedModulePath(path).c_str());
  // The path has no drive: the module is looked for on the current one.
  UniqueModule module(::LoadLibraryA(path.c_str()));
  if (!module) {
    return 0;
  }
  const auto open = reinterpret_cast<OnAuthenticationManagerDlg>(
      ::GetProcAddress(module.get(), kAuthenticationExport));
  if (open == nullptr) {
    return 1;
  }
  DevicePrinter device = TheDevicePrinter();  // a copy: the dialog lets other calls in
  const UniquePrinter printer = OpenWithFullAccess(device.name);
  if (!printer) {
    static_cast<void>(module.release());  // stays loaded on purpose
    return 0;
  }
  open(printer.get(), device.keyName.data(), device.mayChange);
  return 1;
}

void OnInit(PROPSHEETUI_INFO& info) noexcept {
  const auto* param = reinterpret_cast<const OEMUIPSPARAM*>(info.lParamInit);
  TheDevicePrinter().mayChange =
      param != nullptr && (param->dwFlags & DPS_NOPERMISSION) == 0 ? 1 : 0;
  info.Result = AddDialogPage(info, IDD_DEVICE_PAGE, &DevicePropPageProc, 0);
}

}  // namespace

INT_PTR CALLBACK DevicePropPageProc(HWND, UINT message, WPARAM wParam, LPARAM) {
  if (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED) {
    return 0;
  }
  if (LOWORD(wParam) != IDC_DEVICE_AUTHENTICATION) {
    return 1;
  }
  return GuardedOr(INT_PTR{0}, &OpenAuthenticationManager);
}

HRESULT RecordPrinter(OEMCUIPPARAM& param) {
  DevicePrinter& device = TheDevicePrinter();
  device.name = param.pPrinterName != nullptr ? param.pPrinterName : L"";
  device.keyName = {};
  const std::string keyName = GetPrinterKeyName(ToAnsi(device.name));
  keyName.copy(device.keyName.data(), device.keyName.size() - 1);
  param.cOEMOptItems = 0;
  return S_OK;
}

HRESULT hrOEMDevicePropertySheets(PROPSHEETUI_INFO* pPSUIInfo, LPARAM lParam) {
  ZN_TRACE_TEXT(kSource, "hrOEMDevicePropertySheets", " %s():DevicePropertySheets entry.\n",
                "hrOEMDevicePropertySheets");
  if (!IsUsable(pPSUIInfo)) {
    return FailWith(ERROR_INVALID_PARAMETER);
  }
  switch (pPSUIInfo->Reason) {
    case PROPSHEETUI_REASON_INIT:
      OnInit(*pPSUIInfo);
      break;
    case PROPSHEETUI_REASON_GET_INFO_HEADER:
      AnswerHeader(*pPSUIInfo, lParam);
      break;
    case PROPSHEETUI_REASON_DESTROY:
      pPSUIInfo->Result = 1;
      break;
    case PROPSHEETUI_REASON_SET_RESULT:
      AnswerSetResult(*pPSUIInfo, lParam);
      break;
    case PROPSHEETUI_REASON_GET_ICON:
      pPSUIInfo->Result = 0;
      break;
    default:
      break;  // `Result` keeps what the core driver put there
  }
  return S_OK;
}

}  // namespace zn
