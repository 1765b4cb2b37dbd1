#include "host/base/resource_usage.h"

#include <windows.h>
// This must come behind windows.h.
#include <winternl.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace zn::host {
namespace {

// The process's table of GDI handles: its place in the process block, and its entries on x64.
constexpr std::size_t kTableInPeb = 0xF8;
constexpr std::size_t kGdiHandles = 0x4000;
struct GdiEntry {
  std::uint64_t object;
  std::uint32_t owner;
  std::uint16_t unique;
  std::uint8_t type;  // 0: free
  std::uint8_t flags;
  std::uint64_t user;
};
static_assert(sizeof(GdiEntry) == 24 && offsetof(GdiEntry, type) == 14);

// Its bits for the indexes of thread-local slots: the first 64, and 1,024 more.
struct TlsBits {
  std::size_t inPeb;
  std::size_t words;
};
constexpr TlsBits kTlsBits[] = {{0x80, 2}, {0x240, 32}};

// Free ones are given out from the lowest on: a thousand and more tell of a leak by their number.
constexpr ULONG_PTR kHandleStep = 4;
constexpr ULONG_PTR kHandleEnd = 0x1000;

const std::byte* Peb() {
  PROCESS_BASIC_INFORMATION process{};
  ::NtQueryInformationProcess(::GetCurrentProcess(), ProcessBasicInformation, &process,
                              sizeof process, nullptr);
  return reinterpret_cast<const std::byte*>(process.PebBaseAddress);
}

int CountTlsSlots() {
  int count = 0;
  for (const TlsBits& bits : kTlsBits) {
    const auto* words = reinterpret_cast<const std::uint32_t*>(Peb() + bits.inPeb);
    for (std::size_t i = 0; i < bits.words; ++i) {
      count += std::popcount(words[i]);
    }
  }
  return count;
}

int CountGdiObjects() {
  const GdiEntry* table = *reinterpret_cast<const GdiEntry* const*>(Peb() + kTableInPeb);
  int count = 0;
  for (std::size_t i = 0; table != nullptr && i < kGdiHandles; ++i) {
    count += table[i].type != 0;
  }
  return count;
}

BOOL CALLBACK AddWindow(HWND window, LPARAM count) {
  int children = 0;
  ::EnumChildWindows(
      window,
      [](HWND, LPARAM counted) -> BOOL {
        ++*reinterpret_cast<int*>(counted);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&children));
  *reinterpret_cast<int*>(count) += 1 + children;
  return TRUE;
}

int CountWindows() {
  int count = 0;
  ::EnumThreadWindows(::GetCurrentThreadId(), &AddWindow, reinterpret_cast<LPARAM>(&count));
  return count;
}

int CountHandles() {
  int count = 0;
  for (ULONG_PTR handle = kHandleStep; handle < kHandleEnd; handle += kHandleStep) {
    DWORD flags = 0;
    count += ::GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags) != FALSE;
  }
  return count;
}

int CountHeapBlocks(HANDLE heap) {
  int count = 0;
  PROCESS_HEAP_ENTRY entry{};
  ::HeapLock(heap);
  while (::HeapWalk(heap, &entry)) {
    count += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
  }
  ::HeapUnlock(heap);
  return count;
}

// The C runtime keeps a heap of its own.
int CountHeapBlocks() {
  std::array<HANDLE, 64> heaps{};
  const DWORD heapCount =
      std::min(::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()),
               static_cast<DWORD>(heaps.size()));
  int count = 0;
  for (DWORD i = 0; i < heapCount; ++i) {
    count += CountHeapBlocks(heaps[i]);
  }
  return count;
}

}  // namespace

ResourceUsage CountResources() {
  return {CountGdiObjects(), CountWindows(), CountHandles(), CountHeapBlocks(), CountTlsSlots()};
}

}  // namespace zn::host
