#include "favorites/favorites_store.h"

#include <algorithm>
#include <utility>

#include "platform/replace_file.h"

namespace zn {
namespace {

#ifdef _WIN32
constexpr char kSeparator = '\\';
#else
constexpr char kSeparator = '/';
#endif

constexpr char AsciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The file system does not tell ".PFJ" from ".pfj".
bool HasExtension(std::string_view fileName, std::string_view extension) {
  return fileName.size() > extension.size() &&
         std::ranges::equal(fileName.substr(fileName.size() - extension.size()), extension, {},
                            AsciiLower, AsciiLower);
}

}  // namespace

FavoritesStore::FavoritesStore(std::string folder, std::string extension, FavoriteKeys keys,
                               std::vector<std::string> reserved)
    : folder_(std::move(folder)),
      extension_(std::move(extension)),
      reserved_(std::move(reserved)),
      files_(std::move(keys)) {}

void FavoritesStore::SetFiles(const std::vector<std::string>& fileNames) {
  loaded_.reset();
  names_.clear();
  for (const std::string& fileName : fileNames) {
    if (HasExtension(fileName, extension_)) {
      std::string name = fileName.substr(0, fileName.size() - extension_.size());
      if (IsFavoriteName(name)) {
        names_.push_back(std::move(name));
      }
    }
  }
  std::ranges::sort(names_);
  names_.erase(std::unique(names_.begin(), names_.end()), names_.end());
}

std::optional<std::size_t> FavoritesStore::Find(std::string_view name) const {
  const auto found = std::ranges::lower_bound(names_, name, std::less<>());
  return found != names_.end() && *found == name
             ? std::optional(static_cast<std::size_t>(found - names_.begin()))
             : std::nullopt;
}

const SettingSource* FavoritesStore::Load(std::size_t index, const SheetSettings& sheet) {
  const std::string& name = names_[index];
  if (!loaded_ || loaded_->name != name) {
    SettingSource& favorite = loaded_.emplace();
    TakeDefaults(favorite, sheet);
    // A favourite that says nothing about its paper takes the sheet's, not the default one.
    const ddb::RecordField& paper = SettingRows()[KW_PAGESIZE].field;
    paper.Set(favorite.option, paper.NotSpecified());
    favorite.pageSizeName.clear();
    favorite.folder = folder_;
    favorite.name = name;
    if (!files_.LoadFavoriteFromPath(favorite, PathOf(name).c_str())) {
      loaded_.reset();
      return nullptr;
    }
  }
  return &*loaded_;
}

bool FavoritesStore::Save(std::string_view name, std::string_view comment,
                          const SheetSettings& sheet) {
  if (!Accepts(name, comment)) {
    return false;
  }
  const std::optional<std::size_t> present = Find(name);
  const SettingSource* const old = present ? Load(*present, sheet) : nullptr;
  SettingSource favorite = old != nullptr ? *old : SettingSource{};
  loaded_.reset();  // until the new one is saved
  TakeCurrent(favorite, sheet);
  favorite.folder = folder_;
  favorite.name = name;
  favorite.comment = comment;
  if (!SaveFile(favorite, PathOf(name))) {
    return false;
  }
  if (!present) {
    names_.insert(std::ranges::lower_bound(names_, favorite.name), favorite.name);
  }
  loaded_ = std::move(favorite);
  return true;
}

// A full disk or a crash half way must not cost the old favourite: it is replaced by a whole new
// one.
bool FavoritesStore::SaveFile(const SettingSource& favorite, const std::string& path) {
  bool canBeSaved = true;
  if (DraftFile draft(path + ".tmp"); draft.IsCreated()) {
    canBeSaved = files_.SaveFavoriteFromPath(favorite, draft.Path(), path.c_str());
    if (canBeSaved && draft.Replace(path.c_str())) {
      return true;
    }
  }
  // Another program may have the old one open, or this user may write to it, but not replace it.
  return canBeSaved && files_.SaveFavoriteFromPath(favorite, path.c_str());
}

void FavoritesStore::Remove(std::size_t index) {
  names_.erase(names_.begin() + static_cast<std::ptrdiff_t>(index));
  loaded_.reset();
}

std::string FavoritesStore::PathOf(std::string_view name) const {
  return std::string(folder_).append(1, kSeparator).append(name).append(extension_);
}

bool FavoritesStore::Accepts(std::string_view name, std::string_view comment) const {
  return !folder_.empty() && IsFavoriteName(name) && comment.size() <= kMaxComment;
}

bool FavoritesStore::IsFavoriteName(std::string_view name) const {
  return CheckFavoriteName(name, reserved_) == FavoriteNameFault::None;
}

}  // namespace zn
