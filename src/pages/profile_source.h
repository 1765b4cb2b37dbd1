// Where the device profile of a sheet's printer lies.
#pragma once

#include "profile/profile_info.h"
#include "session/sheet_context.h"

namespace zn {

// Reads the profile that the sheet names, or, while it names none, the one with the driver's name,
// from the folder of the driver's data file. True when a file was read; false after falling back
// to everything installed, also for a printer that cannot be asked.
bool UpdateProfile(CProfileInfo& profile, const SheetContext& sheet);

}  // namespace zn
