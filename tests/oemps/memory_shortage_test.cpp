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

class MemoryShortage : public testing::Test {
 protected:
  // One application's way through the plug-in. The number of calls that failed.
  int Run() {
    int failures = 0;
    const auto call = [&](const char* what, HRESULT result) {
      EXPECT_TRUE(result == S_OK || result == E_OUTOFMEMORY || result == E_FAIL)
          << what << ' ' << std::hex << result;
      failures += result == S_OK ? 0 : 1;
      return result == S_OK;
    };
    g_allocations = 0;
    void* made = nullptr;
    if (!call("factory", plugIn_.GetClassObject(CLSID_OEMUI, IID_IClassFactory, &made))) {
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
    devMode.hPrinter = queue_.Handle();
    devMode.pOEMDMIn = &in;
    devMode.pOEMDMOut = &out;
    devMode.cbBufSize = sizeof out;
    call("default", object->DevMode(OEMDM_DEFAULT, &devMode));
    call("merge", object->DevMode(OEMDM_MERGE, &devMode));

    DocumentJob job(*object);
    call("preparation", job.Prepare());
    FakeSheet sheet(*object, &IPrintOemUI::DocumentPropertySheets);
    call("sheet", sheet.Send(PROPSHEETUI_REASON_INIT));
    failures += sheet.calls.size() == 5 ? 0 : 1;
    sheet.Send(PROPSHEETUI_REASON_DESTROY, 1);
    EXPECT_EQ(job.BusyBlocks(), 0);
    return failures;
  }

  TestQueue queue_;
  PlugIn plugIn_;
  ImportPatch malloc_{plugIn_.Module(), "malloc", &Allocate};
  ImportPatch calloc_{plugIn_.Module(), "calloc", &AllocateZeroed};
  ImportPatch realloc_{plugIn_.Module(), "realloc", &Reallocate};
  ImportPatch heapAlloc_{plugIn_.Module(), "HeapAlloc", &AllocateFromHeap};
};

TEST_F(MemoryShortage, EveryCallAnswersAndTheNextOneWorks) {
  g_first = INT_MAX;
  ASSERT_EQ(Run(), 0);
  const int count = g_allocations;
  ASSERT_GT(count, 10);
  for (const bool lasting : {false, true}) {
    for (int first = 0; first < count; ++first) {
      SCOPED_TRACE((lasting ? "from allocation " : "allocation ") + std::to_string(first));
      g_first = first;
      g_end = lasting ? INT_MAX : first + 1;
      EXPECT_GT(Run(), lasting ? 0 : -1);
      g_first = INT_MAX;
      EXPECT_EQ(Run(), 0);
    }
  }
}

}  // namespace
}  // namespace zn::test
