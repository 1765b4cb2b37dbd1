// Favourites of this process alone: while the object lives, the plug-in finds its shared folders in
// one that is removed with it, and the user's favourites are not touched.
#pragma once

#include <windows.h>

#include <string>

#include "host/base/import_patch.h"
#include "host/window/property_sheet.h"

namespace zn::host {

class PrivateFavorites {
 public:
  // One at a time. Throws HostError.
  explicit PrivateFavorites(HMODULE plugIn);
  ~PrivateFavorites();
  PrivateFavorites(const PrivateFavorites&) = delete;
  PrivateFavorites& operator=(const PrivateFavorites&) = delete;

  // Has the sheets that open from now on use the set of that name, at first an empty one.
  void Enter(const std::string& set);
  // The folder of the set, and the file of one of its favourites.
  [[nodiscard]] const std::string& Folder() const { return folder_; }
  [[nodiscard]] std::string FileOf(const std::string& favorite) const;

 private:
  ImportPatch own_;
  ImportPatch plugIn_;
  std::string folder_;  // of the favourites
};

// Saves the settings that the basic page shows, through its dialog.
void SaveFavorite(const PropertySheet& sheet, HWND page, const std::string& name);

}  // namespace zn::host
