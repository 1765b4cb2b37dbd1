// The printer-properties sheet with the plug-in's page, as the core driver runs it.
#pragma once

#include "host/driver/driver_sheet.h"

namespace zn::host {

class DeviceSheet : public DriverSheet {
 public:
  // `mayChange`: whether the user has the right to change the printer.
  DeviceSheet(PlugIn& plugIn, const Queue& queue, bool mayChange);
  ~DeviceSheet();
};

}  // namespace zn::host
