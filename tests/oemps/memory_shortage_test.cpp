// An application that runs out of memory while it prints: every call answers, and works again when
// there is memory.
#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <string>

#include "document_job.h"
#include "iat_patch.h"
#include "plugin_client.h"
#include "test_queue.h"
#include "user_registry.h"

namespace zn::test {
namespace {

// The allocations of the plug-in, by number from 0 on; [first, end) are refused.
int g_allocations = 0;
int g_first = INT_MAX;
int g_end = INT_MAX;

bool IsRefused() {
  const int number = g_allocations++;
  return number >= g_first && number < g_end;
}
void* Allocate(std::size_t size) {
  return IsRefused() ? nullptr : std::malloc(size);
}
void* AllocateZeroed(std::size_t count, std::size_t size) {
  return IsRefused() ? nullptr : std::calloc(count, size);
}
void* Reallocate(void* memory, std::size_t size) {
  return IsRefused() ? nullptr : std::realloc(memory, size);
}
void* WINAPI AllocateFromHeap(HANDLE heap, DWORD flags, SIZE_T size) {
  return IsRefused() ? nullptr : ::HeapAlloc(heap, flags, size);
}

int WINAPI NoBox(HWND, const char*, const char*, UINT) {
  return IDOK;
}

// A plug-in whose allocations are counted and refused.
struct CountedPlugIn {
  PlugIn plugIn;
  ImportPatch box{plugIn.Module(), "MessageBoxA", &NoBox};
  ImportPatch malloc{plugIn.Module(), "malloc", &Allocate};
  ImportPatch calloc{plugIn.Module(), "calloc", &AllocateZeroed};
  ImportPatch realloc{plugIn.Module(), "realloc", &Reallocate};
  ImportPatch heapAlloc{plugIn.Module(), "HeapAlloc", &AllocateFromHeap};
};

// One application's way through the plug-in. The number of calls that failed, or of sheets that
// lack pages.
int FailuresOf(const PlugIn& plugIn, HANDLE printer) {
  int failures = 0;
  const auto call = [&](const char* what, HRESULT result, HRESULT failure = E_OUTOFMEMORY) {
    EXPECT_TRUE(result == S_OK || result == E_OUTOFMEMORY || result == failure)
        << what << ' ' << std::hex << result;
    failures += result == S_OK ? 0 : 1;
    return result == S_OK;
  };
  g_allocations = 0;
  void* made = &made;
  if (!call("factory", plugIn.GetClassObject(CLSID_OEMUI, IID_IClassFactory, &made))) {
    EXPECT_EQ(made, &made);
    return failures;
  }
  const ComPtr<IClassFactory> factory(static_cast<IClassFactory*>(made));
  if (!call("object", factory->CreateInstance(nullptr, IID_IPrintOemUI, &made))) {
    return failures;
  }
  const ComPtr<IPrintOemUI> object(static_cast<IPrintOemUI*>(made));

  CDevMode in;
  in.SetDefaults();
  CDevMode out;
  OEMDMPARAM devMode{};
  devMode.cbSize = sizeof devMode;
  devMode.hPrinter = printer;
  devMode.pOEMDMIn = &in;
  devMode.pOEMDMOut = &out;
  devMode.cbBufSize = sizeof out;
  call("default", object->DevMode(OEMDM_DEFAULT, &devMode));

  DocumentJob job(*object);
  call("preparation", job.Prepare());
  FakeSheet sheet(*object, &IPrintOemUI::DocumentPropertySheets);
  call("sheet", sheet.Send(PROPSHEETUI_REASON_INIT));
  failures += sheet.calls.size() == 5 ? 0 : 1;
  FakeSheet second(*object, &IPrintOemUI::DocumentPropertySheets);
  call("warned sheet", second.Send(PROPSHEETUI_REASON_INIT));
  second.Send(PROPSHEETUI_REASON_DESTROY, 1);
  sheet.Send(PROPSHEETUI_REASON_DESTROY, 1);
  EXPECT_EQ(job.BusyBlocks(), 0);

  wchar_t name[] = L"a name that does not fit into the text object itself";
  job.param.pPrinterName = name;
  call("printer", object->CommonUIProp(OEMCUIP_PRNPROP, &job.param));
  EXPECT_EQ(object->PrinterEvent(name, 4, 0, 0), E_NOTIMPL);
  call("merge", object->DevMode(OEMDM_MERGE, &devMode), E_FAIL);
  return failures;
}

TEST(MemoryShortage, EveryCallAnswersAndTheNextOneWorks) {
  const UserRegistry registry;
  const TestQueue queue;
  int count = 1;
  for (int first = 0; first < count; ++first) {
    for (const int end : {first + 1, INT_MAX}) {
      SCOPED_TRACE("allocations " + std::to_string(first) + " to " + std::to_string(end));
      const CountedPlugIn counted;  // the first exception of a module is another than the second
      g_first = first;
      g_end = end;
      const int failures = FailuresOf(counted.plugIn, queue.Handle());
      EXPECT_TRUE(failures > 0 || end != INT_MAX);
      g_first = INT_MAX;
      EXPECT_EQ(FailuresOf(counted.plugIn, queue.Handle()), 0);
      count = g_allocations;
    }
  }
  EXPECT_GT(count, 10);
}

}  // namespace
}  // namespace zn::test
