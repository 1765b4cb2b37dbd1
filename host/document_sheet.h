// One printing-preferences sheet as the core driver runs it: its option items, the plug-in's
// preparation, the pages, and what is kept when the sheet ends.
#pragma once

#include <string>
#include <vector>

#include "host/driver_sheet.h"
#include "host/full_devmode.h"
#include "host/option_items.h"

namespace zn::host {

struct DocumentSheetOptions {
  DWORD flags = DM_IN_PROMPT;  // DM_ flags of the sheet
  bool withPageOrder = true;   // whether the driver offers a page-order item
};

class DocumentSheet : public DriverSheet {
 public:
  // The DEVMODE that a sheet of the queue starts from: `stored`, or the queue's stored one, with
  // the plug-in's block merged, else the defaults.
  [[nodiscard]] static FullDevMode StartDevMode(const PlugIn& plugIn, const Queue& queue,
                                                const FullDevMode* stored = nullptr);

  // Has the plug-in prepare the sheet and add its pages; shows nothing yet.
  DocumentSheet(PlugIn& plugIn, const Queue& queue, const FullDevMode& start,
                const DocumentSheetOptions& options = {});
  ~DocumentSheet();

  [[nodiscard]] OptionItems& Items() { return items_; }
  [[nodiscard]] FullDevMode& DevMode() { return devMode_; }
  [[nodiscard]] const FullDevMode& Start() const { return start_; }
  // Whether DocumentPropertySheets was answered with a success code.
  [[nodiscard]] HRESULT InitResult() const { return initResult_; }
  // The performance counter when DocumentPropertySheets was called, in milliseconds.
  [[nodiscard]] double InitTime() const { return initTime_; }

  // Tells the plug-in that the sheet has ended; answers the DEVMODE to keep: that of the last
  // successful Apply or OK, else the one that the sheet started from.
  FullDevMode Finish();

  // What a careful driver notices: items that changed unannounced, items left visible, a damaged
  // heap or blocks left on it. Complete after Finish.
  [[nodiscard]] const std::vector<std::string>& Faults() const { return faults_; }

 private:
  void Prepare();
  void KeepApplied();
  void FindUnannouncedChanges();

  FullDevMode start_;
  FullDevMode devMode_;  // what the plug-in works on
  FullDevMode kept_;
  OptionItems items_;
  HRESULT initResult_ = E_FAIL;
  double initTime_ = 0;
  bool finished_ = false;
  std::vector<std::string> faults_;
};

}  // namespace zn::host
