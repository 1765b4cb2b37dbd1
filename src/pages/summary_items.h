// What the companion module's summary of a favourite lists, and in which order.
#pragma once

#include <vector>

#include "bridge/companion_abi.h"

namespace zn {

// Without page order where the printer has none.
[[nodiscard]] std::vector<companion_abi::SummaryItem> SummaryItems(bool hasPageOrder);

}  // namespace zn
