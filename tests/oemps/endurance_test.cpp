// Applications print for days and load the plug-in for each job: one that runs out of memory gets
// an answer to every call, and one that ends a job gets everything back.
#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>

#include "document_job.h"
#include "host/base/resource_usage.h"
#include "iat_patch.h"
#include "plugin_client.h"
#include "test_queue.h"
#include "user_registry.h"

namespace zn::test {
namespace {

// The allocations of the plug-in, by number from 0 on; the first of them that is refused, with all
// behind it. ("znhost faults" refuses single ones.)
int g_allocations = 0;
int g_first = INT_MAX;

bool IsRefused() {
  return g_allocations++ >= g_first;
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

// One job's way through the plug-in. The number of calls that failed, or of sheets that lack pages.
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

class Endurance : public testing::Test {
 protected:
  // A job that gets no memory from the allocation `first` on, and one that does.
  int FailuresFrom(int first) {
    SCOPED_TRACE(first);
    const CountedPlugIn counted;  // the first exception of a module is another than the second
    g_first = first;
    const int failures = FailuresOf(counted.plugIn, queue_.Handle());
    g_first = INT_MAX;
    EXPECT_EQ(FailuresOf(counted.plugIn, queue_.Handle()), 0);
    return failures;
  }

  UserRegistry registry_;
  TestQueue queue_;
};

TEST_F(Endurance, WithoutMemoryEveryCallAnswersAndTheNextJobWorks) {
  g_allocations = 1;
  int first = 0;
  for (; first < g_allocations; ++first) {
    EXPECT_GT(FailuresFrom(first), 0);
  }
  EXPECT_GT(first, 10);
}

TEST_F(Endurance, LoadingAndUnloadingLeavesNothingBehind) {
  // The modules of the system stay loaded, as in an application with a window.
  const PlugIn held[] = {PlugIn("comctl32.dll"), PlugIn("shell32.dll"), PlugIn("gdi32.dll")};
  host::ResourceUsage before;
  for (int round = -50; round < 2000; ++round) {
    if (round == 0) {
      before = host::CountResources();
    }
    const PlugIn plugIn;
    if (round % 10 == 0) {
      EXPECT_GT(FailuresFrom(5), 0);
    }
    if (round % 50 == 0) {
      const PlugIn companions[] = {PlugIn("Zn55psu1UI.dll"), PlugIn("Zn55psu1ui2.dll")};
    }
  }
  const host::ResourceUsage after = host::CountResources();
  EXPECT_LE(after.heapBlocks, before.heapBlocks);
  EXPECT_LE(after.handles, before.handles);
  EXPECT_LE(after.tlsSlots, before.tlsSlots);
  EXPECT_LE(after.gdiObjects, before.gdiObjects);
}

}  // namespace
}  // namespace zn::test
