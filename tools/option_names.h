// What the printer description calls the settings and their options, as UTF-8.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "keywords/keyword_ids.h"

namespace zn::inspect {

// Empty for an id that is no keyword's.
[[nodiscard]] std::string_view LabelOf(KeywordId id) noexcept;

// By option index; empty when the description names no such option. The customary PPD names, and
// the texts of options that have none.
[[nodiscard]] std::string_view OptionName(KeywordId id, std::uint32_t index) noexcept;
[[nodiscard]] std::uint32_t OptionNameCount(KeywordId id) noexcept;
[[nodiscard]] std::optional<std::uint32_t> OptionNamed(KeywordId id,
                                                       std::string_view name) noexcept;

}  // namespace zn::inspect
