// What IOemUI does beside its answers, which the client with the other C++ ABI checks.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>

#include "iat_patch.h"
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

// Not all memory is gone: the runtime needs some for an exception.
bool (*g_isRefused)(std::size_t size);
void* ScarceMemory(std::size_t size) {
  return g_isRefused(size) ? nullptr : std::malloc(size);
}

TEST_F(OemUI, LackOfMemoryIsToldAtTheBoundary) {
  std::wstring printer(5000, L'p');
  OEMCUIPPARAM param{};
  param.pPrinterName = printer.data();
  void* out = &out;
  const auto factory = plugIn_.Factory();
  const ImportPatch patch(plugIn_.Module(), "malloc", &ScarceMemory);
  g_isRefused = [](std::size_t size) { return size > 1000; };
  EXPECT_EQ(object_->CommonUIProp(OEMCUIP_PRNPROP, &param), E_OUTOFMEMORY);
  EXPECT_EQ(object_->PrinterEvent(printer.data(), 4, 0, 0), E_NOTIMPL);
  g_isRefused = [](std::size_t size) { return size <= 32; };
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IPrintOemUI, &out), E_OUTOFMEMORY);
  EXPECT_EQ(plugIn_.GetClassObject(CLSID_OEMUI, IID_IClassFactory, &out), E_OUTOFMEMORY);
  EXPECT_EQ(out, &out);
}

}  // namespace
}  // namespace zn::test
