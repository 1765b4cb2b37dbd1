// One printing-preferences sheet as the core driver runs it: its option items, the plug-in's
// preparation, the pages, and what is kept when the sheet ends.
#pragma once

#include "platform/driver_interfaces.h"

#include <string>
#include <vector>

#include "host/full_devmode.h"
#include "host/option_items.h"
#include "host/plug_in.h"
#include "host/property_sheet.h"
#include "host/queue.h"

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

struct DocumentSheetOptions {
  DWORD flags = DM_IN_PROMPT;  // DM_ flags of the sheet
  bool withPageOrder = true;   // whether the driver offers a page-order item
};

class DocumentSheet {
 public:
  // The DEVMODE that a sheet of the queue starts from: `stored`, or the queue's stored one, with
  // the plug-in's block merged, else the defaults.
  [[nodiscard]] static FullDevMode StartDevMode(const PlugIn& plugIn, const Queue& queue,
                                                const FullDevMode* stored = nullptr);

  // Has the plug-in prepare the sheet and add its pages; shows nothing yet.
  DocumentSheet(PlugIn& plugIn, const Queue& queue, const FullDevMode& start,
                const DocumentSheetOptions& options = {});
  ~DocumentSheet();
  DocumentSheet(const DocumentSheet&) = delete;
  DocumentSheet& operator=(const DocumentSheet&) = delete;

  [[nodiscard]] PropertySheet& Sheet() { return sheet_; }
  [[nodiscard]] OptionItems& Items() { return items_; }
  [[nodiscard]] FullDevMode& DevMode() { return devMode_; }
  [[nodiscard]] const FullDevMode& Start() const { return start_; }
  // What the plug-in answered to the header request.
  [[nodiscard]] const std::wstring& HeaderTitle() const { return headerTitle_; }
  // Whether DocumentPropertySheets was answered with a success code.
  [[nodiscard]] HRESULT InitResult() const { return initResult_; }
  // The performance counter when DocumentPropertySheets was called, in milliseconds.
  [[nodiscard]] double InitTime() const { return initTime_; }

  void Open();
  // Tells the plug-in that the sheet has ended; answers the DEVMODE to keep: that of the last
  // successful Apply or OK, else the one that the sheet started from.
  FullDevMode Finish();

  // What a careful driver notices: items that changed unannounced, items left visible, a damaged
  // heap or blocks left on it. Complete after Finish.
  [[nodiscard]] const std::vector<std::string>& Faults() const { return faults_; }

 private:
  void Prepare();
  LONG_PTR Notify(WORD reason, LPARAM lParam);
  void KeepApplied();
  void FindUnannouncedChanges();

  PlugIn& plugIn_;
  std::wstring queueName_;
  FullDevMode start_;
  FullDevMode devMode_;  // what the plug-in works on
  FullDevMode kept_;
  SheetHeap heap_;
  OptionItems items_;
  PropertySheet sheet_;
  OEMUIPROCS procedures_{};
  OEMUIOBJ object_{};
  OEMCUIPPARAM itemParameter_{};
  OEMUIPSPARAM sheetParameter_{};
  PROPSHEETUI_INFO info_{};
  std::wstring headerTitle_;
  HRESULT initResult_ = E_FAIL;
  double initTime_ = 0;
  bool finished_ = false;
  std::vector<std::string> faults_;
};

}  // namespace zn::host
