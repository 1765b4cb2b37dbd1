// One printing-preferences sheet as the core driver runs it: its option items, the plug-in's
// preparation, the pages, and what is kept when the sheet ends.
#pragma once

#include <string>
#include <vector>

#include "host/driver/driver_sheet.h"
#include "host/driver/option_items.h"
#include "host/driver/queue_devmode.h"

namespace zn::host {

class DocumentSheet : public DriverSheet {
 public:
  // The DEVMODE that a sheet of the queue starts from: `stored`, or the queue's stored one, with
  // the plug-in's block merged, else the defaults.
  [[nodiscard]] static QueueDevMode StartDevMode(const PlugIn& plugIn, const Queue& queue,
                                                 const QueueDevMode* stored = nullptr);

  // Has the plug-in prepare the sheet and add its pages; shows nothing yet.
  DocumentSheet(PlugIn& plugIn, const Queue& queue, const QueueDevMode& start);
  ~DocumentSheet();

  [[nodiscard]] OptionItems& Items() { return items_; }
  [[nodiscard]] QueueDevMode& DevMode() { return devMode_; }
  [[nodiscard]] const QueueDevMode& Start() const { return start_; }
  // The performance counter when DocumentPropertySheets was called, in milliseconds.
  [[nodiscard]] double InitTime() const { return initTime_; }

  // Tells the plug-in that the sheet has ended; answers the DEVMODE to keep: that of the last
  // successful Apply or OK, else the one that the sheet started from.
  QueueDevMode Finish();

  // Whether the plug-in refused to prepare the sheet or to add its pages.
  [[nodiscard]] bool IsRefused() const { return isRefused_; }
  // What a careful driver notices: refused calls, items that changed unannounced, items left
  // visible, a damaged heap or blocks left on it. Complete after Finish.
  [[nodiscard]] const std::vector<std::string>& Faults() const { return faults_; }

 private:
  void Prepare();
  void Refused(const char* call);
  void KeepApplied();
  void FindUnannouncedChanges();

  QueueDevMode start_;
  QueueDevMode devMode_;  // what the plug-in works on
  QueueDevMode kept_;
  OptionItems items_;
  double initTime_ = 0;
  bool finished_ = false;
  bool isRefused_ = false;
  std::vector<std::string> faults_;
};

}  // namespace zn::host
