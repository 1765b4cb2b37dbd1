// Ends the process when code under test crashes or does not come back.
#pragma once

#include <windows.h>

#include <string>

#include "platform/handles.h"

namespace zn::host {

class TourWatch {
 public:
  static constexpr int kCrashed = 3;  // exit codes
  static constexpr int kHung = 4;

  // One object at a time.
  TourWatch();
  ~TourWatch();
  TourWatch(const TourWatch&) = delete;
  TourWatch& operator=(const TourWatch&) = delete;

  // What is under way from now on, as it would be printed, and a new time limit for it.
  void Begin(std::string what);

 private:
  static DWORD WINAPI Watch(void* self);

  Unique<HANDLE, &::CloseHandle> ended_;
  Unique<HANDLE, &::CloseHandle> thread_;
  void* handler_ = nullptr;
  volatile LONG64 deadline_ = 0;
};

}  // namespace zn::host
