// Owners for resources that are released by one call.
#pragma once

#include <cstdio>
#include <memory>
#include <type_traits>

namespace zn {

template <auto Close>
struct Closer {
  template <class Handle>
  void operator()(Handle handle) const noexcept {
    Close(handle);
  }
};

template <class Handle, auto Close>
using Unique = std::unique_ptr<std::remove_pointer_t<Handle>, Closer<Close>>;

using UniqueFile = Unique<std::FILE*, &std::fclose>;

}  // namespace zn
