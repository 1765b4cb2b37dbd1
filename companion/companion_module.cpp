#include "companion/companion_module.h"

#include <array>

#include "companion/call_counter.h"

namespace zn::companion {
namespace {
HINSTANCE g_instance = nullptr;
}

std::string LoadText(UINT id) {
  std::array<char, 256> text{};
  const int length = ::LoadStringA(g_instance, id, text.data(), static_cast<int>(text.size()));
  return {text.data(), static_cast<std::size_t>(length)};
}

int RunDialog(int templateId, HWND owner, DLGPROC procedure, void* parameter) noexcept {
  const INT_PTR result = ::DialogBoxParamA(g_instance, MAKEINTRESOURCEA(templateId), owner,
                                           procedure, reinterpret_cast<LPARAM>(parameter));
  return result > 0 ? static_cast<int>(result) : 0;
}

std::string ControlText(HWND dialog, int control) {
  const HWND window = ::GetDlgItem(dialog, control);
  std::string text(static_cast<std::size_t>(::GetWindowTextLengthA(window)) + 1, '\0');
  const int length = ::GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

}  // namespace zn::companion

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    zn::companion::g_instance = instance;
    zn::companion::OpenCallCounts();
  } else if (reason == DLL_PROCESS_DETACH) {
    zn::companion::CloseCallCounts();
  }
  return TRUE;
}
