// The sample printer's queue in the system's spooler: its installation, its printer description,
// its stored DEVMODE.
#pragma once

#include <windows.h>
// This must come behind windows.h.
#include <winspool.h>

#include <optional>
#include <string>

#include "host/driver/printer_description.h"
#include "host/driver/queue_devmode.h"
#include "platform/handles.h"

namespace zn::host {

inline constexpr char kSampleQueue[] = "ZN Sample Printer";
inline constexpr char kSampleDriver[] = "ZN Lumera 5050";

// Installs, from the folder of this program, the printer description, the companions, the device
// profile and the plug-in beside the driver, and makes the queue. Doing it again only refreshes
// the files. Throws HostError.
void InstallQueue(const std::string& name);

class Queue {
 public:
  // Throws HostError when the queue cannot be opened or its printer description not be read.
  explicit Queue(const std::string& name);

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] std::wstring WideName() const;
  [[nodiscard]] HANDLE Handle() const { return printer_.get(); }
  [[nodiscard]] const PrinterDescription& Description() const { return *description_; }
  // The plug-in beside the driver's files.
  [[nodiscard]] std::string PlugInPath() const { return driverFolder_ + "Zn55psu1.dll"; }

  // What this host stored for the queue; nullopt when that is another program's DEVMODE.
  [[nodiscard]] std::optional<QueueDevMode> StoredDevMode() const;
  // Stores it as the user's default. Throws HostError.
  void Store(QueueDevMode& devmode) const;

 private:
  std::string name_;
  UniquePrinter printer_;
  std::string driverFolder_;  // with a backslash at its end
  std::optional<PrinterDescription> description_;
};

}  // namespace zn::host
