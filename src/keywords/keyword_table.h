// The PPD keywords of the printer description with their ids, and per keyword the print-option
// codes behind the core driver's option indexes.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "keywords/keyword_ids.h"

namespace zn {

// Exact, case-sensitive lookup; kNoKeyword when the keyword is not in the table.
[[nodiscard]] KeywordId GetKeywordId(std::string_view keyword) noexcept;

// `id` 0 to 265; an empty text otherwise.
[[nodiscard]] const char* GetKeywordName(KeywordId id) noexcept;

// The codes by option index. Any id is answered: one without a list of its own has 0, 1.
[[nodiscard]] std::span<const std::uint32_t> GetOptionCodeList(KeywordId id) noexcept;

// Both leave `out` alone and answer false when the index or code is not in the id's list.
bool GetOptionCode(KeywordId id, std::uint32_t index, std::uint32_t& code) noexcept;
bool GetOptionIndex(KeywordId id, std::uint32_t code, std::uint32_t& index) noexcept;

}  // namespace zn
