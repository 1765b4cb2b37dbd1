// The pictures of the sheets: every page as it opens, its interesting states, and the dialogs that
// it opens. Each is a PNG file; its name and the window's title are printed. The sheet is
// cancelled.
#pragma once

#include <string>

#include "host/window/property_sheet.h"

namespace zn::host {

// Throw HostError when a page cannot be shown or a file not be written.
void PicturePreferences(PropertySheet& sheet, const std::string& folder);
void PictureProperties(PropertySheet& sheet, const std::string& folder);

}  // namespace zn::host
