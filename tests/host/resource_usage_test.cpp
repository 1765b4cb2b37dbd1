#include "host/base/resource_usage.h"

#include <windows.h>

#include <memory>
#include <vector>

#include "gmock/gmock.h"
#include "platform/handles.h"

namespace zn::test {
namespace {

using host::CountResources;
using host::ResourceUsage;

HWND NewWindow(DWORD style, HWND parent) {
  return ::CreateWindowA("STATIC", "", style, 0, 0, 9, 9, parent, nullptr, nullptr, nullptr);
}

struct TlsSlot {
  DWORD index = ::TlsAlloc();
  ~TlsSlot() { ::TlsFree(index); }
};

// One of each kind, and a window with a child.
struct Made {
  Unique<HANDLE, &::CloseHandle> event{::CreateEventA(nullptr, FALSE, FALSE, nullptr)};
  Unique<HBRUSH, &::DeleteObject> brush{::CreateSolidBrush(RGB(1, 0, 0))};
  std::unique_ptr<char[]> block = std::make_unique<char[]>(100);
  TlsSlot slot;
  Unique<HWND, &::DestroyWindow> window{NewWindow(WS_POPUP, nullptr)};
  HWND child = NewWindow(WS_CHILD, window.get());
};

// Each kind is counted one by one: the soak's promise of no growth rests on that.
TEST(ResourceUsageTest, CountsWhatIsMadeAndForgetsWhatIsGone) {
  constexpr int kMade = 50;
  // The thread's helper window for text input comes with its first window.
  const Made first;
  std::vector<Made>(kMade).clear();  // the system's own first-time allocations
  const ResourceUsage before = CountResources();
  std::vector<Made> made(kMade);
  const ResourceUsage with = CountResources();
  made.clear();
  const ResourceUsage after = CountResources();
  EXPECT_EQ(with.gdiObjects - before.gdiObjects, kMade);
  EXPECT_EQ(with.handles - before.handles, kMade);
  EXPECT_EQ(with.windows - before.windows, 2 * kMade);
  EXPECT_EQ(with.tlsSlots - before.tlsSlots, kMade);
  EXPECT_GE(with.heapBlocks - before.heapBlocks, kMade);
  EXPECT_EQ(after.gdiObjects + after.handles + after.windows + after.tlsSlots,
            before.gdiObjects + before.handles + before.windows + before.tlsSlots);
  EXPECT_LT(after.heapBlocks, with.heapBlocks);
}

}  // namespace
}  // namespace zn::test
