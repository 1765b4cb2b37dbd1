// The authentication manager: a dialog on the user's authentication data for one printer.
#include <windows.h>

#include "companion/authentication_data.h"
#include "companion/call_counter.h"
#include "companion/companion_ids.h"
#include "companion/companion_module.h"
#include "companion/unattended.h"

namespace zn::companion {
namespace {

constexpr UINT kMethodTexts[] = {IDS_METHOD_NONE, IDS_METHOD_OWNER, IDS_METHOD_ACCOUNT};

class AuthenticationDialog {
 public:
  AuthenticationDialog(HANDLE printer, const char* printerKey, bool mayChange)
      : printer_(printer),
        printerKey_(printerKey),
        mayChange_(mayChange),
        data_(ReadAuthenticationData(printer, printerKey)) {}

  int Run() { return RunDialog(IDD_AUTHENTICATION, ::GetActiveWindow(), *this); }

  // "method", "name" (an entered one), "password" and "account" change the data.
  bool Apply(const std::vector<Assignment>& assignments) {
    if (!mayChange_) {
      return false;
    }
    for (const auto& [name, value] : assignments) {
      if (name == "method") {
        data_.method = static_cast<DWORD>(std::atoi(value.c_str()));
      } else if (name == "name") {
        data_.enteredName = true;
        data_.name = value;
      } else if (name == "password") {
        data_.password = value;
      } else if (name == "account") {
        data_.accountId = value;
      }
    }
    return WriteAuthenticationData(printer_, printerKey_, data_);
  }

  void OnInitDialog(HWND window) {
    dialog_ = window;
    ::SetDlgItemTextA(dialog_, IDC_PRINTER_KEY, printerKey_);
    for (const UINT text : kMethodTexts) {
      ::SendDlgItemMessageA(dialog_, IDC_METHOD, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(LoadText(text).c_str()));
    }
    ::SendDlgItemMessageA(dialog_, IDC_METHOD, CB_SETCURSEL, data_.method, 0);
    ::CheckRadioButton(dialog_, IDC_LOGIN_NAME, IDC_ENTER_NAME,
                       data_.enteredName ? IDC_ENTER_NAME : IDC_LOGIN_NAME);
    InitEdit(IDC_OWNER_NAME, data_.name, AuthenticationData::kNameLimit);
    InitEdit(IDC_OWNER_PASSWORD, data_.password, AuthenticationData::kPasswordLimit);
    InitEdit(IDC_ACCOUNT_ID, data_.accountId, AuthenticationData::kAccountLimit);
    ::ShowWindow(::GetDlgItem(dialog_, IDC_READ_ONLY_NOTE), mayChange_ ? SW_HIDE : SW_SHOW);
    EnableControls();
  }

  INT_PTR OnCommand(int control, int notification) {
    switch (control) {
      case IDC_METHOD:
      case IDC_LOGIN_NAME:
      case IDC_ENTER_NAME:
        if (notification == BN_CLICKED || notification == CBN_SELCHANGE) {
          EnableControls();
        }
        return TRUE;
      case IDOK:
        OnOk();
        return TRUE;
      case IDCANCEL:
        ::EndDialog(dialog_, IDCANCEL);
        return TRUE;
      default:
        return FALSE;
    }
  }

 private:
  void InitEdit(int control, const std::string& text, int limit) const {
    ::SendDlgItemMessageA(dialog_, control, EM_LIMITTEXT, static_cast<WPARAM>(limit), 0);
    ::SetDlgItemTextA(dialog_, control, text.c_str());
  }

  void Enable(int control, bool enabled) const {
    ::EnableWindow(::GetDlgItem(dialog_, control), enabled);
  }

  [[nodiscard]] LRESULT Method() const {
    return ::SendDlgItemMessageA(dialog_, IDC_METHOD, CB_GETCURSEL, 0, 0);
  }
  [[nodiscard]] bool EntersName() const {
    return ::IsDlgButtonChecked(dialog_, IDC_ENTER_NAME) == BST_CHECKED;
  }

  // What does not count under the chosen method cannot be edited; without permission, nothing can.
  void EnableControls() const {
    const bool owner = mayChange_ && Method() > 0;
    Enable(IDC_METHOD, mayChange_);
    Enable(IDC_LOGIN_NAME, owner);
    Enable(IDC_ENTER_NAME, owner);
    Enable(IDC_OWNER_NAME, owner && EntersName());
    Enable(IDC_OWNER_PASSWORD, owner);
    Enable(IDC_ACCOUNT_ID, mayChange_ && Method() > 1);
    Enable(IDOK, mayChange_);
  }

  void OnOk() {
    data_.method = static_cast<DWORD>(Method() > 0 ? Method() : 0);
    data_.enteredName = EntersName();
    data_.name = ControlText(dialog_, IDC_OWNER_NAME);
    data_.password = ControlText(dialog_, IDC_OWNER_PASSWORD);
    data_.accountId = ControlText(dialog_, IDC_ACCOUNT_ID);
    if (data_.method > 0 && data_.enteredName && data_.name.empty()) {
      Warn(IDS_NAME_MISSING);
      ::SetFocus(::GetDlgItem(dialog_, IDC_OWNER_NAME));
    } else if (!WriteAuthenticationData(printer_, printerKey_, data_)) {
      Warn(IDS_SAVE_FAILED);
    } else {
      ::EndDialog(dialog_, IDOK);
    }
  }

  void Warn(UINT text) const {
    ::MessageBoxA(dialog_, LoadText(text).c_str(), LoadText(IDS_AUTHENTICATION_TITLE).c_str(),
                  MB_OK | MB_ICONEXCLAMATION);
  }

  HANDLE printer_;
  const char* printerKey_;
  bool mayChange_;
  AuthenticationData data_;
  HWND dialog_ = nullptr;
};

}  // namespace
}  // namespace zn::companion

extern "C" int OnAuthenticationManagerDlg(void* printer, char* printerKey, int permission) {
  using namespace zn::companion;
  CountCall(Call::AuthenticationManager);
  if (printer == nullptr || printerKey == nullptr) {
    return 0;
  }
  try {
    return AnswerOrRun(AuthenticationDialog(printer, printerKey, permission != 0)) == IDOK;
  } catch (...) {
    return 0;
  }
}
