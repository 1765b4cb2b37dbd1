// The process-wide table of form names: those of the last session set-up. Without a lock, as the
// core driver shows one sheet at a time.
#pragma once

#include <cstdint>

namespace zn {

// Replaces the table by the printer's paper names. A printer without any leaves the old table.
void LoadFormNames(const char* printerName) noexcept;

[[nodiscard]] std::uint32_t GetFormsCount() noexcept;
// 1 and the name, which ends within its 64 bytes; 0 when no table was built. `index` is not
// checked against the count.
int GetFormsInfo(std::uint32_t index, const char** name) noexcept;

}  // namespace zn
