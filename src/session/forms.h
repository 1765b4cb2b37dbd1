// The process-wide table of forms, their names and sizes: those of the last session set-up. Without
// a lock, as the core driver shows one sheet at a time.
#pragma once

#include <cstdint>
#include <string_view>

namespace zn {

// Replaces the table by the printer's papers. A printer without any leaves the old table.
void LoadForms(const char* printerName) noexcept;

[[nodiscard]] std::uint32_t GetFormsCount() noexcept;
// 1 and the name, which ends within its 64 bytes; 0 when no table was built. `index` is not
// checked against the count.
int GetFormsInfo(std::uint32_t index, const char** name) noexcept;
// "" for a form that the table does not have.
[[nodiscard]] std::string_view FormName(std::uint32_t index) noexcept;
// The custom size is the last form.
[[nodiscard]] bool IsCustomForm(std::uint32_t index) noexcept;
// Of the portrait sheet, in tenths of a millimetre; 0 by 0 for a form that has none.
struct FormSize {
  std::uint32_t width, height;
};
[[nodiscard]] FormSize GetFormSize(std::uint32_t index) noexcept;

}  // namespace zn
