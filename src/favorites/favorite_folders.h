// Where the files shared by all users of the machine lie, and what the manager of favourites needs
// of Windows: key texts, extension, deletion, existence.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "favorites/favorite_file.h"

namespace zn {

enum class SharedFolder : std::uint8_t { Base, Favorite, SpotColor, SpotColorUser, Profile };
enum class MissingFolder : std::uint8_t { Leave, Create };

// The folder's path in a buffer of `bufferSize` bytes, without a "\" at its end. Where the buffer
// leaves no room for the sub-folder, the base folder; empty when there is none or no room for it.
// `Create` makes every missing folder on the path.
[[nodiscard]] std::string GetSharedFolder(SharedFolder folder,
                                          MissingFolder missing = MissingFolder::Leave,
                                          std::size_t bufferSize = MAX_PATH);

// The key texts of the string table; empty where it has none.
[[nodiscard]] FavoriteKeys LoadFavoriteKeys();
// ".pfj", with its dot.
[[nodiscard]] std::string GetFavoriteExtension();
// Folder, "\", name and extension.
[[nodiscard]] std::string GetFavoritePath(std::string_view folder, std::string_view name);

// False when the file stays: also when `onlyInSharedFolder` is set and the entry lies elsewhere.
bool DeleteFavorite(const SettingSource& entry, bool onlyInSharedFolder);

// The names of the folder's favourite files, extension included, in no order. Names that the ANSI
// code page cannot spell are left out: no call would find their files.
[[nodiscard]] std::vector<std::string> ListFavoriteFiles(std::string_view folder);

// Whether there is a file or folder of that path.
[[nodiscard]] bool FavoriteFileExists(const char* path);

}  // namespace zn
