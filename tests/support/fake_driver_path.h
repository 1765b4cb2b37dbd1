// What the spooler says about the driver's file, for the lifetime of the object.
#pragma once

#include <windows.h>

#include <cstring>
#include <string>

#include "iat_patch.h"

namespace zn::test {

class FakeDriverPath {
 public:
  static inline std::string path;  // empty: the spooler does not know the driver

 private:
  static BOOL WINAPI GetDriver(HANDLE, LPSTR, DWORD, LPBYTE memory, DWORD size, LPDWORD need) {
    *need = static_cast<DWORD>(sizeof(DRIVER_INFO_2A) + path.size() + 1);
    if (path.empty() || size < *need) {
      return FALSE;
    }
    auto* const info = reinterpret_cast<DRIVER_INFO_2A*>(memory);
    *info = DRIVER_INFO_2A{};
    info->pDriverPath = reinterpret_cast<char*>(info + 1);
    std::strcpy(info->pDriverPath, path.c_str());
    return TRUE;
  }

  ImportPatch patch_{::GetModuleHandleA(nullptr), "GetPrinterDriverA", &GetDriver};
};

inline std::string BesideProgram(const char* file) {
  char program[MAX_PATH] = "";
  ::GetModuleFileNameA(nullptr, program, sizeof program);
  return std::string(program, std::strrchr(program, '\\') + 1) + file;
}

}  // namespace zn::test
