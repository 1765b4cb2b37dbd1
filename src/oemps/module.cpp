// Entry point of the DLL.
#include <windows.h>

#include <cstdlib>
#include <exception>

#include "platform/resources.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    zn::SetModuleInstance(instance);
  }
  return TRUE;
}

namespace __gnu_cxx {

// The library's own handler prints the exception's name; that brings 70 KB of demangling and
// formatted output to a process that has no console.
void __verbose_terminate_handler() {
  std::abort();
}

}  // namespace __gnu_cxx
