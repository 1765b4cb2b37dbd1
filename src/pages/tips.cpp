#include "pages/tips.h"

#include <commctrl.h>

#include <array>

#include "pages/accessible_texts.h"
#include "pages/page_images.h"
#include "platform/resources.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

constexpr int kWidestTip = 260;  // pixels at 96 DPI
constexpr char kTipsProperty[] = "ZnTips";

HWND WindowOf(HWND page) noexcept {
  return static_cast<HWND>(::GetPropA(page, kTipsProperty));
}

// Whether the control showed another text before.
bool ShowTip(HWND tips, HWND page, HWND control, const std::string& text) noexcept {
  std::array<char, 1024> shown{};
  TOOLINFOA tool{};
  tool.cbSize = TTTOOLINFOA_V1_SIZE;  // what every version of the common controls takes
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = page;
  tool.uId = reinterpret_cast<UINT_PTR>(InnerControl(control));
  tool.lpszText = shown.data();
  ::SendMessageA(tips, TTM_GETTEXTA, shown.size(), reinterpret_cast<LPARAM>(&tool));
  if (text == shown.data()) {
    return false;
  }
  // Adding a tool twice would show its first text on.
  ::SendMessageA(tips, TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
  if (!text.empty()) {
    ::lstrcpynA(shown.data(), text.c_str(), static_cast<int>(shown.size()));
    ::SendMessageA(tips, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
  }
  return true;
}

}  // namespace

bool MakeTips(HWND page) noexcept {
  if (WindowOf(page) != nullptr) {
    return false;
  }
  const HWND tips = ::CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                                      WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, page,
                                      nullptr, ModuleInstance(), nullptr);
  ::SendMessageA(tips, TTM_SETMAXTIPWIDTH, 0, ::MulDiv(kWidestTip, ScreenDpi(), 96));
  return ::SetPropA(page, kTipsProperty, tips) != FALSE;
}

void PageTips::Set(HWND control, const std::string& text) {
  if (control == nullptr || (tips_ != nullptr && !ShowTip(tips_, page_, control, text))) {
    return;
  }
  // The illustration says the same as its text.
  if (::GetDlgCtrlID(control) != IDC_ILLUSTRATION) {
    accessible_.SetDescription(control, text);
  }
}

PageTips::PageTips(HWND page) noexcept : page_(page), tips_(WindowOf(page)) {}

void ForgetTips(HWND page) noexcept {
  ::RemovePropA(page, kTipsProperty);
}

}  // namespace zn
