#include "host/faults/tour_watch.h"

#include <csignal>
#include <cstdio>
#include <utility>

namespace zn::host {
namespace {

constexpr LONG64 kLimit = 30'000;  // milliseconds
constexpr DWORD kTick = 500;

std::string g_what;

[[noreturn]] void End(int code, const char* how, const void* address) {
  HMODULE module = nullptr;
  ::GetModuleHandleExA(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      static_cast<const char*>(address), &module);
  char path[MAX_PATH] = "";
  ::GetModuleFileNameA(module, path, sizeof path);
  std::printf("failure: %s: %s", g_what.c_str(), how);
  if (address != nullptr) {
    std::printf(" in %s +0x%zx", path,
                static_cast<std::size_t>(static_cast<const char*>(address) -
                                         reinterpret_cast<const char*>(module)));
  }
  std::printf("\n");
  std::fflush(stdout);
  ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(code));
  std::abort();
}

// The crash is told where it happens: a window procedure's caller may swallow it later.
LONG CALLBACK OnException(EXCEPTION_POINTERS* exception) {
  switch (exception->ExceptionRecord->ExceptionCode) {
    case STATUS_ACCESS_VIOLATION:
    case STATUS_ILLEGAL_INSTRUCTION:
    case STATUS_INTEGER_DIVIDE_BY_ZERO:
    case STATUS_PRIVILEGED_INSTRUCTION:
    case STATUS_STACK_OVERFLOW:
      End(TourWatch::kCrashed, "crash", exception->ExceptionRecord->ExceptionAddress);
    default:
      return EXCEPTION_CONTINUE_SEARCH;
  }
}

void OnAbort(int) {
  End(TourWatch::kCrashed, "abort", nullptr);
}

}  // namespace

TourWatch::TourWatch() : ended_(::CreateEventA(nullptr, TRUE, FALSE, nullptr)) {
  Begin("start");
  handler_ = ::AddVectoredExceptionHandler(1, &OnException);
  std::signal(SIGABRT, &OnAbort);
  thread_.reset(::CreateThread(nullptr, 0, &Watch, this, 0, nullptr));
}

TourWatch::~TourWatch() {
  ::SetEvent(ended_.get());
  ::WaitForSingleObject(thread_.get(), INFINITE);
  ::RemoveVectoredExceptionHandler(handler_);
  std::signal(SIGABRT, SIG_DFL);
}

void TourWatch::Begin(std::string what) {
  g_what = std::move(what);
  deadline_ = static_cast<LONG64>(::GetTickCount64()) + kLimit;
}

DWORD WINAPI TourWatch::Watch(void* self) {
  const auto& watch = *static_cast<const TourWatch*>(self);
  while (::WaitForSingleObject(watch.ended_.get(), kTick) == WAIT_TIMEOUT) {
    if (static_cast<LONG64>(::GetTickCount64()) > watch.deadline_) {
      End(kHung, "hang", nullptr);
    }
  }
  return 0;
}

}  // namespace zn::host
