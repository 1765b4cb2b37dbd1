// A short use of both sheets as a whole, whatever goes wrong on the way.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/driver/plug_in.h"
#include "host/driver/queue.h"
#include "host/driver/queue_devmode.h"
#include "host/private_favorites.h"

namespace zn::host {

struct TourEnd {
  std::optional<QueueDevMode> kept;     // nullopt: the plug-in refused to show the preferences
  std::vector<std::string> complaints;  // what no failure of the system excuses
};

// What a tour goes through: the properties, or the preferences and one of their pages, or all. In
// the order of planning, cheapest first: a call site is tried in the first part that reaches it.
enum class TourPart { Properties, Watermark, Tree, Job, Basic, Tray, All };

// Opens the sheet and its dialogs, saves and chooses the favourite kTourFavorite, changes, applies
// and closes. The plug-in is loaded already.
[[nodiscard]] TourEnd RunTour(const Queue& queue, const QueueDevMode& start, TourPart part);
inline constexpr char kTourFavorite[] = "tour";

// A DEVMODE with many settings other than the defaults, which the favourite kTourFavorite gets,
// too.
[[nodiscard]] QueueDevMode PrepareTour(PlugIn& plugIn, const Queue& queue);

}  // namespace zn::host
