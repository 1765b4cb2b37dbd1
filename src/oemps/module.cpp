// Entry point of the DLL.
#include <windows.h>

#include "platform/resources.h"

// Of the C++ runtime: frees what it keeps for exceptions when memory has run out.
namespace __gnu_cxx {
void __freeres();
}

namespace {

// Callers load and unload the module for every sheet; the runtime would leave its reserve behind
// each time.
struct RuntimeReserve {
  ~RuntimeReserve() { __gnu_cxx::__freeres(); }
} g_runtimeReserve;

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    zn::SetModuleInstance(instance);
  }
  return TRUE;
}
