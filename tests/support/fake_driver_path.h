// What the spooler says about the driver's files, for the lifetime of the object.
#pragma once

#include <windows.h>

#include <cstring>
#include <string>

#include "iat_patch.h"

namespace zn::test {

class FakeDriverPath {
 public:
  // For the calls of that module; null: of the program.
  explicit FakeDriverPath(HMODULE module = nullptr)
      : patch_(module != nullptr ? module : ::GetModuleHandleA(nullptr), "GetPrinterDriverA",
               &GetDriver) {}

  static inline std::string path;  // empty: the spooler does not know the driver
  static inline std::string data;  // its data file, beside which the device profiles lie

 private:
  static BOOL WINAPI GetDriver(HANDLE, LPSTR, DWORD, LPBYTE memory, DWORD size, LPDWORD need) {
    *need = static_cast<DWORD>(sizeof(DRIVER_INFO_2A) + path.size() + data.size() + 2);
    if (path.empty() || size < *need) {
      return FALSE;
    }
    auto* const info = reinterpret_cast<DRIVER_INFO_2A*>(memory);
    *info = DRIVER_INFO_2A{};
    info->pDriverPath = reinterpret_cast<char*>(info + 1);
    std::strcpy(info->pDriverPath, path.c_str());
    info->pDataFile = info->pDriverPath + path.size() + 1;
    std::strcpy(info->pDataFile, data.c_str());
    return TRUE;
  }

  ImportPatch patch_;
};

inline std::string BesideProgram(const char* file) {
  char program[MAX_PATH] = "";
  ::GetModuleFileNameA(nullptr, program, sizeof program);
  return std::string(program, std::strrchr(program, '\\') + 1) + file;
}

}  // namespace zn::test
