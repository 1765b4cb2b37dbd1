#include "host/driver/driver_sheet.h"

#include "host/base/files.h"
#include "host/base/host_text.h"

namespace zn::host {

int SheetHeap::LiveBlocks() const {
  int blocks = 0;
  PROCESS_HEAP_ENTRY entry{};
  while (::HeapWalk(heap_, &entry)) {
    blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
  }
  return blocks;
}

DriverSheet::DriverSheet(PlugIn& plugIn, const Queue& queue, Method method, DWORD flags,
                         UINT titleId)
    : plugIn_(plugIn), queueName_(queue.WideName()), method_(method), titleId_(titleId) {
  object_ = {sizeof object_, &procedures_};
  const auto fill = [&](auto& parameter) {
    parameter.cbSize = sizeof parameter;
    parameter.poemuiobj = &object_;
    parameter.hPrinter = queue.Handle();
    parameter.pPrinterName = queueName_.data();
    parameter.hModule = plugIn.Module();
    parameter.hOEMHeap = heap_.Handle();
    parameter.dwFlags = flags;
  };
  fill(itemParameter_);
  fill(sheetParameter_);
}

HRESULT DriverSheet::AddPages() {
  info_ = sheet_.Info(reinterpret_cast<LPARAM>(&sheetParameter_));
  return (plugIn_.operator->()->*method_)(&info_, info_.lParamInit);
}

void DriverSheet::Open() {
  PROPSHEETUI_INFO_HEADER header{};
  header.cbSize = sizeof header;
  Notify(PROPSHEETUI_REASON_GET_INFO_HEADER, reinterpret_cast<LPARAM>(&header));
  if (header.pTitle != nullptr) {
    headerTitle_ = reinterpret_cast<const wchar_t*>(header.pTitle);
  }
  sheet_.Open(FormatText(titleId_, AnsiText(queueName_)));
}

LONG_PTR DriverSheet::Notify(WORD reason, LPARAM lParam) {
  info_.Reason = reason;
  (plugIn_.operator->()->*method_)(&info_, lParam);
  return static_cast<LONG_PTR>(info_.Result);
}

}  // namespace zn::host
