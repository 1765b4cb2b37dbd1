#include "host/driver/plug_in.h"

#include <cstdio>

#include "host/base/host_error.h"

namespace zn::host {
namespace {

using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
using CanUnloadNow = HRESULT(STDAPICALLTYPE*)();

template <class Function>
Function Export(HMODULE module, const char* name) {
  const auto function = reinterpret_cast<Function>(::GetProcAddress(module, name));
  if (function == nullptr) {
    throw HostError(std::string("the plug-in lacks ") + name);
  }
  return function;
}

// What the driver offers first; a plug-in that knows only the older interface refuses it.
class NewerHelper final : public IUnknown {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    const bool known = ::IsEqualIID(iid, IID_IUnknown) || ::IsEqualIID(iid, IID_IPrintCoreUI2);
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
};

void Check(HRESULT result, const char* step) {
  if (FAILED(result)) {
    throw HostError(std::string("the plug-in failed at ") + step);
  }
}

}  // namespace

PlugIn::PlugIn(const std::string& path) : module_(::LoadLibraryA(path.c_str())) {
  if (!module_) {
    ThrowSystemError("cannot load " + path);
  }
  IClassFactory* made = nullptr;
  Check(Export<GetClassObject>(module_.get(), "DllGetClassObject")(CLSID_OEMUI, IID_IClassFactory,
                                                                   reinterpret_cast<void**>(&made)),
        "DllGetClassObject");
  const std::unique_ptr<IClassFactory, Releaser> factory(made);
  IUnknown* instance = nullptr;
  Check(factory->CreateInstance(nullptr, IID_IUnknown, reinterpret_cast<void**>(&instance)),
        "CreateInstance");
  const std::unique_ptr<IUnknown, Releaser> unknown(instance);
  IPrintOemUI* object = nullptr;
  Check(unknown->QueryInterface(IID_IPrintOemUI, reinterpret_cast<void**>(&object)),
        "QueryInterface");
  object_.reset(object);

  for (const DWORD mode : {OEMGI_GETSIGNATURE, OEMGI_GETVERSION}) {
    DWORD value = 0;
    DWORD need = 0;
    Check(object_->GetInfo(mode, &value, sizeof value, &need), "GetInfo");
  }
  NewerHelper newer;
  if (FAILED(object_->PublishDriverInterface(&newer))) {
    Check(object_->PublishDriverInterface(&helper_), "PublishDriverInterface");
  }
}

PlugIn::~PlugIn() {
  object_.reset();
  if (helper_.References() != 0) {
    std::fprintf(stderr, "znhost: the plug-in kept %ld references\n", helper_.References());
  }
  // Asked for form's sake: the driver frees the library whatever the answer.
  if (const auto ask =
          reinterpret_cast<CanUnloadNow>(::GetProcAddress(module_.get(), "DllCanUnloadNow"))) {
    ask();
  }
}

HRESULT PlugIn::CallDevMode(DWORD mode, OEMDMPARAM& parameter) const {
  parameter.cbSize = sizeof parameter;
  parameter.hModule = module_.get();
  return object_->DevMode(mode, &parameter);
}

void PlugIn::FillBlock(HANDLE printer, QueueDevMode& devmode, const QueueDevMode* stored) const {
  OEMDMPARAM size{};
  Check(CallDevMode(OEMDM_SIZE, size), "DevMode (size)");
  if (size.cbBufSize != kDevModeSize) {
    throw HostError("the plug-in's block has an unexpected size");
  }
  OEMDMPARAM parameter{};
  parameter.hPrinter = printer;
  parameter.pPublicDMIn = &devmode.Public();
  parameter.pPublicDMOut = &devmode.Public();
  parameter.pOEMDMOut = devmode.Private().block.Bytes().data();
  parameter.cbBufSize = kDevModeSize;
  Check(CallDevMode(OEMDM_DEFAULT, parameter), "DevMode (default)");
  if (stored != nullptr) {
    CDevMode source = stored->Private().block;
    parameter.pOEMDMIn = source.Bytes().data();
    Check(CallDevMode(OEMDM_MERGE, parameter), "DevMode (merge)");
  }
}

}  // namespace zn::host
