// Tagged items: the value of a record's field as text and back, one tag at a time.
#pragma once

#include <string>
#include <string_view>

#include "ddb/print_option.h"

namespace ddb {

// Parses `valueText` into the record, or renders the field into it. Tags match without regard to
// case; an unknown tag changes nothing, and an ignored one leaves the text as it was. Never fails:
// text without a number reads as 0, longer text is cut.
void ExchangeTag(std::string_view tag, std::string& valueText, CPrintOption& record,
                 bool readDirection, bool translateMediaCodes);

}  // namespace ddb
