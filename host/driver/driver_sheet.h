// What the driver's sheets around the plug-in's pages have in common: what they hand over, and the
// requests that go on to the plug-in.
#pragma once

#include "platform/driver_interfaces.h"

#include "host/driver/plug_in.h"
#include "host/driver/queue.h"
#include "host/window/property_sheet.h"

namespace zn::host {

// The heap that a sheet lends to the plug-in.
class SheetHeap {
 public:
  SheetHeap() : heap_(::HeapCreate(0, 0, 0)) {}
  ~SheetHeap() { ::HeapDestroy(heap_); }
  SheetHeap(const SheetHeap&) = delete;
  SheetHeap& operator=(const SheetHeap&) = delete;

  [[nodiscard]] HANDLE Handle() const { return heap_; }
  [[nodiscard]] bool IsSound() const { return ::HeapValidate(heap_, 0, nullptr) != FALSE; }
  // Blocks that nobody freed.
  [[nodiscard]] int LiveBlocks() const;

 private:
  HANDLE heap_;
};

class DriverSheet {
 public:
  DriverSheet(const DriverSheet&) = delete;
  DriverSheet& operator=(const DriverSheet&) = delete;

  [[nodiscard]] PropertySheet& Sheet() { return sheet_; }
  // What the plug-in answered to the header request.
  [[nodiscard]] const std::wstring& HeaderTitle() const { return headerTitle_; }
  void Open();

 protected:
  // The plug-in's method that serves the sheet.
  using Method = HRESULT (STDMETHODCALLTYPE IPrintOemUI::*)(PPROPSHEETUI_INFO, LPARAM);

  // `flags` are those of the sheet; the window's title is the text `titleId` with the queue's name.
  DriverSheet(PlugIn& plugIn, const Queue& queue, Method method, DWORD flags, UINT titleId);
  ~DriverSheet() = default;

  // Has the plug-in add its pages.
  HRESULT AddPages();
  // Tells the plug-in of the sheet; answers its result.
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

 private:
  Method method_;
  UINT titleId_;
  std::wstring headerTitle_;
};

}  // namespace zn::host
