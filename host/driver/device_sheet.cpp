#include "host/driver/device_sheet.h"

#include "host/base/host_ids.h"

namespace zn::host {

DeviceSheet::DeviceSheet(PlugIn& plugIn, const Queue& queue, bool mayChange)
    : DriverSheet(plugIn, queue, &IPrintOemUI::DevicePropertySheets,
                  mayChange ? 0 : DPS_NOPERMISSION, IDS_PROPERTIES_TITLE) {
  // The device settings of this driver have no items of their own.
  plugIn_->CommonUIProp(OEMCUIP_PRNPROP, &itemParameter_);
  OPTITEM place{};
  itemParameter_.pOEMOptItems = &place;
  plugIn_->CommonUIProp(OEMCUIP_PRNPROP, &itemParameter_);
  itemParameter_.pOEMOptItems = nullptr;
  AddPages();
}

DeviceSheet::~DeviceSheet() {
  sheet_.Close();
  Notify(PROPSHEETUI_REASON_DESTROY, TRUE);
}

}  // namespace zn::host
