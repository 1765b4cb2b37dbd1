// Entry point of the DLL.
#include <windows.h>

#include "platform/resources.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    zn::SetModuleInstance(instance);
  }
  return TRUE;
}
