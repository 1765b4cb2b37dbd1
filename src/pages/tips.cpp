#include "pages/tips.h"

#include <commctrl.h>

#include "pages/page_images.h"
#include "platform/resources.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

constexpr int kWidestTip = 260;  // pixels at 96 DPI

// The illustration carries the handle: a page has no room of its own for it.
HWND TipsOf(HWND page) noexcept {
  const HWND illustration = ::GetDlgItem(page, IDC_ILLUSTRATION);
  return illustration != nullptr
             ? reinterpret_cast<HWND>(::GetWindowLongPtrA(illustration, GWLP_USERDATA))
             : nullptr;
}

}  // namespace

void MakeTips(HWND page) {
  const HWND illustration = ::GetDlgItem(page, IDC_ILLUSTRATION);
  if (illustration == nullptr || TipsOf(page) != nullptr) {
    return;
  }
  const HWND tips = ::CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                                      WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, page,
                                      nullptr, ModuleInstance(), nullptr);
  ::SendMessageA(tips, TTM_SETMAXTIPWIDTH, 0, ::MulDiv(kWidestTip, ScreenDpi(), 96));
  ::SetWindowLongPtrA(illustration, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(tips));
}

void SetTip(HWND page, HWND control, const std::string& text) {
  const HWND tips = TipsOf(page);
  if (tips == nullptr || control == nullptr) {
    return;
  }
  // The mouse rests on the list within an extended one; others do not know the message.
  const auto inner = reinterpret_cast<HWND>(::SendMessageA(control, CBEM_GETCOMBOCONTROL, 0, 0));
  std::string shown = text;
  TOOLINFOA tool{};
  tool.cbSize = TTTOOLINFOA_V1_SIZE;  // what every version of the common controls takes
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = page;
  tool.uId = reinterpret_cast<UINT_PTR>(inner != nullptr ? inner : control);
  tool.lpszText = shown.data();
  // Adding a tool twice would show its first text on.
  ::SendMessageA(tips, TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
  if (!text.empty()) {
    ::SendMessageA(tips, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
  }
}

}  // namespace zn
