// The core driver's helper interface as the plug-in gets it, with a record of what it was told.
#pragma once

#include "platform/driver_interfaces.h"

#include <string>
#include <vector>

#include "host/driver/option_items.h"

namespace zn::host {

// One call of DrvUpdateUISetting.
struct SettingUpdate {
  std::string keyword;  // "?": not one of the driver's items
  std::string before;   // the selection that the plug-in named as the old one
  std::string after;    // what the item shows now
  DWORD mode;           // OEMCUIP_DOCPROP or OEMCUIP_PRNPROP
};

// Lives as long as the plug-in; reference counts are only watched.
class DriverHelper final : public IPrintOemDriverUI {
 public:
  // The items of the open sheet; null: none is open.
  void SetItems(OptionItems* items) { items_ = items; }

  [[nodiscard]] const std::vector<SettingUpdate>& Updates() const { return updates_; }
  void ClearUpdates() { updates_.clear(); }
  // References that the plug-in holds.
  [[nodiscard]] LONG References() const { return references_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE DrvGetDriverSetting(PVOID pci, PCSTR Feature, PVOID pOutput,
                                                DWORD cbSize, PDWORD pcbNeeded,
                                                PDWORD pdwOptionsReturned) override;
  HRESULT STDMETHODCALLTYPE DrvUpgradeRegistrySetting(HANDLE hPrinter, PCSTR pFeature,
                                                      PCSTR pOption) override;
  HRESULT STDMETHODCALLTYPE DrvUpdateUISetting(PVOID pci, PVOID pOptItem, DWORD dwPreviousSelection,
                                               DWORD dwMode) override;

 private:
  OptionItems* items_ = nullptr;
  std::vector<SettingUpdate> updates_;
  LONG references_ = 0;
};

}  // namespace zn::host
