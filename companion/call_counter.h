// Counts what a process asks of the stand-in companions. The modules are unloaded after every
// call, so the counts live in shared memory that the interested process makes and keeps.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <memory>

#include "platform/handles.h"

namespace zn::companion {

enum class Call : std::size_t {
  Load,  // of either module
  PrintOptionSetting,
  FavoriteSummary,
  GetPrintOptionList,
  DeleteMember,
  GetPrintOptionString,
  GetPrintOptionStringList,
  AuthenticationManager,
  kCount
};

using CallCounts = std::array<volatile LONG, static_cast<std::size_t>(Call::kCount)>;
using UniqueMapping = Unique<HANDLE, &::CloseHandle>;
using UniqueCounts = std::unique_ptr<CallCounts, Closer<&::UnmapViewOfFile>>;

// For the companions: looks for the process's counts once, when the module is loaded, and counts
// the load; both are safe when the process keeps none.
void OpenCallCounts() noexcept;
void CloseCallCounts() noexcept;
void CountCall(Call call) noexcept;

// For the process: keeps counts while the object lives; all 0 at first.
class CallCounter {
 public:
  CallCounter() noexcept;

  [[nodiscard]] LONG operator[](Call call) const noexcept {
    return counts_ != nullptr ? (*counts_)[static_cast<std::size_t>(call)] : 0;
  }

 private:
  UniqueMapping mapping_;
  UniqueCounts counts_;
};

}  // namespace zn::companion
