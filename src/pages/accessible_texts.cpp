#include "pages/accessible_texts.h"

#include <objbase.h>
// These must come behind objbase.h.
#include <commctrl.h>
#include <initguid.h>
#include <oleacc.h>

#include "pages/pspage.h"

namespace zn {
namespace {

constexpr DWORD kWholeControl = CHILDID_SELF;
constexpr auto kClient = static_cast<DWORD>(OBJID_CLIENT);
constexpr int kMaxText = 1023;

std::wstring WideText(const std::string& text) {
  const int length = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  wide.resize(static_cast<std::size_t>(
      ::MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), length)));
  return wide;
}

}  // namespace

HWND InnerControl(HWND control) noexcept {
  // Other controls do not know the message.
  const auto inner = reinterpret_cast<HWND>(::SendMessageA(control, CBEM_GETCOMBOCONTROL, 0, 0));
  return inner != nullptr ? inner : control;
}

AccessibleTexts::~AccessibleTexts() {
  if (services_ != nullptr) {
    services_->Release();
  }
}

IAccPropServices* AccessibleTexts::Services() const noexcept {
  if (services_ == nullptr &&
      FAILED(::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IAccPropServices, reinterpret_cast<void**>(&services_)))) {
    services_ = nullptr;
  }
  return services_;
}

void AccessibleTexts::Set(HWND control, const GUID& property, const std::string& text) const {
  IAccPropServices* const services = control != nullptr ? Services() : nullptr;
  if (services != nullptr) {
    services->SetHwndPropStr(InnerControl(control), kClient, kWholeControl, property,
                             WideText(text).c_str());
  }
}

void AccessibleTexts::SetName(HWND control, const std::string& name) const {
  Set(control, PROPID_ACC_NAME, name);
}

void AccessibleTexts::SetDescription(HWND control, const std::string& description) const {
  Set(control, PROPID_ACC_DESCRIPTION, description);
}

void AccessibleTexts::NameExtendedLists(HWND dialog) const {
  HWND before = nullptr;
  for (const HWND control : ControlsOf(dialog)) {
    if (InnerControl(control) != control) {
      const bool isLabelled = (::SendMessageA(before, WM_GETDLGCODE, 0, 0) & DLGC_STATIC) != 0;
      SetName(control, ControlText(isLabelled ? before : control, kMaxText));
    }
    before = control;
  }
}

void AccessibleTexts::Forget(HWND dialog) const noexcept {
  IAccPropServices* const services = Services();
  if (services == nullptr) {
    return;
  }
  for (const HWND control : ControlsOf(dialog)) {
    const MSAAPROPID given[] = {PROPID_ACC_NAME, PROPID_ACC_DESCRIPTION};
    services->ClearHwndProps(InnerControl(control), kClient, kWholeControl, given,
                             static_cast<int>(std::size(given)));
  }
}

}  // namespace zn
