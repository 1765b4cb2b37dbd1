// Replaces what the spooler answers about stored settings: GetPrinterA levels 8 and 9 and the size
// that DocumentPropertiesA tells. Other calls reach the real spooler.
#pragma once

#include <windows.h>
// This must come behind windows.h.
#include <winspool.h>

#include <cstddef>
#include <vector>

#include "iat_patch.h"

namespace zn::test {

class FakeStored {
 public:
  enum class Kind { Real, Fails, NoDevMode, Bytes };
  struct Answer {
    Kind kind = Kind::Real;
    std::vector<std::byte> bytes;  // a DEVMODEA and what lies behind it
  };

  FakeStored();
  ~FakeStored();
  FakeStored(const FakeStored&) = delete;
  FakeStored& operator=(const FakeStored&) = delete;

  Answer user;            // level 9
  Answer global;          // level 8
  LONG documentSize = 0;  // 0: the real one's

 private:
  static BOOL WINAPI GetPrinter(HANDLE printer, DWORD level, LPBYTE memory, DWORD size,
                                LPDWORD need);
  static LONG WINAPI DocumentProperties(HWND window, HANDLE printer, LPSTR name, PDEVMODEA output,
                                        PDEVMODEA input, DWORD mode);

  ImportPatch getPrinter_;
  ImportPatch documentProperties_;
};

}  // namespace zn::test
