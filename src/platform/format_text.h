// Filling of the formats in the string table. A translated text may hold other placeholders than
// the code knows, so they never reach a printf.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace zn {

// `format` with each "%s" or "%d" replaced by the next text; everything else stays as it is.
[[nodiscard]] std::string FillIn(std::string_view format,
                                 std::initializer_list<std::string_view> texts);

}  // namespace zn
