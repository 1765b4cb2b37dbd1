// What the deletion of a printer removes.
#include "identity/user_info.h"

#include <gtest/gtest.h>

#include "user_registry.h"

namespace zn::test {
namespace {

const std::string kRoot = "Software\\Zentrik\\ZN Print Driver Data";
constexpr const char* kValues[] = {"SpecifyJobOwnerName_User", "JobOwnerName_User",
                                   "JobOwnerNamePassword_User", "AccountID_User", "ManageMethod"};
constexpr char kPrinter[] = "\\\\server\\printer";

class Deletion : public testing::Test {
 protected:
  void SetUp() override {
    registry_.SetText("Printers\\Connections\\,,server,printer", "GuidPrinter", "{guid}");
  }

  void StoreUserData(const std::string& printerKey) const {
    for (const char* value : kValues) {
      registry_.SetText(UserInfo(printerKey), value, "1");
    }
  }

  static std::string UserInfo(const std::string& printerKey) {
    return kRoot + '\\' + printerKey + "\\UserInfo";
  }

  UserRegistry registry_;
};

TEST_F(Deletion, RemovesThisPrintersDataAndNobodyElses) {
  for (const char* printer : {"printer{guid}", "printer", "printer{guid}2", "other"}) {
    StoreUserData(printer);
  }
  PrinterEventDelete(kPrinter);
  EXPECT_FALSE(registry_.Has(kRoot + "\\printer{guid}"));
  for (const char* printer : {"printer", "printer{guid}2", "other"}) {
    EXPECT_TRUE(registry_.Has(UserInfo(printer), "AccountID_User")) << printer;
  }
  EXPECT_TRUE(registry_.Has("Printers\\Connections\\,,server,printer"));

  StoreUserData("printer{guid}");
  registry_.SetText(UserInfo("printer{guid}"), "foreign", "1");
  registry_.CreateKey(UserInfo("printer{guid}") + "\\foreign");
  PrinterEventDelete(kPrinter);
  for (const char* value : kValues) {
    EXPECT_FALSE(registry_.Has(UserInfo("printer{guid}"), value)) << value;
  }
  EXPECT_TRUE(registry_.Has(UserInfo("printer{guid}"), "foreign"));
  EXPECT_TRUE(registry_.Has(UserInfo("printer{guid}") + "\\foreign"));
}

TEST_F(Deletion, GoesOnWhenPartsAreMissing) {
  registry_.CreateKey(kRoot + "\\printer{guid}");
  PrinterEventDelete(kPrinter);
  EXPECT_FALSE(registry_.Has(kRoot + "\\printer{guid}"));
  PrinterEventDelete(kPrinter);
  registry_.Clear();
  PrinterEventDelete(kPrinter);
  EXPECT_FALSE(registry_.Has(kRoot));
}

TEST_F(Deletion, NamesThatLeadToNoPrinterRemoveNothing) {
  registry_.Clear();
  registry_.SetText(kRoot + "\\UserInfo", "AccountID_User", "1");
  StoreUserData("printer");
  for (const char* name :
       {"", "\\", "\\\\", "\\\\\\", "\\\\server\\", "\\\\server\\CSR|", ",printer"}) {
    PrinterEventDelete(name);
    EXPECT_TRUE(registry_.Has(UserInfo("printer"), "AccountID_User")) << name;
    EXPECT_TRUE(registry_.Has(kRoot + "\\UserInfo", "AccountID_User")) << name;
  }
}

}  // namespace
}  // namespace zn::test
