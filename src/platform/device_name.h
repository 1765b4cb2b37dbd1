// Names that the system keeps for devices. A file of such a name is the device: opening it may wait
// for ever, and what is written to it is lost.
#pragma once

#include <string_view>

namespace zn {

// CON, PRN, AUX, NUL, COM0 to COM9, LPT0 to LPT9, CONIN$ and CONOUT$, in any case, also with an
// extension or trailing blanks. `fileName` is without a folder.
[[nodiscard]] bool IsDeviceName(std::string_view fileName) noexcept;

}  // namespace zn
