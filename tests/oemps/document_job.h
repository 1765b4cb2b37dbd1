// What the core driver has in hand for one document sheet: a heap of its own, the public DEVMODE
// with the plug-in's block, and its option items.
#pragma once

#include "platform/driver_interfaces.h"

#include <array>

#include "oemps/devmode.h"

namespace zn::test {

class DocumentJob {
 public:
  explicit DocumentJob(IPrintOemUI& object);
  ~DocumentJob();
  DocumentJob(const DocumentJob&) = delete;
  DocumentJob& operator=(const DocumentJob&) = delete;

  // CommonUIProp twice, as the core driver calls it. The answer of the filling call.
  HRESULT Prepare();

  // Allocations on the heap that nobody freed.
  [[nodiscard]] int BusyBlocks() const;

  OEMCUIPPARAM param{};
  std::array<OPTITEM, 6> items{};

 private:
  IPrintOemUI& object_;
  DEVMODEW public_{};
  CDevMode block_;
  OPTITEM room_{};  // the plug-in's items; it has none
};

}  // namespace zn::test
