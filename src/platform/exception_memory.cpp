// Where the C++ runtime keeps exceptions and each thread's record of them, here without a single
// allocation. The runtime's own version allocates a reserve and a system object with every load of
// the module, takes a thread-local slot with the first exception and never gives it back, and ends
// the process when memory for either has run out. The linker takes these functions of the published
// C++ ABI instead of the runtime's object files.
#include <windows.h>

#include <cxxabi.h>
#include <unwind.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <exception>

namespace __cxxabiv1 {

struct __cxa_eh_globals {
  void* caughtExceptions;
  unsigned uncaughtExceptions;
};

}  // namespace __cxxabiv1

namespace {

using abi::__cxa_eh_globals;

// The runtime's header ends where the thrown object begins; this much holds it with its alignment.
constexpr std::size_t kHeaderRoom = 192;
static_assert(kHeaderRoom >= sizeof(_Unwind_Exception) + 12 * sizeof(void*));

struct alignas(16) Place {
  std::byte bytes[kHeaderRoom + 64];
  volatile LONG isTaken;
};
Place g_places[64];

struct ThreadRecord {
  __cxa_eh_globals globals;
  volatile LONG thread;  // 0: free
};
ThreadRecord g_threads[64];      // threads with an exception under way at the same time
constexpr int kPatience = 1000;  // milliseconds

ThreadRecord* FindThread(LONG thread) noexcept {
  for (ThreadRecord& record : g_threads) {
    if (record.thread == thread) {
      return &record;
    }
  }
  return nullptr;
}

// Nothing caught, nothing on its way; an exception of another module may have been counted once.
bool IsIdle(const ThreadRecord& record) noexcept {
  return record.globals.caughtExceptions == nullptr &&
         static_cast<int>(record.globals.uncaughtExceptions) <= 0;
}

// A thread without any exception gives its record back.
void LeaveThread() noexcept {
  ThreadRecord* record = FindThread(static_cast<LONG>(::GetCurrentThreadId()));
  if (record != nullptr && IsIdle(*record)) {
    record->globals = {};
    ::InterlockedExchange(&record->thread, 0);
  }
}

// Larger exceptions than this module throws would come from the heap.
void* TakePlace(std::size_t size) noexcept {
  for (Place& place : g_places) {
    if (size <= sizeof place.bytes && ::InterlockedExchange(&place.isTaken, 1) == 0) {
      return place.bytes;
    }
  }
  return std::malloc(size);
}

void GiveBack(void* memory) noexcept {
  for (Place& place : g_places) {
    if (memory == place.bytes) {
      ::InterlockedExchange(&place.isTaken, 0);
      return;
    }
  }
  std::free(memory);
}

}  // namespace

namespace __cxxabiv1 {
extern "C" {

__cxa_eh_globals* __cxa_get_globals() noexcept {
  const auto thread = static_cast<LONG>(::GetCurrentThreadId());
  if (ThreadRecord* record = FindThread(thread)) {
    return &record->globals;
  }
  for (int wait = 0;; ++wait) {
    for (ThreadRecord& record : g_threads) {
      const LONG holder = record.thread;
      // One that has been idle for so long was left behind with an exception of another module.
      if ((holder == 0 || (wait > kPatience && IsIdle(record))) &&
          ::InterlockedCompareExchange(&record.thread, thread, holder) == holder) {
        record.globals = {};
        return &record.globals;
      }
    }
    ::Sleep(1);  // until another thread has dealt with its exception
  }
}

__cxa_eh_globals* __cxa_get_globals_fast() noexcept {
  return __cxa_get_globals();
}

void* __cxa_allocate_exception(std::size_t size) noexcept {
  void* memory = TakePlace(kHeaderRoom + size);
  if (memory == nullptr) {
    std::terminate();
  }
  std::memset(memory, 0, kHeaderRoom);
  return static_cast<std::byte*>(memory) + kHeaderRoom;
}

// The end of an exception is the last that the runtime does with its thread's record.
void __cxa_free_exception(void* thrown) noexcept {
  GiveBack(static_cast<std::byte*>(thrown) - kHeaderRoom);
  LeaveThread();
}
}
}  // namespace __cxxabiv1
