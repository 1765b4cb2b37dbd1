// Fills the process-wide table of form names that GetFormsInfo answers from.
#pragma once

namespace zn {

// Replaces the table by the printer's paper names. A printer without any leaves the old table.
void LoadFormNames(const char* printerName) noexcept;

}  // namespace zn
