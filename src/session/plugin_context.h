// The process-wide plug-in context: which document sheet is open. Plain data of the one
// user-interface thread; only one document sheet may be open per process.
#pragma once

#include "session/sheet_context.h"

namespace zn {

struct PlugInContext {
  SheetContext* sheet;  // null: no sheet is prepared
};

[[nodiscard]] PlugInContext& ThePlugInContext() noexcept;

}  // namespace zn
