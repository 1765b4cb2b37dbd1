// What an exported function or COM method runs in: no exception leaves it.
#pragma once

#include <windows.h>

#include <new>

namespace zn {

// The body's result; `otherwise` when it threw.
template <class Result, class Body>
Result GuardedOr(Result otherwise, Body&& body) noexcept {
  try {
    return body();
  } catch (...) {
    return otherwise;
  }
}

// The body's result; E_OUTOFMEMORY or E_FAIL when it threw.
template <class Body>
HRESULT Guarded(Body&& body) noexcept {
  try {
    return body();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

// A refused parameter: sets the thread's last error.
inline HRESULT FailWith(DWORD error) noexcept {
  ::SetLastError(error);
  return E_FAIL;
}

}  // namespace zn
