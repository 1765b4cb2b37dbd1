// The favourites of an open sheet: what the pages ask and do. Hangs on the sheet and goes with it.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "favorites/favorites_store.h"
#include "favorites/sheet_settings.h"
#include "session/sheet_context.h"

namespace zn {

class SheetFavorites final : public SheetAttachment {
 public:
  // An entry of the favourites list; nothing stands for the standard settings.
  using Choice = std::optional<std::size_t>;

  // The sheet's own; the folder is listed when it is asked for the first time.
  static SheetFavorites& Of(SheetContext& sheet);

  explicit SheetFavorites(SheetContext& sheet);

  // The sheet as the conversion sees it; what its options offer is gathered once.
  [[nodiscard]] SheetSettings& Settings();

  // Lists the folder anew.
  void Refresh();

  // Count, names and search.
  [[nodiscard]] const FavoritesStore& List() const { return store_; }

  // Null when the file cannot be read. Valid until the next call of this or of what changes the
  // favourites.
  [[nodiscard]] const SettingSource* Load(std::size_t index);
  // The first favourites in the order of the list, for the summary, which takes all at once (each
  // is 20 KB); one that cannot be read has the default settings.
  static constexpr std::size_t kMostInSummary = 1000;
  [[nodiscard]] std::vector<SettingSource> LoadAll(std::size_t most = kMostInSummary);

  // The sheet's settings now. What the record holds beyond them is that of the favourite or dialog
  // that was last taken over.
  [[nodiscard]] SettingSource& Current();
  [[nodiscard]] SettingSource Defaults();

  // Whether the current settings differ from the choice; a favourite that cannot be read does not.
  [[nodiscard]] bool DiffersFrom(Choice choice);
  // Replaces the current settings by the file as it is now; nothing, and no change, when the
  // favourite cannot be read.
  std::optional<PaperMatch> Select(Choice choice);

  // Saves the current settings over the favourite of that name, or as a new one; the favourite
  // that they are saved as. Nothing when name or comment cannot be had, or the file could not be
  // written whole.
  Choice Save(std::string_view name, std::string_view comment);
  // Deletes the favourite and its file; false when the file stays.
  bool Delete(std::size_t index);

 private:
  // The name under which the folder has, or takes, the favourite.
  [[nodiscard]] std::string RespellFile(std::string_view name);

  SheetSettings settings_;
  FavoritesStore store_;
  SettingSource current_;
};

}  // namespace zn
