// The favourites of one folder: their names in a stable order, and one loaded favourite at a time.
// A favourite is read when it is first asked for, so that a folder of thousands costs no more than
// its listing until the user picks one.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "favorites/favorite_file.h"
#include "favorites/favorite_name.h"
#include "favorites/sheet_settings.h"

namespace zn {

class FavoritesStore {
 public:
  // `folder` without a separator at its end; empty: there is none, and nothing can be saved.
  // `extension` with its dot; `reserved` names what is no favourite, whatever the folder holds.
  FavoritesStore(std::string folder, std::string extension, FavoriteKeys keys = {},
                 std::vector<std::string> reserved = {});

  // Takes the file names of the folder (other files are passed over) and forgets what was loaded.
  // The favourites stand in the order of the bytes of their names.
  void SetFiles(const std::vector<std::string>& fileNames);

  [[nodiscard]] const std::string& Folder() const { return folder_; }
  [[nodiscard]] std::size_t Count() const { return names_.size(); }
  [[nodiscard]] const std::string& Name(std::size_t index) const { return names_[index]; }
  [[nodiscard]] std::optional<std::size_t> Find(std::string_view name) const;

  // The favourite's settings, or null when its file cannot be read. What the file does not hold
  // has the sheet's default, except for the paper size, which is not specified then. Valid until
  // the next call of Load, Save, Remove or SetFiles.
  [[nodiscard]] const SettingSource* Load(std::size_t index, const SheetSettings& sheet);
  // The next Load reads the file again.
  void Forget() { loaded_.reset(); }

  // Whether a favourite can have this name and comment; saving needs both.
  [[nodiscard]] bool Accepts(std::string_view name, std::string_view comment) const;

  // Saves the current settings under `name`: over the favourite of that name, or as a new one.
  // False, and the old favourite as it was, when the name cannot be had, the comment is too long,
  // or the file could not be written whole.
  bool Save(std::string_view name, std::string_view comment, const SheetSettings& sheet);

  // Takes the favourite out of the list; its file is the caller's.
  void Remove(std::size_t index);

 private:
  [[nodiscard]] std::string PathOf(std::string_view name) const;
  bool SaveFile(const SettingSource& favorite, const std::string& path);
  [[nodiscard]] bool IsFavoriteName(std::string_view name) const;

  std::string folder_;
  std::string extension_;
  std::vector<std::string> reserved_;
  CFavoriteFileManager files_;
  std::vector<std::string> names_;  // sorted
  std::optional<SettingSource> loaded_;
};

}  // namespace zn
