// The companions' dialogs as the pages open them, answered by a user.
#include <windows.h>
// This must come behind windows.h.
#include <winspool.h>

#include <functional>

#include "companion/companion_ids.h"
#include "ddb/password.h"
#include "devmode/devmode.h"
#include "host/driver/device_sheet.h"
#include "host/driver/report.h"
#include "res/resource_ids.h"
#include "tests/host/host_fixture.h"
#include "tests/support/user_registry.h"

namespace zn::test {
namespace {

using ::testing::UnorderedElementsAreArray;

// Answers the modal dialogs that open while the object lives: each gets the action once, on the
// timer that its own message loop serves. The action must end the dialog.
class DialogDriver {
 public:
  explicit DialogDriver(std::function<void(HWND dialog)> action)
      : timer_(::SetTimer(nullptr, 0, 10, &OnTick)) {
    action_ = std::move(action);
    last_ = nullptr;
    dialogs_ = 0;
  }
  ~DialogDriver() { ::KillTimer(nullptr, timer_); }
  DialogDriver(const DialogDriver&) = delete;
  DialogDriver& operator=(const DialogDriver&) = delete;

  [[nodiscard]] int DialogCount() const { return dialogs_; }

 private:
  // A dialog that disabled its owner and can be used itself.
  static BOOL CALLBACK FindModal(HWND window, LPARAM found) {
    const HWND owner = ::GetWindow(window, GW_OWNER);
    if (owner != nullptr && !::IsWindowEnabled(owner) && ::IsWindowVisible(window) &&
        ::IsWindowEnabled(window)) {
      *reinterpret_cast<HWND*>(found) = window;
      return FALSE;
    }
    return TRUE;
  }
  static void CALLBACK OnTick(HWND, UINT, UINT_PTR, DWORD) {
    HWND dialog = nullptr;
    ::EnumThreadWindows(::GetCurrentThreadId(), &FindModal, reinterpret_cast<LPARAM>(&dialog));
    if (dialog != nullptr && dialog != last_) {
      last_ = dialog;
      ++dialogs_;
      action_(dialog);
    }
  }

  static inline std::function<void(HWND)> action_;
  static inline HWND last_;
  static inline int dialogs_;
  UINT_PTR timer_;
};

using CompanionDialogs = HostTest;

TEST_F(CompanionDialogs, PrintOptionsShowThePageAndHandChangesBackOnOk) {
  constexpr int kGray = 1;
  for (const bool ok : {true, false}) {
    host::DocumentSheet sheet(*plugIn_, *queue_, Defaults());
    sheet.Open();
    const HWND page = sheet.Sheet().ShowPage(kJobPage);
    Choose(page, IDC_JOB_PRINTER_MODE, 2);
    const DialogDriver user([ok](HWND dialog) {
      EXPECT_EQ(Chosen(dialog, IDC_PRINTER_MODE), 2);  // not yet committed, but chosen on the page
      Choose(dialog, IDC_COLOR_MODE, kGray);
      Enter(dialog, IDC_PROFILE, "Second Device");
      Click(dialog, ok ? IDOK : IDCANCEL);
    });
    Click(page, IDC_JOB_PRINT_OPTIONS);
    EXPECT_EQ(user.DialogCount(), 1);
    EXPECT_EQ(Chosen(page, IDC_JOB_COLOR_MODE), ok ? kGray : 0);
    sheet.Sheet().PressOk();
    std::vector<std::string> changes{"ZNPrinterMode: Option0 -> Option2"};
    if (ok) {
      changes.emplace_back("ColorModel: CMYK -> Gray");
    }
    EXPECT_THAT(Lines(host::SheetReport(sheet, plugIn_->Helper(), sheet.Finish()), "option"),
                UnorderedElementsAreArray(changes));
    EXPECT_EQ(sheet.DevMode().Private().block.GetText(devmode::kDeviceProfile),
              ok ? "Second Device" : "");
  }
}

TEST_F(CompanionDialogs, AuthenticationIsStoredUnderThePrintersKeyWithPermissionOnly) {
  const UserRegistry registry;
  const std::string key = "Software\\Zentrik\\ZN Print Driver Data\\" + queue_->Name();
  ::SetCurrentDirectoryA("C:\\");  // the module is found relative to the drive's root
  for (const bool mayChange : {false, true}) {
    const DialogDriver user([mayChange](HWND dialog) {
      EXPECT_EQ(::IsWindowEnabled(::GetDlgItem(dialog, IDC_METHOD)) != FALSE, mayChange);
      EXPECT_EQ(::IsWindowEnabled(::GetDlgItem(dialog, IDOK)) != FALSE, mayChange);
      Choose(dialog, IDC_METHOD, 2);
      Click(dialog, IDC_ENTER_NAME);
      Enter(dialog, IDC_OWNER_NAME, "Yamada");
      Enter(dialog, IDC_OWNER_PASSWORD, "secret");
      Click(dialog, mayChange ? IDOK : IDCANCEL);
    });
    host::DeviceSheet sheet(*plugIn_, *queue_, mayChange);
    sheet.Open();
    Click(sheet.Sheet().ShowPage(0), IDC_DEVICE_AUTHENTICATION);
    EXPECT_EQ(user.DialogCount(), 1);
    EXPECT_EQ(registry.Has(key), mayChange);
  }
  char password[64]{};
  DWORD size = sizeof password;
  ::RegGetValueA(HKEY_CURRENT_USER, (key + "\\UserInfo").c_str(), "JobOwnerNamePassword_User",
                 RRF_RT_REG_SZ, nullptr, password, &size);
  std::string text(password);
  ddb::UnscramblePassword(text);
  EXPECT_EQ(text, "secret");
  DWORD method = 0;
  ::SetPrinterDataExA(queue_->Handle(), "PrinterDriverData", "ManageMethod", REG_DWORD,
                      reinterpret_cast<BYTE*>(&method), sizeof method);
}

}  // namespace
}  // namespace zn::test
