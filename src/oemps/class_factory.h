// The class factory of the plug-in, behind the exported entry points.
#pragma once

#include "platform/driver_interfaces.h"

namespace zn {

// S_OK while no server lock is outstanding, else S_FALSE.
[[nodiscard]] HRESULT CanUnloadNow() noexcept;

// Makes IOemUI objects. Starts with one reference.
class IOemCF final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppv) noexcept override;
  ULONG STDMETHODCALLTYPE AddRef() noexcept override;
  ULONG STDMETHODCALLTYPE Release() noexcept override;
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* pUnkOuter, REFIID riid,
                                           void** ppv) noexcept override;
  HRESULT STDMETHODCALLTYPE LockServer(WINBOOL fLock) noexcept override;

 private:
  ~IOemCF() = default;  // not virtual: it would shift the slots

  LONG references_ = 1;
};

}  // namespace zn
