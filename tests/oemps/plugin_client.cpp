#include "plugin_client.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zn::test {

PlugIn::PlugIn(const std::string& path) : module_(::LoadLibraryA(path.c_str())) {
  if (module_ == nullptr) {
    throw std::runtime_error("cannot load " + path);
  }
}

PlugIn::~PlugIn() {
  ::FreeLibrary(module_);
}

HRESULT PlugIn::GetClassObject(REFCLSID clsid, REFIID iid, void** out) const {
  using Function = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  return reinterpret_cast<Function>(::GetProcAddress(module_, "DllGetClassObject"))(clsid, iid,
                                                                                    out);
}

ComPtr<IClassFactory> PlugIn::Factory() const {
  void* factory = nullptr;
  EXPECT_EQ(GetClassObject(CLSID_OEMUI, IID_IClassFactory, &factory), S_OK);
  return ComPtr<IClassFactory>(static_cast<IClassFactory*>(factory));
}

ComPtr<IPrintOemUI> PlugIn::Object() const {
  void* object = nullptr;
  EXPECT_EQ(Factory()->CreateInstance(nullptr, IID_IPrintOemUI, &object), S_OK);
  return ComPtr<IPrintOemUI>(static_cast<IPrintOemUI*>(object));
}

FakeSheet::FakeSheet(IPrintOemUI& object, Method method) : object_(object), method_(method) {
  param.cbSize = sizeof param;
  info.cbSize = sizeof info;
  info.Version = PROPSHEETUI_INFO_VERSION;
  info.hComPropSheet = this;
  info.pfnComPropSheet = &OnCall;
  info.lParamInit = reinterpret_cast<LPARAM>(&param);
}

HRESULT FakeSheet::Send(int reason, LPARAM lParam) {
  info.Reason = static_cast<WORD>(reason);
  info.Result = kUntouched;
  return (object_.*method_)(&info, lParam);
}

LONG_PTR CALLBACK FakeSheet::OnCall(HANDLE sheet, UINT function, LPARAM first, LPARAM second) {
  SheetCall call{};
  call.function = function;
  call.first = first;
  if (function == CPSFUNC_ADD_PROPSHEETPAGEA) {
    call.page = *reinterpret_cast<const PROPSHEETPAGEA*>(first);
  } else if (function == CPSFUNC_INSERT_PSUIPAGEA) {
    call.insert = *reinterpret_cast<const INSERTPSUIPAGE_INFO*>(second);
    call.tree = *reinterpret_cast<const COMPROPSHEETUI*>(call.insert.dwData1);
  }
  auto& calls = static_cast<FakeSheet*>(sheet)->calls;
  calls.push_back(call);
  return static_cast<LONG_PTR>(100 + calls.size());
}

}  // namespace zn::test
