// Binds the keyword ids to the core driver's option items.
#pragma once

#include "session/sheet_context.h"

namespace zn {

// Added to the keyword id in a keyword item's DMPubID, which is one byte: the mark tells keyword
// items apart, but their id only up to 155.
inline constexpr KeywordId kKeywordItemMark = 100;

// Fills items, default and current selections of the sheet from the core driver's items, marks
// keyword items in DMPubID, and sets every last written value to the current one. Where the printer
// has a keyword and a standard item for one id, the standard item counts.
void BindKeywords(SheetContext& sheet) noexcept;

}  // namespace zn
