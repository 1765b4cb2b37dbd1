// Where the data of a document sheet lives: on the heap that the core driver hands over and
// destroys after the sheet.
#pragma once

#include <memory>

#include "session/sheet_context.h"

namespace zn {

// Ends the record and gives its memory back to the heap that its first field names.
struct SheetDeleter {
  void operator()(SheetContext* sheet) const noexcept;
};
using UniqueSheet = std::unique_ptr<SheetContext, SheetDeleter>;

// A zero-filled record on `heap`; null when there is no room.
[[nodiscard]] UniqueSheet CreateSheet(HANDLE heap) noexcept;

}  // namespace zn
