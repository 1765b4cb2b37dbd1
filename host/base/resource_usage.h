// How much of the system this process holds. Counted where Wine keeps it, because its own answers
// to the usual questions are 0.
#pragma once

namespace zn::host {

struct ResourceUsage {
  int gdiObjects = 0;
  int windows = 0;     // of this thread, children included
  int handles = 0;     // kernel handles
  int heapBlocks = 0;  // of every heap
  int tlsSlots = 0;    // indexes that TlsAlloc gave out
};

inline constexpr struct {
  const char* name;
  int ResourceUsage::*count;
} kResources[] = {{"GDI objects", &ResourceUsage::gdiObjects},
                  {"windows", &ResourceUsage::windows},
                  {"handles", &ResourceUsage::handles},
                  {"TLS slots", &ResourceUsage::tlsSlots},
                  {"heap blocks", &ResourceUsage::heapBlocks}};

[[nodiscard]] ResourceUsage CountResources();

}  // namespace zn::host
