// What the compiler's stack protection asks of a runtime. The compiler's own library for it opens a
// system module for its random number, at every load of the plug-in.
#include <windows.h>
// This must come behind windows.h.
#include <x86intrin.h>

#include <cstdint>

extern "C" {

// Stands before the return address of every protected frame.
std::uintptr_t __stack_chk_guard = 0x2B992DDFA23249D6;

[[noreturn]] void __stack_chk_fail() {
  constexpr int kStackCookieCheckFailure = 2;
  if (::IsProcessorFeaturePresent(PF_FASTFAIL_AVAILABLE) != FALSE) {
    __asm__ volatile("int $0x29" : : "c"(kStackCookieCheckFailure));  // the system's fast fail
  }
  ::TerminateProcess(::GetCurrentProcess(), STATUS_STACK_BUFFER_OVERRUN);
  __builtin_unreachable();
}
}

namespace {

// The first constructor: no protected frame is open yet.
__attribute__((constructor(101), no_stack_protector)) void SetStackGuard() {
  // Where module and stack lie is random, and nobody else sees the counter at this moment.
  const int onStack = 0;
  std::uintptr_t seed = __rdtsc() ^ reinterpret_cast<std::uintptr_t>(&__stack_chk_guard) << 16 ^
                        reinterpret_cast<std::uintptr_t>(&onStack) << 32;
  seed = (seed ^ seed >> 33) * 0xFF51AFD7ED558CCD;
  seed = (seed ^ seed >> 33) * 0xC4CEB9FE1A85EC53;
  __stack_chk_guard = (seed ^ seed >> 33) & ~std::uintptr_t{0xFF};  // a 0 byte ends texts before it
}

}  // namespace
