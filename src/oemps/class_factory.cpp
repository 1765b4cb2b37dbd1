#include "oemps/class_factory.h"

#include <windows.h>

#include <objbase.h>

#include <new>

#include "oemps/driver_callback.h"
#include "platform/trace.h"

// A trace of this source; every text begins with the function's name.
#define TRACE_INTRFACE(function, format, ...) \
  ZN_TRACE_TEXT("intrface", function, format, function __VA_OPT__(, ) __VA_ARGS__)

namespace zn {
namespace {

// Nothing changes it: unloading is governed by the server locks alone, live objects do not hold
// the module.
constexpr LONG g_cComponents = 0;
LONG g_cServerLocks = 0;

}  // namespace

HRESULT CanUnloadNow() noexcept {
  if (g_cComponents == 0 && g_cServerLocks == 0) {
    TRACE_INTRFACE("DllCanUnloadNow", " %s() S_OK\n");
    return S_OK;
  }
  TRACE_INTRFACE("DllCanUnloadNow", " %s() S_FALSE\n");
  return S_FALSE;
}

HRESULT IOemCF::QueryInterface(REFIID riid, void** ppv) noexcept {
  TRACE_INTRFACE("IOemCF::QueryInterface", " %s()\n");
  if (ppv == nullptr) {
    return E_POINTER;
  }
  *ppv = nullptr;
  if (riid != IID_IUnknown && riid != IID_IClassFactory) {
    return E_NOINTERFACE;
  }
  *ppv = static_cast<IClassFactory*>(this);
  AddRef();
  return S_OK;
}

ULONG IOemCF::AddRef() noexcept {
  TRACE_INTRFACE("IOemCF::AddRef", " %s()\n");
  return static_cast<ULONG>(::InterlockedIncrement(&references_));
}

ULONG IOemCF::Release() noexcept {
  TRACE_INTRFACE("IOemCF::Release", " %s():Release entry.\n");
  const LONG left = ::InterlockedDecrement(&references_);
  if (left == 0) {
    delete this;
  }
  return static_cast<ULONG>(left);
}

HRESULT IOemCF::CreateInstance(IUnknown* pUnkOuter, REFIID riid, void** ppv) noexcept {
  TRACE_INTRFACE("IOemCF::CreateInstance", " %s()\n");
  if (pUnkOuter != nullptr) {
    return CLASS_E_NOAGGREGATION;
  }
  auto* object = new (std::nothrow) IOemUI;
  if (object == nullptr) {
    return E_OUTOFMEMORY;
  }
  const HRESULT result = object->QueryInterface(riid, ppv);
  object->Release();
  return result;
}

HRESULT IOemCF::LockServer(WINBOOL fLock) noexcept {
  TRACE_INTRFACE("IOemCF::LockServer", " %s()\n");
  if (fLock != FALSE) {
    ::InterlockedIncrement(&g_cServerLocks);
  } else {
    ::InterlockedDecrement(&g_cServerLocks);
  }
  return S_OK;
}

}  // namespace zn

STDAPI DllGetClassObject(REFCLSID rclsid, REFIID riid, void** ppv) {
  TRACE_INTRFACE("DllGetClassObject", " %s():Create class factory.\n");
  HRESULT result = CLASS_E_CLASSNOTAVAILABLE;
  if (rclsid == zn::CLSID_OEMUI) {
    if (auto* factory = new (std::nothrow) zn::IOemCF) {
      result = factory->QueryInterface(riid, ppv);
      factory->Release();
    } else {
      result = E_OUTOFMEMORY;
    }
  }
  TRACE_INTRFACE("DllGetClassObject", " %s() HRESULT=%d\n", static_cast<int>(result));
  return result;
}

STDAPI DllCanUnloadNow() {
  return zn::CanUnloadNow();
}
