// What the buttons beside the favourites list do.
#pragma once

namespace zn {

class PageFrame;

// Asks for name and comment and saves the current settings under them: over the favourite of that
// name, or as a new one, which is selected then. Cancelled: nothing changes.
void OnSavePreset(PageFrame& page);

// The companion module's summary of all favourites. Closed with OK, those that the user deleted
// there are gone; the current settings stay as they are.
void OnSummaryPreset(PageFrame& page);

}  // namespace zn
