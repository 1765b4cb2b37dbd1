#include "host/base/import_patch.h"

#include <cstddef>
#include <cstring>
#include <string>

#include "host/base/host_error.h"

namespace zn::host {
namespace {

// Hands every function that is imported by name to `visit`, with its slot, until that answers true.
template <class Visit>
void VisitImports(HMODULE module, const Visit& visit) {
  auto* base = reinterpret_cast<std::byte*>(module);
  const auto* dos = reinterpret_cast<IMAGE_DOS_HEADER*>(base);
  const auto* nt = reinterpret_cast<IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const auto& directory = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  if (directory.VirtualAddress == 0) {
    return;
  }
  auto* import = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
  for (; import->Name != 0; ++import) {
    const auto* name = reinterpret_cast<IMAGE_THUNK_DATA*>(base + import->OriginalFirstThunk);
    auto* slot = reinterpret_cast<void**>(base + import->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
      const auto* text = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
      if (!IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal) && visit(text->Name, slot)) {
        return;
      }
    }
  }
}

void** FindSlot(HMODULE module, const char* function) {
  void** found = nullptr;
  VisitImports(module, [&](const char* name, void** slot) {
    found = std::strcmp(name, function) == 0 ? slot : nullptr;
    return found != nullptr;
  });
  return found;
}

void Write(void** slot, void* value) {
  DWORD old = 0;
  ::VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &old);
  *slot = value;
  ::VirtualProtect(slot, sizeof *slot, old, &old);
}

}  // namespace

std::vector<std::string> ImportedFunctions(HMODULE module) {
  std::vector<std::string> names;
  VisitImports(module, [&](const char* name, void**) {
    names.emplace_back(name);
    return false;
  });
  return names;
}

ImportPatch::ImportPatch(HMODULE module, const char* function, void* replacement, int)
    : slot_(FindSlot(module, function)) {
  if (slot_ == nullptr) {
    throw HostError(std::string("the module does not import ") + function);
  }
  original_ = *slot_;
  Write(slot_, replacement);
}

ImportPatch::~ImportPatch() {
  Write(slot_, original_);
}

}  // namespace zn::host
