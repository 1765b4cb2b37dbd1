// The printer-properties sheet with the plug-in's page, as the core driver runs it.
#pragma once

#include "platform/driver_interfaces.h"

#include <string>

#include "host/document_sheet.h"
#include "host/plug_in.h"
#include "host/property_sheet.h"
#include "host/queue.h"

namespace zn::host {

class DeviceSheet {
 public:
  // `mayChange`: whether the user has the right to change the printer.
  DeviceSheet(PlugIn& plugIn, const Queue& queue, bool mayChange);
  ~DeviceSheet();
  DeviceSheet(const DeviceSheet&) = delete;
  DeviceSheet& operator=(const DeviceSheet&) = delete;

  [[nodiscard]] PropertySheet& Sheet() { return sheet_; }
  [[nodiscard]] const std::wstring& HeaderTitle() const { return headerTitle_; }
  void Open();

 private:
  LONG_PTR Notify(WORD reason, LPARAM lParam);

  PlugIn& plugIn_;
  std::wstring queueName_;
  SheetHeap heap_;
  PropertySheet sheet_;
  OEMUIPROCS procedures_{};
  OEMUIOBJ object_{};
  OEMCUIPPARAM itemParameter_{};
  OEMUIPSPARAM sheetParameter_{};
  PROPSHEETUI_INFO info_{};
  std::wstring headerTitle_;
};

}  // namespace zn::host
