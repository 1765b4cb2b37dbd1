// The printer properties with the authentication manager, on the shipped DLL.
#include <windows.h>
// This must come behind windows.h.
#include <winspool.h>

#include "host/driver/device_sheet.h"
#include "res/resource_ids.h"
#include "tests/host/host_fixture.h"
#include "tests/support/user_registry.h"

namespace zn::test {
namespace {

using PropertiesTest = HostTest;

TEST_F(PropertiesTest, AuthenticationIsStoredUnderThePrintersKeyWithPermissionOnly) {
  const UserRegistry registry;
  const std::string key = "Software\\Zentrik\\ZN Print Driver Data\\" + queue_->Name();
  ::SetCurrentDirectoryA("C:\\");  // the manager's module is found relative to the drive's root
  ::SetEnvironmentVariableA("ZN_COMPANION_ANSWER", "ok;method=2;name=Yamada;password=secret");
  for (const bool mayChange : {false, true}) {
    host::DeviceSheet sheet(*plugIn_, *queue_, mayChange);
    sheet.Open();
    Click(sheet.Sheet().ShowPage(0), IDC_DEVICE_AUTHENTICATION);
    EXPECT_EQ(registry.Has(key + "\\UserInfo", "JobOwnerName_User"), mayChange);
  }
  ::SetEnvironmentVariableA("ZN_COMPANION_ANSWER", nullptr);
  DWORD method = 0;
  DWORD size = sizeof method;
  ::GetPrinterDataExA(queue_->Handle(), "PrinterDriverData", "ManageMethod", nullptr,
                      reinterpret_cast<BYTE*>(&method), size, &size);
  EXPECT_EQ(method, 2U);
}

}  // namespace
}  // namespace zn::test
