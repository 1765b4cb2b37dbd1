// The pages that a document sheet consists of: what the sheet needs of them to add them.
#pragma once

#include "platform/driver_interfaces.h"

#include "session/sheet_context.h"

namespace zn {

// One dialog page; the sheet's SheetContext travels as lParam of its PROPSHEETPAGE.
struct PageDefinition {
  int templateId;
  DLGPROC procedure;
};

// In the order of the sheet; the advanced tree stands between the last two.
inline constexpr int kDialogPageCount = 4;
[[nodiscard]] const PageDefinition* DialogPages() noexcept;

// Fills the tree of advanced settings from the sheet. The record is process-wide; its owner of
// resources (hInstCaller) is left to the caller. Null when memory runs out.
[[nodiscard]] COMPROPSHEETUI* PrepareAdvancedTree(SheetContext& sheet) noexcept;

}  // namespace zn
