#include "oemps/devmode_handler.h"

#include <string_view>

#include "devmode/devmode.h"
#include "identity/printer_identity.h"
#include "identity/user_info.h"
#include "platform/boundary.h"
#include "platform/spooler.h"
#include "platform/trace.h"

namespace zn {
namespace {

constexpr char kSource[] = "oemps\\devmode";
constexpr char kFunction[] = "hrOEMDevMode";
[[maybe_unused]] constexpr const char* kModeNames[] = {"OEMDM_SIZE", "OEMDM_DEFAULT",
                                                       "OEMDM_CONVERT", "OEMDM_MERGE"};

// What the output buffer must hold; callers that leave cbBufSize 0 tell no size.
bool IsOutputTooSmall(const OEMDMPARAM& parameters) noexcept {
  return parameters.cbBufSize != 0 && parameters.cbBufSize < kDevModeSize;
}

// Only a connection to a queue that another computer shares carries the user's own data.
bool IsServedByAnotherComputer(const PRINTER_INFO_2A& printer) noexcept {
  constexpr DWORD kShared = PRINTER_ATTRIBUTE_SHARED | PRINTER_ATTRIBUTE_NETWORK;
  return (printer.Attributes & kShared) != 0 && printer.pServerName != nullptr &&
         *printer.pServerName != '\0';
}

HRESULT RefillAuthenticationData(CDevMode& block, HANDLE printer) {
  const PrinterInfo2 info(printer);
  if (!info) {
    ZN_TRACE_TEXT(kSource, kFunction, "%s() PRINTER_INFO_2 get error\n", kFunction);
    return E_FAIL;
  }
  if (!IsServedByAnotherComputer(*info)) {
    return S_OK;
  }
  const std::string_view name = info->pPrinterName != nullptr ? info->pPrinterName : "";
  if (OverWriteRegistryAuthenticationInfo(block, *info, printer, GetPrinterKeyName(name))) {
    block.SetDWord(devmode::kOverWriteFlag, 1);
    ZN_TRACE_TEXT(kSource, kFunction, "SetOverWriteFlag");
  }
  return S_OK;
}

HRESULT Transfer(DWORD mode, const OEMDMPARAM& parameters) {
  auto* destination = static_cast<CDevMode*>(parameters.pOEMDMOut);
  const void* source = parameters.pOEMDMIn;
  if (destination == nullptr || (source == nullptr && mode != OEMDM_DEFAULT)) {
    return FailWith(ERROR_INVALID_PARAMETER);
  }
  if (IsOutputTooSmall(parameters)) {
    return FailWith(ERROR_INSUFFICIENT_BUFFER);
  }
  switch (mode) {
    case OEMDM_DEFAULT:
      destination->SetDefaults();
      return S_OK;
    case OEMDM_CONVERT:
      destination->CopyFrom(source);
      return S_OK;
    default:
      destination->Merge(source);
      return RefillAuthenticationData(*destination, parameters.hPrinter);
  }
}

}  // namespace

HRESULT hrOEMDevMode(DWORD mode, OEMDMPARAM* parameters) {
  if (parameters == nullptr || mode < OEMDM_SIZE || mode > OEMDM_MERGE) {
    return FailWith(ERROR_INVALID_PARAMETER);
  }
  ZN_TRACE_TEXT(kSource, kFunction, "%s", kModeNames[mode - OEMDM_SIZE]);
  if (mode == OEMDM_SIZE) {
    parameters->cbBufSize = kDevModeSize;
    return S_OK;
  }
  return Transfer(mode, *parameters);
}

}  // namespace zn
