// What the deletion of a printer removes.
#include "identity/user_info.h"

#include <gtest/gtest.h>

#include "user_registry.h"

namespace zn::test {
namespace {

using Names = std::vector<std::string>;

const std::string kRoot = "Software\\Zentrik\\ZN Print Driver Data";
constexpr char kPrinter[] = "\\\\server\\printer";

class Deletion : public testing::Test {
 protected:
  void SetUp() override {
    registry_.SetText("Printers\\Connections\\,,server,printer", "GuidPrinter", "{guid}");
  }

  void StoreUserData(const std::string& printerKey) const {
    for (const char* value : {"SpecifyJobOwnerName_User", "JobOwnerName_User",
                              "JobOwnerNamePassword_User", "AccountID_User", "ManageMethod"}) {
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
  EXPECT_EQ(registry_.Subkeys(kRoot), (Names{"other", "printer", "printer{guid}2"}));
  EXPECT_EQ(registry_.Values(UserInfo("other"))->size(), 5U);
  EXPECT_TRUE(registry_.Has("Printers\\Connections\\,,server,printer"));

  StoreUserData("printer{guid}");
  registry_.SetText(UserInfo("printer{guid}"), "foreign", "1");
  registry_.CreateKey(UserInfo("printer{guid}") + "\\foreign");
  PrinterEventDelete(kPrinter);
  EXPECT_EQ(registry_.Values(UserInfo("printer{guid}")), Names{"foreign"});
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
    EXPECT_EQ(registry_.Subkeys(kRoot), (Names{"printer", "UserInfo"})) << name;
    EXPECT_EQ(registry_.Values(kRoot + "\\UserInfo"), Names{"AccountID_User"}) << name;
  }
}

}  // namespace
}  // namespace zn::test
