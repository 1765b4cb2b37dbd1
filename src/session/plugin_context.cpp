#include "session/plugin_context.h"

namespace zn {

PlugInContext& ThePlugInContext() noexcept {
  static PlugInContext context{};
  return context;
}

}  // namespace zn
