// Takes the lines of a device profile over into the item table.
//
// Each line is meant for every item in index order: an item is named when its key occurs anywhere
// in the line. A named flag item becomes present when its expected value occurs anywhere in the
// line, too. A named value item whose key (the first occurrence) is followed by "=" takes the rest
// of the line and ends the line. Nothing is anchored or trimmed:
//
//   HasOption_InputSlot=Manual        the fifth input slot
//   HasOption_ZNStapleX=true          the staple flag: keys are found inside longer words
//   Watermark10=CONFIDENTIAL          Watermark10; "Watermark1" is found, but not followed by "="
//   [Options]                         names nothing and is passed over
#pragma once

#include <string_view>

#include "profile/profile_info.h"

namespace zn::profile {

// `lines`: any number of lines, each ended by LF or CR LF; the last may lack it.
void TakeLines(std::string_view lines, CProfileInfo::ItemTable& items);

}  // namespace zn::profile
