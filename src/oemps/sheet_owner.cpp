#include "oemps/sheet_owner.h"

#include <new>

namespace zn {

void SheetDeleter::operator()(SheetContext* sheet) const noexcept {
  const HANDLE heap = sheet->hOEMHeap;
  std::destroy_at(sheet);
  ::HeapFree(heap, 0, sheet);
}

UniqueSheet CreateSheet(HANDLE heap) noexcept {
  void* memory = ::HeapAlloc(heap, HEAP_ZERO_MEMORY, sizeof(SheetContext));
  if (memory == nullptr) {
    return nullptr;
  }
  auto* sheet = new (memory) SheetContext{};
  sheet->hOEMHeap = heap;
  return UniqueSheet(sheet);
}

}  // namespace zn
