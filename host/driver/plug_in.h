// The plug-in as the core driver holds it: the loaded module, its object, and the calls that the
// driver makes right after loading.
#pragma once

#include "platform/driver_interfaces.h"

#include <memory>
#include <string>

#include "host/driver/driver_helper.h"
#include "host/driver/queue_devmode.h"
#include "platform/handles.h"

namespace zn::host {

struct Releaser {
  void operator()(IUnknown* object) const noexcept { object->Release(); }
};

class PlugIn {
 public:
  // Loads, makes the object, publishes the helper interface, asks for the information. Throws
  // HostError naming the step that failed.
  explicit PlugIn(const std::string& path);
  ~PlugIn();
  PlugIn(const PlugIn&) = delete;
  PlugIn& operator=(const PlugIn&) = delete;

  [[nodiscard]] IPrintOemUI* operator->() const { return object_.get(); }
  [[nodiscard]] HMODULE Module() const { return module_.get(); }
  [[nodiscard]] DriverHelper& Helper() { return helper_; }

  // Defaults the plug-in's block of `devmode` and, when there is a stored one, merges that in.
  void FillBlock(HANDLE printer, QueueDevMode& devmode, const QueueDevMode* stored) const;

 private:
  [[nodiscard]] HRESULT CallDevMode(DWORD mode, OEMDMPARAM& parameter) const;

  DriverHelper helper_;  // outlives the object, which releases it
  UniqueModule module_;
  std::unique_ptr<IPrintOemUI, Releaser> object_;
};

}  // namespace zn::host
