// Labels and option names of the stand-in companion, in the user's language: Japanese, in code page
// 932, or English. They come from the sample printer's option list, the source of its printer
// description too.
#pragma once

#include <span>

namespace zn::companion {

// The label of a keyword id or label number; null when the companion has none.
[[nodiscard]] const char* Label(int id) noexcept;

// The option names by option index; empty for an id without options.
[[nodiscard]] std::span<const char* const> OptionNames(int id) noexcept;

}  // namespace zn::companion
