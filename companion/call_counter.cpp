#include "companion/call_counter.h"

#include <cstdio>

namespace zn::companion {
namespace {

CallCounts* g_counts = nullptr;

struct MappingName {
  char text[64];
  MappingName() noexcept {
    std::snprintf(text, sizeof text, "Local\\ZnCompanionCalls-%lu", ::GetCurrentProcessId());
  }
};

CallCounts* MapCounts(HANDLE mapping) noexcept {
  return mapping == nullptr ? nullptr
                            : static_cast<CallCounts*>(::MapViewOfFile(mapping, FILE_MAP_WRITE, 0,
                                                                       0, sizeof(CallCounts)));
}

}  // namespace

void OpenCallCounts() noexcept {
  // The view keeps the memory; the handle is not needed any longer.
  const UniqueMapping mapping(::OpenFileMappingA(FILE_MAP_WRITE, FALSE, MappingName().text));
  g_counts = MapCounts(mapping.get());
  CountCall(Call::Load);
}

void CloseCallCounts() noexcept {
  const UniqueCounts closing(g_counts);
  g_counts = nullptr;
}

void CountCall(Call call) noexcept {
  if (g_counts != nullptr) {
    ::InterlockedIncrement(&(*g_counts)[static_cast<std::size_t>(call)]);
  }
}

CallCounter::CallCounter() noexcept
    : mapping_(::CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                    sizeof(CallCounts), MappingName().text)),
      counts_(MapCounts(mapping_.get())) {}

}  // namespace zn::companion
