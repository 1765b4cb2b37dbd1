// Replaces one function that a loaded module imports, for the lifetime of the object: the way in
// which tests and measurements change the world around shipped code, which has no seams of its own.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace zn::host {

// The functions that a loaded module imports by name.
[[nodiscard]] std::vector<std::string> ImportedFunctions(HMODULE module);

class ImportPatch {
 public:
  // `function` is the imported name ("MessageBoxA"). Throws HostError for a module that does not
  // import it.
  template <class Function>
  ImportPatch(HMODULE module, const char* function, Function* replacement)
      : ImportPatch(module, function, reinterpret_cast<void*>(replacement), 0) {}
  ~ImportPatch();
  ImportPatch(const ImportPatch&) = delete;
  ImportPatch& operator=(const ImportPatch&) = delete;

  // What the module called before.
  template <class Function>
  [[nodiscard]] Function* Original() const noexcept {
    return reinterpret_cast<Function*>(original_);
  }

 private:
  ImportPatch(HMODULE module, const char* function, void* replacement, int);

  void** slot_;
  void* original_;
};

}  // namespace zn::host
