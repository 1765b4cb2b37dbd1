#include "host/device_sheet.h"

#include "host/files.h"
#include "host/host_text.h"

namespace zn::host {

DeviceSheet::DeviceSheet(PlugIn& plugIn, const Queue& queue, bool mayChange)
    : plugIn_(plugIn), queueName_(queue.WideName()) {
  object_ = {sizeof object_, &procedures_};
  const DWORD flags = mayChange ? 0 : DPS_NOPERMISSION;
  itemParameter_.cbSize = sizeof itemParameter_;
  itemParameter_.poemuiobj = &object_;
  itemParameter_.hPrinter = queue.Handle();
  itemParameter_.pPrinterName = queueName_.data();
  itemParameter_.hModule = plugIn.Module();
  itemParameter_.hOEMHeap = heap_.Handle();
  itemParameter_.dwFlags = flags;
  // The device settings of this driver have no items of their own.
  plugIn_->CommonUIProp(OEMCUIP_PRNPROP, &itemParameter_);
  OPTITEM place{};
  itemParameter_.pOEMOptItems = &place;
  plugIn_->CommonUIProp(OEMCUIP_PRNPROP, &itemParameter_);

  sheetParameter_.cbSize = sizeof sheetParameter_;
  sheetParameter_.poemuiobj = &object_;
  sheetParameter_.hPrinter = queue.Handle();
  sheetParameter_.pPrinterName = queueName_.data();
  sheetParameter_.hModule = plugIn.Module();
  sheetParameter_.hOEMHeap = heap_.Handle();
  sheetParameter_.dwFlags = flags;
  info_ = sheet_.Info(reinterpret_cast<LPARAM>(&sheetParameter_));
  plugIn_->DevicePropertySheets(&info_, info_.lParamInit);
}

DeviceSheet::~DeviceSheet() {
  sheet_.Close();
  Notify(PROPSHEETUI_REASON_DESTROY, TRUE);
}

void DeviceSheet::Open() {
  PROPSHEETUI_INFO_HEADER header{};
  header.cbSize = sizeof header;
  Notify(PROPSHEETUI_REASON_GET_INFO_HEADER, reinterpret_cast<LPARAM>(&header));
  if (header.pTitle != nullptr) {
    headerTitle_ = reinterpret_cast<const wchar_t*>(header.pTitle);
  }
  sheet_.Open(FormatText(IDS_PROPERTIES_TITLE, AnsiText(queueName_)));
}

LONG_PTR DeviceSheet::Notify(WORD reason, LPARAM lParam) {
  info_.Reason = reason;
  plugIn_->DevicePropertySheets(&info_, lParam);
  return info_.Result;
}

}  // namespace zn::host
