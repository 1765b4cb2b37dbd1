// The companions' dialogs as the pages open them, by hand and unattended.
#include <windows.h>
// This must come behind windows.h.
#include <winspool.h>

#include "companion/companion_ids.h"
#include "ddb/password.h"
#include "devmode/devmode.h"
#include "host/driver/device_sheet.h"
#include "host/driver/report.h"
#include "platform/handles.h"
#include "res/resource_ids.h"
#include "tests/host/dialog_driver.h"
#include "tests/host/host_fixture.h"
#include "tests/support/iat_patch.h"
#include "tests/support/user_registry.h"

namespace zn::test {
namespace {

using host::DeviceSheet;
using host::DocumentSheet;
using ::testing::UnorderedElementsAre;

constexpr int kGray = 1;

// An unattended answer for the time of the object.
class Unattended {
 public:
  explicit Unattended(const char* answer) { Set(answer); }
  ~Unattended() { Set(nullptr); }
  Unattended(const Unattended&) = delete;
  Unattended& operator=(const Unattended&) = delete;

 private:
  static void Set(const char* answer) { ::SetEnvironmentVariableA("ZN_COMPANION_ANSWER", answer); }
};

class OptionSettingDialogTest : public HostTest {
 protected:
  OptionSettingDialogTest() : sheet_(*plugIn_, *queue_, Defaults()) {
    sheet_.Open();
    page_ = sheet_.Sheet().ShowPage(kJobPage);
  }

  std::string PressOk() {
    sheet_.Sheet().PressOk();
    return host::SheetReport(sheet_, plugIn_->Helper(), sheet_.Finish());
  }

  DocumentSheet sheet_;
  HWND page_ = nullptr;
};

TEST_F(OptionSettingDialogTest, ShowsThePageAndHandsChangesBack) {
  Choose(page_, IDC_JOB_PRINTER_MODE, 2);
  const DialogDriver user([](HWND dialog) {
    EXPECT_EQ(Chosen(dialog, IDC_COLOR_MODE), 0);
    EXPECT_EQ(Chosen(dialog, IDC_PRINTER_MODE), 2);  // not yet committed, but chosen on the page
    Choose(dialog, IDC_COLOR_MODE, kGray);
    Enter(dialog, IDC_PROFILE, "Second Device");
    Click(dialog, IDOK);
  });
  Click(page_, IDC_JOB_PRINT_OPTIONS);
  EXPECT_EQ(user.DialogCount(), 1);
  EXPECT_EQ(Chosen(page_, IDC_JOB_COLOR_MODE), kGray);
  const std::string report = PressOk();
  EXPECT_THAT(Lines(report, "option"), UnorderedElementsAre("ColorModel: CMYK -> Gray",
                                                            "ZNPrinterMode: Option0 -> Option2"));
  EXPECT_EQ(sheet_.DevMode().Private().block.GetText(devmode::kDeviceProfile), "Second Device");
}

TEST_F(OptionSettingDialogTest, CancelChangesNothing) {
  const DialogDriver user([](HWND dialog) {
    Choose(dialog, IDC_COLOR_MODE, kGray);
    Click(dialog, IDCANCEL);
  });
  Click(page_, IDC_JOB_PRINT_OPTIONS);
  EXPECT_EQ(Chosen(page_, IDC_JOB_COLOR_MODE), 0);
  EXPECT_TRUE(Lines(PressOk(), "option").empty());
}

TEST_F(OptionSettingDialogTest, AnswersUnattended) {
  for (const auto& [text, color] :
       {std::pair("cancel;CL_CMODE=0", 0), std::pair("ok;CL_CMODE=0;SP_SPOPT=2", kGray)}) {
    const Unattended answer(text);
    Click(page_, IDC_JOB_PRINT_OPTIONS);
    EXPECT_EQ(Chosen(page_, IDC_JOB_COLOR_MODE), color) << text;
  }
  EXPECT_THAT(
      Lines(PressOk(), "option"),
      UnorderedElementsAre("ColorModel: CMYK -> Gray", "ZNSpoolOption: Option0 -> Option2"));
}

class AuthenticationDialogTest : public HostTest {
 protected:
  AuthenticationDialogTest()
      : userInfo_("Software\\Zentrik\\ZN Print Driver Data\\" + queue_->Name() + "\\UserInfo") {
    // The module is found relative to the root of the current drive.
    ::SetCurrentDirectoryA("C:\\");
    SetMethod(1);
  }
  ~AuthenticationDialogTest() override { SetMethod(0); }

  void SetMethod(DWORD method) {
    ::SetPrinterDataExA(queue_->Handle(), "PrinterDriverData", "ManageMethod", REG_DWORD,
                        reinterpret_cast<BYTE*>(&method), sizeof method);
  }
  DWORD Method() {
    DWORD method = 99;
    DWORD need = 0;
    ::GetPrinterDataExA(queue_->Handle(), "PrinterDriverData", "ManageMethod", nullptr,
                        reinterpret_cast<BYTE*>(&method), sizeof method, &need);
    return method;
  }

  void PressButton(bool mayChange) {
    DeviceSheet sheet(*plugIn_, *queue_, mayChange);
    sheet.Open();
    Click(sheet.Sheet().ShowPage(0), IDC_DEVICE_AUTHENTICATION);
  }
  std::string Text(const char* value) {
    char text[256]{};
    DWORD size = sizeof text;
    ::RegGetValueA(HKEY_CURRENT_USER, userInfo_.c_str(), value, RRF_RT_REG_SZ, nullptr, text,
                   &size);
    return text;
  }

  UserRegistry registry_;
  std::string userInfo_;
};

TEST_F(AuthenticationDialogTest, StoresTheUsersDataAndShowsThemAgain) {
  {
    const DialogDriver user([](HWND dialog) {
      EXPECT_TRUE(IsChecked(dialog, IDC_LOGIN_NAME));
      Choose(dialog, IDC_METHOD, 2);
      Click(dialog, IDC_ENTER_NAME);
      Enter(dialog, IDC_OWNER_NAME, "Yamada");
      Enter(dialog, IDC_OWNER_PASSWORD, "secret");
      Enter(dialog, IDC_ACCOUNT_ID, "42");
      Click(dialog, IDOK);
    });
    PressButton(true);
    ASSERT_EQ(user.DialogCount(), 1);
  }
  EXPECT_EQ(Text("SpecifyJobOwnerName_User"), "EnterName");
  EXPECT_EQ(Text("JobOwnerName_User"), "Yamada");
  EXPECT_EQ(Text("AccountID_User"), "42");
  EXPECT_EQ(Text("ManageMethod"), "2");
  EXPECT_EQ(Method(), 2u);
  std::string password = Text("JobOwnerNamePassword_User");
  EXPECT_NE(password, "secret");  // not to be read in passing
  ddb::UnscramblePassword(password);
  EXPECT_EQ(password, "secret");

  const DialogDriver user([](HWND dialog) {
    EXPECT_EQ(Chosen(dialog, IDC_METHOD), 2);
    EXPECT_EQ(TextOf(dialog, IDC_OWNER_NAME), "Yamada");
    EXPECT_EQ(TextOf(dialog, IDC_OWNER_PASSWORD), "secret");
    Click(dialog, IDC_LOGIN_NAME);
    Click(dialog, IDOK);
  });
  PressButton(true);
  EXPECT_EQ(Text("SpecifyJobOwnerName_User"), "LoginName");
  EXPECT_EQ(Text("JobOwnerName_User"), "Yamada");
}

decltype(&::GetPrinterA) g_getPrinter;

BOOL WINAPI GetPrinterOfAServer(HANDLE printer, DWORD level, BYTE* memory, DWORD size,
                                DWORD* need) {
  static char server[] = "\\\\server";
  const BOOL told = g_getPrinter(printer, level, memory, size, need);
  if (told != FALSE && level == 2 && memory != nullptr) {
    auto* info = reinterpret_cast<PRINTER_INFO_2A*>(memory);
    info->pServerName = server;
    info->Attributes |= PRINTER_ATTRIBUTE_SHARED;
  }
  return told;
}

TEST_F(AuthenticationDialogTest, JobsToASharedPrinterCarryTheEnteredData) {
  {
    const Unattended answer("ok;method=2;name=Yamada;password=secret;account=42");
    PressButton(true);
  }
  const host::QueueDevMode before = Defaults();
  const ImportPatch spooler(plugIn_->Module(), "GetPrinterA", &GetPrinterOfAServer);
  g_getPrinter = spooler.Original<std::remove_pointer_t<decltype(g_getPrinter)>>();
  const host::QueueDevMode job = DocumentSheet::StartDevMode(*plugIn_, *queue_, &before);
  const CDevMode& block = job.Private().block;
  EXPECT_EQ(block.GetDWord(devmode::kManagementMethod), 2u);
  EXPECT_EQ(block.GetDWord(devmode::kOwnerNameSource), 1u);
  EXPECT_EQ(block.GetText(devmode::kJobOwnerName), "Yamada");
  EXPECT_EQ(block.GetText(devmode::kAccountId), "42");
  std::string password(block.GetText(devmode::kJobOwnerPassword));
  ddb::UnscramblePassword(password);
  EXPECT_EQ(password, "secret");
}

TEST_F(AuthenticationDialogTest, WithoutPermissionNothingCanBeChanged) {
  const DialogDriver user([](HWND dialog) {
    for (const int control : {IDC_METHOD, IDC_LOGIN_NAME, IDC_ENTER_NAME, IDC_OWNER_NAME,
                              IDC_OWNER_PASSWORD, IDC_ACCOUNT_ID, static_cast<int>(IDOK)}) {
      EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(dialog, control))) << control;
    }
    EXPECT_TRUE(::IsWindowVisible(::GetDlgItem(dialog, IDC_READ_ONLY_NOTE)));
    Click(dialog, IDCANCEL);
  });
  PressButton(false);
  EXPECT_EQ(user.DialogCount(), 1);
  {
    const Unattended answer("ok;method=2;name=Yamada");
    PressButton(false);
  }
  EXPECT_EQ(Method(), 1u);
  EXPECT_FALSE(registry_.Has(userInfo_));
}

TEST_F(AuthenticationDialogTest, AnEnteredNameMustNotBeEmpty) {
  const DialogDriver user([](HWND dialog) {
    if (::GetDlgItem(dialog, IDC_ENTER_NAME) == nullptr) {  // the message
      ::SendMessageA(dialog, WM_COMMAND, IDOK, 0);
      return;
    }
    Click(dialog, IDC_ENTER_NAME);
    Click(dialog, IDOK);
    Click(dialog, IDCANCEL);
  });
  PressButton(true);
  EXPECT_EQ(user.DialogCount(), 2);
  EXPECT_FALSE(registry_.Has(userInfo_));
}

}  // namespace
}  // namespace zn::test
