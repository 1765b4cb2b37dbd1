// The class factory and those slots of IOemUI that need no sheet.
#include <gtest/gtest.h>

#include <clocale>
#include <cwchar>
#include <string>

#include "plugin_client.h"
#include "user_registry.h"

namespace zn::test {
namespace {

TEST(ClassObject, RefusesAnotherClassAndLeavesTheOutput) {
  const PlugIn plugIn;
  int sentinel = 0;
  void* out = &sentinel;
  EXPECT_EQ(plugIn.GetClassObject(IID_IPrintOemUI, IID_IClassFactory, &out),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(out, &sentinel);
}

TEST(ClassObject, RefusesAnotherInterfaceAndClearsTheOutput) {
  const PlugIn plugIn;
  void* out = &out;
  EXPECT_EQ(plugIn.GetClassObject(CLSID_OEMUI, IID_IPrintOemUI, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(plugIn.GetClassObject(CLSID_OEMUI, IID_IClassFactory, nullptr), E_POINTER);
}

TEST(ClassObject, FactoryCarriesExactlyOneReference) {
  const PlugIn plugIn;
  for (const IID& iid : {IID_IUnknown, IID_IClassFactory}) {
    void* out = nullptr;
    ASSERT_EQ(plugIn.GetClassObject(CLSID_OEMUI, iid, &out), S_OK);
    auto* factory = static_cast<IClassFactory*>(out);
    EXPECT_EQ(factory->AddRef(), 2U);
    EXPECT_EQ(factory->Release(), 1U);
    EXPECT_EQ(factory->Release(), 0U);
  }
}

TEST(ClassFactory, RefusesAggregationWhateverIsAskedFor) {
  const PlugIn plugIn;
  const auto factory = plugIn.Factory();
  for (const IID& iid : {IID_IUnknown, IID_IPrintOemUI, IID_IPrintCoreUI2}) {
    void* out = nullptr;
    EXPECT_EQ(factory->CreateInstance(factory.get(), iid, &out), CLASS_E_NOAGGREGATION);
  }
}

TEST(ClassFactory, RefusesAnInterfaceThatTheObjectLacks) {
  const PlugIn plugIn;
  void* out = &out;
  EXPECT_EQ(plugIn.Factory()->CreateInstance(nullptr, IID_IPrintOemUI2, &out), E_NOINTERFACE);
  EXPECT_EQ(out, nullptr);
}

TEST(Unloading, IsGovernedByServerLocksAlone) {
  const PlugIn plugIn;
  const auto factory = plugIn.Factory();
  const auto object = plugIn.Object();
  EXPECT_EQ(plugIn.CanUnloadNow(), S_OK);
  EXPECT_EQ(factory->LockServer(TRUE), S_OK);
  EXPECT_EQ(factory->LockServer(2), S_OK);
  EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  EXPECT_EQ(plugIn.CanUnloadNow(), S_FALSE);
  EXPECT_EQ(factory->LockServer(FALSE), S_OK);
  EXPECT_EQ(plugIn.CanUnloadNow(), S_OK);
}

class OemUI : public testing::Test {
 protected:
  PlugIn plugIn_;
  ComPtr<IPrintOemUI> object_ = plugIn_.Object();
};

TEST_F(OemUI, AnswersForItsTwoInterfacesOnly) {
  for (const IID& iid : {IID_IUnknown, IID_IPrintOemUI}) {
    void* out = nullptr;
    ASSERT_EQ(object_->QueryInterface(iid, &out), S_OK);
    EXPECT_EQ(out, object_.get());
    EXPECT_EQ(object_->Release(), 1U);
  }
  for (const IID& iid : {IID_IPrintOemCommon, IID_IPrintOemUI2, IID_IPrintOemDriverUI}) {
    void* out = &out;
    EXPECT_EQ(object_->QueryInterface(iid, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
  }
  EXPECT_EQ(object_->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

constexpr DWORD kOdd = 0xA5A5A5A5;

struct InfoRow {
  DWORD mode;
  DWORD size;
  bool hasBuffer;
  HRESULT result;
  DWORD error;   // kOdd: left alone
  DWORD needed;  // kOdd: left alone
  DWORD value;
};

// clang-format off
constexpr InfoRow kInfoRows[] = {
    {1, 4, true,  S_OK,   kOdd,                      4,    0x4D534654},
    {1, 9, true,  S_OK,   kOdd,                      4,    0x4D534654},
    {3, 4, true,  S_OK,   kOdd,                      4,    2},
    {1, 3, true,  E_FAIL, ERROR_INSUFFICIENT_BUFFER, 4,    kOdd},
    {3, 4, false, E_FAIL, ERROR_INSUFFICIENT_BUFFER, 4,    kOdd},
    {4, 0, true,  E_FAIL, ERROR_INSUFFICIENT_BUFFER, 4,    kOdd},
    {4, 4, true,  E_FAIL, ERROR_NOT_SUPPORTED,       0,    kOdd},
    {0, 4, true,  E_FAIL, ERROR_INVALID_PARAMETER,   kOdd, kOdd},
    {2, 4, true,  E_FAIL, ERROR_INVALID_PARAMETER,   kOdd, kOdd},
    {5, 4, true,  E_FAIL, ERROR_INVALID_PARAMETER,   kOdd, kOdd},
};
// clang-format on

TEST_F(OemUI, GetInfo) {
  for (const InfoRow& row : kInfoRows) {
    SCOPED_TRACE(testing::Message() << "mode " << row.mode << ", size " << row.size);
    DWORD needed = kOdd;
    DWORD value = kOdd;
    ::SetLastError(kOdd);
    EXPECT_EQ(object_->GetInfo(row.mode, row.hasBuffer ? &value : nullptr, row.size, &needed),
              row.result);
    EXPECT_EQ(::GetLastError(), row.error);
    EXPECT_EQ(needed, row.needed);
    EXPECT_EQ(value, row.value);
  }
}

TEST_F(OemUI, GetInfoWithoutARoomForTheSizeFails) {
  DWORD value = kOdd;
  ::SetLastError(kOdd);
  EXPECT_EQ(object_->GetInfo(OEMGI_GETSIGNATURE, &value, sizeof value, nullptr), E_FAIL);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(value, kOdd);
}

TEST_F(OemUI, DevModeReachesTheSettingsBlock) {
  OEMDMPARAM param{};
  param.cbSize = sizeof param;
  EXPECT_EQ(object_->DevMode(OEMDM_SIZE, &param), S_OK);
  EXPECT_EQ(param.cbBufSize, 9328U);
  EXPECT_TRUE(FAILED(object_->DevMode(OEMDM_SIZE, nullptr)));
}

TEST_F(OemUI, KeepsTheFirstHelperOfTheRightKindUntilItsEnd) {
  FakeHelper other(false);
  FakeHelper first;
  FakeHelper second;
  EXPECT_EQ(object_->PublishDriverInterface(nullptr), E_FAIL);
  EXPECT_EQ(object_->PublishDriverInterface(&other), E_FAIL);
  EXPECT_EQ(object_->PublishDriverInterface(&first), S_OK);
  EXPECT_EQ(first.references, 2U);
  EXPECT_EQ(object_->PublishDriverInterface(&second), S_OK);
  EXPECT_EQ(second.queries, 0);
  object_.reset();
  EXPECT_EQ(first.references, 1U);
}

TEST_F(OemUI, ColorProfileIsTheFixedName) {
  wchar_t name[20];
  std::wmemset(name, L'x', std::size(name));
  FLONG flags = kOdd;
  ULONG size = 32;
  const auto query = [&](ULONG mode, void* data) {
    ::SetLastError(kOdd);
    return object_->QueryColorProfile(nullptr, nullptr, nullptr, nullptr, mode, data, &size,
                                      &flags);
  };
  EXPECT_EQ(query(QCP_DEVICEPROFILE, name), S_OK);
  EXPECT_STREQ(name, L"OEMPROFILE.icm");
  EXPECT_EQ(name[16], L'x');  // nothing behind the 32 bytes
  EXPECT_EQ(size, 32U);
  EXPECT_EQ(flags, FLONG{QCP_PROFILEDISK});

  flags = kOdd;
  size = 31;
  EXPECT_EQ(query(QCP_DEVICEPROFILE, name), E_FAIL);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
  EXPECT_EQ(size, 32U);
  EXPECT_EQ(query(QCP_DEVICEPROFILE, nullptr), E_FAIL);
  EXPECT_EQ(query(QCP_SOURCEPROFILE, name), E_FAIL);
  EXPECT_EQ(flags, kOdd);
  size = 0xFFFFFFFF;
  EXPECT_EQ(query(QCP_DEVICEPROFILE, name), S_OK);
  EXPECT_EQ(object_->QueryColorProfile(nullptr, nullptr, nullptr, nullptr, QCP_DEVICEPROFILE, name,
                                       nullptr, &flags),
            E_FAIL);
}

TEST_F(OemUI, DeletionOfAPrinterRemovesItsUserData) {
  const UserRegistry registry;
  const std::string root = "Software\\Zentrik\\ZN Print Driver Data\\";
  wchar_t printer[] = L"\\\\server\\複合機";
  wchar_t unconvertible[] = L"複合機\xD800";
  const std::string key = root + "\x95\xA1\x8D\x87\x8B\x40";  // 複合機 in code page 932
  registry.CreateKey(key + "\\UserInfo");
  registry.CreateKey(root + "other\\UserInfo");
  const std::string locale = std::setlocale(LC_CTYPE, nullptr);

  for (const int event : {1, 2, 3, 5, 6, 7}) {
    EXPECT_EQ(object_->PrinterEvent(printer, event, 0, 0), E_NOTIMPL);
  }
  EXPECT_EQ(object_->PrinterEvent(nullptr, 4, 0, 0), E_NOTIMPL);
  EXPECT_EQ(object_->PrinterEvent(unconvertible, 4, 0, 0), E_NOTIMPL);
  EXPECT_TRUE(registry.Has(key + "\\UserInfo"));

  EXPECT_EQ(object_->PrinterEvent(printer, 4, 0, 0), E_NOTIMPL);
  EXPECT_FALSE(registry.Has(key));
  EXPECT_TRUE(registry.Has(root + "other\\UserInfo"));
  EXPECT_EQ(std::setlocale(LC_CTYPE, nullptr), locale);
}

TEST_F(OemUI, DeletionOfAPrinterWithAnEndlessNameIsHarmless) {
  const UserRegistry registry;
  std::wstring name(5000, L'印');
  EXPECT_EQ(object_->PrinterEvent(name.data(), 4, 0, 0), E_NOTIMPL);
}

}  // namespace
}  // namespace zn::test
