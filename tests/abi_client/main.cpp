// A client of Zn55psu1.dll built with the other C++ ABI of x64, as the core driver is: loads the
// module beside it, calls every slot and compares the documented answers. Prints the checks that
// fail; the exit code is their number.
#include "platform_api.h"

extern "C" {
// The compiler calls these on its own account.
void* memset(void* to, int value, unsigned long long size) {
  for (auto* byte = static_cast<volatile char*>(to); size > 0; --size) {
    *byte++ = static_cast<char>(value);
  }
  return to;
}
void* memcpy(void* to, const void* from, unsigned long long size) {
  auto* out = static_cast<volatile char*>(to);
  for (auto* byte = static_cast<const char*>(from); size > 0; --size) {
    *out++ = *byte++;
  }
  return to;
}
}

namespace {

constexpr DWORD kBlockSize = 9328;
constexpr DWORD kSignature = 0x4D534654;
constexpr WORD kSheetVersion = 0x0100;
constexpr unsigned long long kUntouched = 0x5A5A5A5A;

unsigned g_failures = 0;

void Print(const char* text) {
  DWORD length = 0;
  while (text[length] != '\0') {
    ++length;
  }
  DWORD written = 0;
  WriteFile(GetStdHandle(static_cast<DWORD>(-11)), text, length, &written, nullptr);
}

void Expect(bool holds, const char* what) {
  if (!holds) {
    ++g_failures;
    Print("FAILED: ");
    Print(what);
    Print("\r\n");
  }
}

template <class Call>
bool FailsWith(DWORD error, Call call) {
  SetLastError(0);
  return call() == E_FAIL && GetLastError() == error;
}

bool Equal(const wchar_t* left, const wchar_t* right) {
  while (*left != 0 && *left == *right) {
    ++left;
    ++right;
  }
  return *left == *right;
}

// The core driver's side of the helper interface.
class DriverHelper final : public IPrintOemDriverUI {
 public:
  HRESULT QueryInterface(const GUID& iid, void** out) override {
    ++queries;
    const bool known = iid == IID_IUnknown || iid == IID_IPrintOemDriverUI;
    *out = known && answers ? this : nullptr;
    if (*out == nullptr) {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG AddRef() override { return ++references; }
  ULONG Release() override { return --references; }
  HRESULT DrvGetDriverSetting(void*, const char*, void*, DWORD, DWORD*, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT DrvUpgradeRegistrySetting(HANDLE, const char*, const char*) override { return E_NOTIMPL; }
  HRESULT DrvUpdateUISetting(void*, void*, DWORD, DWORD) override { return S_OK; }

  bool answers = true;
  ULONG references = 1;
  unsigned queries = 0;
};

using GetClassObject = HRESULT (*)(const GUID&, const GUID&, void**);
using CanUnloadNow = HRESULT (*)();

void CheckIdentity(IPrintOemUI& object) {
  void* out = nullptr;
  Expect(object.QueryInterface(IID_IUnknown, &out) == S_OK && out == &object, "slot 0 IUnknown");
  Expect(object.AddRef() == 3, "slot 1 counts up");
  Expect(object.Release() == 2, "slot 2 counts down");
  Expect(object.Release() == 1, "slot 2 counts down again");
  out = &object;
  Expect(object.QueryInterface(IID_IPrintOemUI2, &out) == E_NOINTERFACE && out == nullptr,
         "slot 0 refuses the later interface");
  Expect(object.QueryInterface(IID_IUnknown, nullptr) == E_POINTER, "slot 0 no output");
}

void CheckGetInfo(IPrintOemUI& object) {
  struct Row {
    DWORD mode, size;
    bool hasBuffer;
    DWORD needed, value, error;  // error 0: succeeds
    const char* name;
  };
  static constexpr Row kRows[] = {
      {1, 4, true, 4, kSignature, 0, "slot 3 signature"},
      {1, 9, true, 4, kSignature, 0, "slot 3 signature, more room"},
      {1, 3, true, 4, 0, ERROR_INSUFFICIENT_BUFFER, "slot 3 signature, short buffer"},
      {2, 4, true, 99, 0, ERROR_INVALID_PARAMETER, "slot 3 interface version"},
      {3, 4, true, 4, 2, 0, "slot 3 version"},
      {3, 4, false, 4, 0, ERROR_INSUFFICIENT_BUFFER, "slot 3 version, no buffer"},
      {4, 4, true, 0, 0, ERROR_NOT_SUPPORTED, "slot 3 publisher"},
      {4, 0, true, 4, 0, ERROR_INSUFFICIENT_BUFFER, "slot 3 publisher, short buffer"},
  };
  for (const Row& row : kRows) {
    DWORD value = 0;
    DWORD needed = 99;
    SetLastError(0);
    const HRESULT result =
        object.GetInfo(row.mode, row.hasBuffer ? &value : nullptr, row.size, &needed);
    Expect(result == (row.error == 0 ? S_OK : E_FAIL) && GetLastError() == row.error &&
               needed == row.needed && value == row.value,
           row.name);
  }
  DWORD value = 0;
  Expect(FailsWith(ERROR_INVALID_PARAMETER,
                   [&] { return object.GetInfo(1, &value, sizeof value, nullptr); }) &&
             value == 0,
         "slot 3 no room for the size");
}

void CheckDevMode(IPrintOemUI& object) {
  static unsigned char block[kBlockSize + 1];
  DevModeParam param{};
  param.size = sizeof param;
  Expect(object.DevMode(1, &param) == S_OK && param.bufferSize == kBlockSize, "slot 4 size");
  block[kBlockSize] = 0xEE;
  param.privateOut = block;
  param.bufferSize = kBlockSize;
  Expect(object.DevMode(2, &param) == S_OK && block[0] == (kBlockSize & 0xFF) && block[4] == 'T' &&
             block[7] == 'M' && block[kBlockSize] == 0xEE,
         "slot 4 default");
  Expect(object.DevMode(1, nullptr) == E_FAIL, "slot 4 without parameters");
}

void CheckHelper(IPrintOemUI& object, DriverHelper& helper) {
  DriverHelper useless;
  useless.answers = false;
  Expect(object.PublishDriverInterface(nullptr) == E_FAIL, "slot 5 nothing offered");
  Expect(object.PublishDriverInterface(&useless) == E_FAIL && useless.references == 1,
         "slot 5 helper without the interface");
  Expect(object.PublishDriverInterface(&helper) == S_OK && helper.references == 2,
         "slot 5 helper taken");
  DriverHelper later;
  Expect(object.PublishDriverInterface(&later) == S_OK && later.queries == 0,
         "slot 5 keeps the first helper");
}

using SheetMethod = HRESULT (IPrintOemUI::*)(SheetInfo*, LPARAM);

void CheckSheets(IPrintOemUI& object, SheetMethod method, const char* name) {
  SheetInfo info{};
  info.size = sizeof info;
  info.version = kSheetVersion + 1;
  info.result = kUntouched;
  const auto isRefused = [&](SheetInfo* refused) {
    return FailsWith(ERROR_INVALID_PARAMETER, [&] { return (object.*method)(refused, 0); }) &&
           info.result == kUntouched;
  };
  Expect(isRefused(nullptr), name);
  Expect(isRefused(&info), name);
  info.version = kSheetVersion;
  info.size = sizeof info - 8;
  Expect(isRefused(&info), name);

  info.size = 0;  // tells no size
  info.reason = 1;
  SheetHeader header{};
  Expect((object.*method)(&info, reinterpret_cast<LPARAM>(&header)) == S_OK && info.result == 1 &&
             header.title != nullptr && Equal(header.title, L"OEM UI Page"),
         name);
  info.reason = 3;
  SetResultInfo set{sizeof set, 0, nullptr, 4711};
  Expect((object.*method)(&info, reinterpret_cast<LPARAM>(&set)) == S_OK && info.result == 4711,
         name);
  static constexpr struct {
    WORD reason;
    unsigned long long result;
  } kWithoutRecord[] = {{1, 1}, {2, 1}, {3, 0}, {4, 0}};
  for (const auto& row : kWithoutRecord) {
    info.reason = row.reason;
    info.result = kUntouched;
    Expect((object.*method)(&info, 0) == S_OK && info.result == row.result, name);
  }
  info.reason = 99;
  Expect((object.*method)(&info, 0) == S_OK, name);
}

void CheckCommonUi(IPrintOemUI& object) {
  CommonUiParam param{};
  param.size = sizeof param;
  param.ownItemCount = 7;
  Expect(object.CommonUIProp(1, &param) == S_OK && param.ownItemCount == 0, "slot 6 sizing call");
  const auto isRefused = [&](DWORD mode, CommonUiParam* refused) {
    return FailsWith(ERROR_INVALID_PARAMETER, [&] { return object.CommonUIProp(mode, refused); });
  };
  Expect(isRefused(1, nullptr), "slot 6 without parameters");
  Expect(isRefused(3, &param), "slot 6 another mode");
  param.size = sizeof param - 8;
  Expect(isRefused(1, &param), "slot 6 short parameters");
}

void CheckColorProfile(IPrintOemUI& object) {
  wchar_t name[17] = {};
  name[16] = L'x';
  ULONG size = 0;
  ULONG flags = kUntouched;
  const auto query = [&](ULONG mode, void* data, ULONG room, ULONG* outFlags) {
    size = room;
    return object.QueryColorProfile(nullptr, nullptr, nullptr, nullptr, mode, data, &size,
                                    outFlags);
  };
  const auto isShort = [&](void* data, ULONG room) {
    return FailsWith(ERROR_INSUFFICIENT_BUFFER, [&] { return query(0, data, room, nullptr); }) &&
           size == 32;
  };
  Expect(isShort(name, 31) && isShort(nullptr, 32), "slot 14 short or missing buffer");
  Expect(query(1, name, 32, &flags) == E_FAIL && flags == kUntouched, "slot 14 source profile");
  const auto isNamed = [&](ULONG room) {
    name[0] = 0;
    return query(0, name, room, &flags) == S_OK && size == 32 && flags == 2 &&
           Equal(name, L"OEMPROFILE.icm") && name[16] == L'x';
  };
  Expect(isNamed(32) && isNamed(0xFFFFFFFF), "slot 14 profile name");
  Expect(query(0, name, 32, nullptr) == E_FAIL, "slot 14 no room for the flags");
  Expect(object.QueryColorProfile(nullptr, nullptr, nullptr, nullptr, 0, name, nullptr, &flags) ==
             E_FAIL,
         "slot 14 no room for the size");
}

void CheckNotImplemented(IPrintOemUI& object) {
  DWORD result = kUntouched;
  Expect(object.DevQueryPrintEx(nullptr, nullptr, nullptr, nullptr) == E_NOTIMPL, "slot 9");
  Expect(object.DeviceCapabilities(nullptr, nullptr, nullptr, 16, nullptr, nullptr, nullptr, 1,
                                   &result) == E_NOTIMPL &&
             result == kUntouched,
         "slot 10");
  Expect(object.UpgradePrinter(1, nullptr) == E_NOTIMPL, "slot 11");
  Expect(object.PrinterEvent(nullptr, 3, 0, 0) == E_NOTIMPL, "slot 12 other event");
  Expect(object.PrinterEvent(nullptr, 4, 0, 0) == E_NOTIMPL, "slot 12 deletion without a name");
  Expect(object.DriverEvent(1, 3, nullptr, 0) == E_NOTIMPL, "slot 13");
  Expect(object.FontInstallerDlgProc(nullptr, 0, 0, 0) == E_NOTIMPL, "slot 15");
  Expect(object.UpdateExternalFonts(nullptr, nullptr, nullptr) == E_NOTIMPL, "slot 16");
}

void CheckFactory(GetClassObject getClassObject, IClassFactory& factory) {
  void* out = &factory;
  Expect(getClassObject(IID_IPrintOemUI, IID_IClassFactory, &out) == CLASS_E_CLASSNOTAVAILABLE &&
             out == &factory,
         "another class");
  Expect(getClassObject(CLSID_OEMUI, IID_IPrintOemUI, &out) == E_NOINTERFACE && out == nullptr,
         "another interface of the class");
  Expect(getClassObject(CLSID_OEMUI, IID_IClassFactory, nullptr) == E_POINTER, "no output");
  Expect(factory.AddRef() == 2 && factory.Release() == 1, "factory reference count");
  Expect(factory.QueryInterface(IID_IUnknown, &out) == S_OK && out == &factory &&
             factory.Release() == 1,
         "factory as IUnknown");
  Expect(factory.CreateInstance(&factory, IID_IPrintOemUI2, &out) == CLASS_E_NOAGGREGATION,
         "aggregation, whatever is asked for");
  Expect(factory.CreateInstance(nullptr, IID_IPrintOemUI2, &out) == E_NOINTERFACE && out == nullptr,
         "an interface that the object lacks");
}

void CheckLocks(IClassFactory& factory, CanUnloadNow canUnload) {
  Expect(canUnload() == S_OK, "a live object does not hold the module");
  Expect(factory.LockServer(1) == S_OK && factory.LockServer(2) == S_OK &&
             factory.LockServer(0) == S_OK && canUnload() == S_FALSE,
         "held by a lock");
  Expect(factory.LockServer(0) == S_OK && canUnload() == S_OK, "unloadable again");
}

void CheckModule(HANDLE module) {
  const auto getClassObject =
      reinterpret_cast<GetClassObject>(GetProcAddress(module, "DllGetClassObject"));
  const auto canUnload = reinterpret_cast<CanUnloadNow>(GetProcAddress(module, "DllCanUnloadNow"));
  void* out = nullptr;
  if (getClassObject == nullptr || canUnload == nullptr ||
      getClassObject(CLSID_OEMUI, IID_IClassFactory, &out) != S_OK) {
    Expect(false, "class factory");
    return;
  }
  auto& factory = *static_cast<IClassFactory*>(out);
  CheckFactory(getClassObject, factory);

  Expect(factory.CreateInstance(nullptr, IID_IPrintOemUI, &out) == S_OK, "slot 0 own interface");
  auto& object = *static_cast<IPrintOemUI*>(out);
  CheckLocks(factory, canUnload);
  DriverHelper helper;
  CheckIdentity(object);
  CheckHelper(object, helper);
  CheckGetInfo(object);
  CheckDevMode(object);
  CheckCommonUi(object);
  CheckSheets(object, &IPrintOemUI::DocumentPropertySheets, "slot 7");
  CheckSheets(object, &IPrintOemUI::DevicePropertySheets, "slot 8");
  CheckNotImplemented(object);
  CheckColorProfile(object);
  Expect(object.Release() == 0 && helper.references == 1, "last release gives the helper back");
  Expect(factory.Release() == 0, "last release of the factory");
}

}  // namespace

extern "C" void mainCRTStartup() {
  if (const HANDLE module = LoadLibraryA("Zn55psu1.dll")) {
    CheckModule(module);
    Expect(FreeLibrary(module) != 0, "unloading");
  } else {
    Expect(false, "loading Zn55psu1.dll");
  }
  Print(g_failures == 0 ? "all slots answer as documented\r\n" : "see above\r\n");
  ExitProcess(g_failures);
}
