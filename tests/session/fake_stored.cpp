#include "fake_stored.h"

#include <cstring>

namespace zn::test {
namespace {

FakeStored* g_active = nullptr;

}  // namespace

FakeStored::FakeStored()
    : getPrinter_(::GetModuleHandleA(nullptr), "GetPrinterA", &GetPrinter),
      documentProperties_(::GetModuleHandleA(nullptr), "DocumentPropertiesA", &DocumentProperties) {
  g_active = this;
}

FakeStored::~FakeStored() {
  g_active = nullptr;
}

BOOL WINAPI FakeStored::GetPrinter(HANDLE printer, DWORD level, LPBYTE memory, DWORD size,
                                   LPDWORD need) {
  const Answer& answer = level == 9 ? g_active->user : g_active->global;
  if ((level != 8 && level != 9) || answer.kind == Kind::Real) {
    return g_active->getPrinter_.Original<decltype(GetPrinter)>()(printer, level, memory, size,
                                                                  need);
  }
  if (answer.kind == Kind::Fails) {
    return FALSE;
  }
  PRINTER_INFO_9A info{};
  *need = static_cast<DWORD>(sizeof info + answer.bytes.size());
  if (size < *need) {
    ::SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return FALSE;
  }
  if (answer.kind == Kind::Bytes) {
    info.pDevMode = reinterpret_cast<DEVMODEA*>(memory + sizeof info);
    std::memcpy(info.pDevMode, answer.bytes.data(), answer.bytes.size());
  }
  std::memcpy(memory, &info, sizeof info);
  return TRUE;
}

LONG WINAPI FakeStored::DocumentProperties(HWND window, HANDLE printer, LPSTR name,
                                           PDEVMODEA output, PDEVMODEA input, DWORD mode) {
  return g_active->documentSize != 0
             ? g_active->documentSize
             : g_active->documentProperties_.Original<decltype(DocumentProperties)>()(
                   window, printer, name, output, input, mode);
}

}  // namespace zn::test
