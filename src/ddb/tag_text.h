// Tagged items: the value of a record's field as text and back, one tag at a time.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "ddb/print_option.h"
#include "ddb/tag_table.h"

namespace ddb {

inline constexpr std::size_t kValueTextSize = 513;  // holds the longest value and its terminator

// Parses `valueText` into the record, or renders the field into it (a buffer of kValueTextSize
// bytes). Tags match without regard to case; an unknown tag changes nothing, and an ignored one
// leaves the buffer as it was. Never fails: text without a number reads as 0, longer text is cut.
void ExchangeTag(const char* tag, char* valueText, CPrintOption& record, bool readDirection,
                 bool translateMediaCodes);

// The same for a row at hand, on bounded text.
using NumberText = std::array<char, 16>;
void ParseValue(PrintOptionBody& body, const Tag& tag, std::string_view value,
                bool translateMediaCodes) noexcept;
// The text lies in `scratch` or in the body; nothing for an ignored tag.
[[nodiscard]] std::optional<std::string_view> ValueText(const PrintOptionBody& body, const Tag& tag,
                                                        bool translateMediaCodes,
                                                        NumberText& scratch) noexcept;

}  // namespace ddb
