// Binds the keyword ids to the core driver's option items.
#pragma once

#include "session/sheet_context.h"

namespace zn {

// Fills items, default and current selections of the sheet, marks keyword items with their id
// plus 100 in DMPubID, and sets every last written value to the current one.
void BindKeywords(SheetContext& sheet) noexcept;

}  // namespace zn
