#include "host/driver/driver_helper.h"

#include <cstring>

namespace zn::host {

HRESULT DriverHelper::QueryInterface(REFIID iid, void** object) {
  if (::IsEqualIID(iid, IID_IUnknown) || ::IsEqualIID(iid, IID_IPrintOemDriverUI)) {
    *object = this;
    AddRef();
    return S_OK;
  }
  *object = nullptr;
  return E_NOINTERFACE;
}

ULONG DriverHelper::AddRef() {
  return static_cast<ULONG>(::InterlockedIncrement(&references_));
}

ULONG DriverHelper::Release() {
  return static_cast<ULONG>(::InterlockedDecrement(&references_));
}

HRESULT DriverHelper::DrvGetDriverSetting(PVOID /*pci*/, PCSTR Feature, PVOID pOutput, DWORD cbSize,
                                          PDWORD pcbNeeded, PDWORD pdwOptionsReturned) {
  // Small numbers stand for settings that are no features; this driver has none of them.
  OPTITEM* item = items_ != nullptr && reinterpret_cast<ULONG_PTR>(Feature) > 0x10000
                      ? items_->Find(Feature)
                      : nullptr;
  if (item == nullptr || pcbNeeded == nullptr || pdwOptionsReturned == nullptr) {
    return E_FAIL;
  }
  const std::string name = items_->SelectionName(*item, item->Sel);
  *pcbNeeded = static_cast<DWORD>(name.size() + 1);
  if (pOutput == nullptr || cbSize < *pcbNeeded) {
    return E_FAIL;
  }
  std::memcpy(pOutput, name.c_str(), *pcbNeeded);
  *pdwOptionsReturned = 1;
  return S_OK;
}

HRESULT DriverHelper::DrvUpgradeRegistrySetting(HANDLE /*hPrinter*/, PCSTR /*pFeature*/,
                                                PCSTR /*pOption*/) {
  return E_NOTIMPL;
}

HRESULT DriverHelper::DrvUpdateUISetting(PVOID /*pci*/, PVOID pOptItem, DWORD dwPreviousSelection,
                                         DWORD dwMode) {
  const auto* item = static_cast<const OPTITEM*>(pOptItem);
  const std::string keyword = items_ != nullptr ? items_->KeywordOf(item) : "?";
  if (items_ == nullptr || keyword == "?") {
    updates_.push_back({keyword, std::to_string(dwPreviousSelection), "?", dwMode});
    return E_FAIL;
  }
  updates_.push_back({keyword,
                      items_->SelectionName(*item, static_cast<std::int32_t>(dwPreviousSelection)),
                      items_->SelectionName(*item, item->Sel), dwMode});
  return S_OK;
}

}  // namespace zn::host
