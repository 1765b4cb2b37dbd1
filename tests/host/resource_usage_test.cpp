#include "host/resource_usage.h"

#include <windows.h>

#include <string>
#include <vector>

#include "gmock/gmock.h"
#include "host/files.h"
#include "platform/handles.h"

namespace zn::test {
namespace {

using host::CountResources;
using host::ResourceUsage;

// Each kind is counted one by one: the soak's promise of no growth rests on that.
TEST(ResourceUsageTest, CountsWhatIsMadeAndForgetsWhatIsGone) {
  using UniqueEvent = Unique<HANDLE, &::CloseHandle>;
  using UniqueBrush = Unique<HBRUSH, &::DeleteObject>;
  using UniqueWindow = Unique<HWND, &::DestroyWindow>;
  constexpr int kMade = 50;
  std::vector<UniqueEvent> events(kMade);
  std::vector<UniqueBrush> brushes(kMade);
  std::vector<std::unique_ptr<char[]>> blocks(kMade);
  // The thread's helper window for text input comes with its first window.
  const UniqueWindow first(
      ::CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr));
  UniqueWindow window;
  UniqueWindow child;
  const auto make = [&] {
    for (int i = 0; i < kMade; ++i) {
      events[i].reset(::CreateEventA(nullptr, FALSE, FALSE, nullptr));
      brushes[i].reset(::CreateSolidBrush(RGB(i, 0, 0)));
      blocks[i] = std::make_unique<char[]>(100);
    }
    window.reset(
        ::CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr));
    child.reset(::CreateWindowA("STATIC", "", WS_CHILD, 0, 0, 9, 9, window.get(), nullptr, nullptr,
                                nullptr));
  };
  const auto clear = [&] {
    child.reset();
    window.reset();
    for (int i = 0; i < kMade; ++i) {
      events[i].reset();
      brushes[i].reset();
      blocks[i].reset();
    }
  };
  make();  // the system's own first-time allocations
  clear();

  const ResourceUsage before = CountResources();
  make();
  const ResourceUsage with = CountResources();
  clear();
  const ResourceUsage after = CountResources();
  EXPECT_EQ(with.gdiObjects - before.gdiObjects, kMade);
  EXPECT_EQ(with.handles - before.handles, kMade);
  EXPECT_EQ(with.windows - before.windows, 2);
  EXPECT_GE(with.heapBlocks - before.heapBlocks, kMade);
  EXPECT_EQ(after.gdiObjects, before.gdiObjects);
  EXPECT_EQ(after.handles, before.handles);
  EXPECT_EQ(after.windows, before.windows);
  EXPECT_LT(after.heapBlocks, with.heapBlocks);
}

// The core driver unloads the plug-in after a sheet, and the plug-in its companions after a call.
TEST(ResourceUsageTest, ModulesLeaveNothingBehindWhenUnloaded) {
  for (const char* name : {"Zn55psu1.dll", "Zn55psu1UI.dll", "Zn55psu1ui2.dll"}) {
    const std::string path = host::ProgramFolder() + name;
    constexpr int kWarmUp = 3;
    constexpr int kLoads = 12;
    int before = 0;
    for (int i = -kWarmUp; i < kLoads; ++i) {
      if (i == 0) {
        before = CountResources().heapBlocks;
      }
      const UniqueModule module(::LoadLibraryA(path.c_str()));
      ASSERT_TRUE(module) << path;
    }
    EXPECT_LT(CountResources().heapBlocks - before, kLoads / 2) << name;
  }
}

}  // namespace
}  // namespace zn::test
