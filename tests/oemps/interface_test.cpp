// What IOemUI does beside its answers, which the client with the other C++ ABI checks.
#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "japanese.h"
#include "plugin_client.h"
#include "user_registry.h"

namespace zn::test {
namespace {

class OemUI : public testing::Test {
 protected:
  UserRegistry registry_;
  PlugIn plugIn_;
  ComPtr<IPrintOemUI> object_ = plugIn_.Object();
};

TEST_F(OemUI, DeletionOfAPrinterRemovesItsUserData) {
  const std::string root = "Software\\Zentrik\\ZN Print Driver Data\\";
  wchar_t printer[] = L"\\\\server\\複合機";
  wchar_t unconvertible[] = L"複合機\xD800";
  const std::string key = root + Japanese("複合機");
  registry_.CreateKey(key + "\\UserInfo");
  registry_.CreateKey(root + "other\\UserInfo");
  const std::string locale = std::setlocale(LC_CTYPE, nullptr);

  for (const int event : {1, 2, 3, 5, 6, 7}) {
    EXPECT_EQ(object_->PrinterEvent(printer, event, 0, 0), E_NOTIMPL);
  }
  EXPECT_EQ(object_->PrinterEvent(unconvertible, 4, 0, 0), E_NOTIMPL);
  std::wstring endless(5000, L'印');
  EXPECT_EQ(object_->PrinterEvent(endless.data(), 4, 0, 0), E_NOTIMPL);
  EXPECT_TRUE(registry_.Has(key + "\\UserInfo"));

  EXPECT_EQ(object_->PrinterEvent(printer, 4, 0, 0), E_NOTIMPL);
  EXPECT_FALSE(registry_.Has(key));
  EXPECT_TRUE(registry_.Has(root + "other\\UserInfo"));
  EXPECT_EQ(std::setlocale(LC_CTYPE, nullptr), locale);
}

}  // namespace
}  // namespace zn::test
