// The core driver's side of the plug-in: loads the DLL, asks for its object, opens sheets.
#pragma once

#include "platform/driver_interfaces.h"

#include <memory>
#include <string>
#include <vector>

namespace zn::test {

struct Releaser {
  void operator()(IUnknown* held) const { held->Release(); }
};
template <class Interface>
using ComPtr = std::unique_ptr<Interface, Releaser>;

// One loaded plug-in module; unloaded with the object, so that every test starts afresh.
class PlugIn {
 public:
  explicit PlugIn(const std::string& path = "Zn55psu1.dll");
  ~PlugIn();
  PlugIn(const PlugIn&) = delete;
  PlugIn& operator=(const PlugIn&) = delete;

  [[nodiscard]] HMODULE Module() const { return module_; }
  HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** out) const;
  [[nodiscard]] ComPtr<IClassFactory> Factory() const;
  [[nodiscard]] ComPtr<IPrintOemUI> Object() const;

 private:
  HMODULE module_;
};

// One call of the property-sheet callback, with copies of what its arguments pointed to.
struct SheetCall {
  UINT function;
  LPARAM first;
  PROPSHEETPAGEA page;         // CPSFUNC_ADD_PROPSHEETPAGEA
  INSERTPSUIPAGE_INFO insert;  // CPSFUNC_INSERT_PSUIPAGEA
  COMPROPSHEETUI tree;         // what the insertion named
};

// One property sheet of the core driver's user interface: records what is added to it and hands
// out page handles from 101 on.
class FakeSheet {
 public:
  using Method = HRESULT (STDMETHODCALLTYPE IPrintOemUI::*)(PROPSHEETUI_INFO*, LPARAM);

  FakeSheet(IPrintOemUI& object, Method method);

  // The plug-in's answer; `info.Result` is set to an odd value before.
  HRESULT Send(int reason, LPARAM lParam = 0);

  static constexpr ULONG_PTR kUntouched = 0x5A5A5A5A;

  PROPSHEETUI_INFO info{};
  OEMUIPSPARAM param{};
  std::vector<SheetCall> calls;

 private:
  static LONG_PTR CALLBACK OnCall(HANDLE sheet, UINT function, LPARAM first, LPARAM second);

  IPrintOemUI& object_;
  Method method_;
};

}  // namespace zn::test
