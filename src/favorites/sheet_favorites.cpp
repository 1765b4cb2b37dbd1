#include "favorites/sheet_favorites.h"

#include <algorithm>
#include <memory>
#include <string>

#include "favorites/favorite_folders.h"
#include "platform/resources.h"
#include "res/resource_ids.h"
#include "session/forms.h"
#include "session/session_tables.h"

namespace zn {
namespace {

// Their items are always told the first choice, or hold fewer choices than the session.
bool HasChoicesBeyondItem(KeywordId id) {
  return std::ranges::count(kDeviceLists, id, &DeviceList::id) != 0 ||
         std::ranges::count(kCustomColors, id, &CustomColor::id) != 0;
}

std::uint32_t CountChoices(const OPTITEM* item) {
  const OPTTYPE* const type = item != nullptr ? item->pOptType : nullptr;
  if (type == nullptr) {
    return 0;
  }
  switch (type->Type) {
    case TVOT_2STATES:
    case TVOT_3STATES:
    case TVOT_LISTBOX:
    case TVOT_COMBOBOX:
      return type->Count;
    default:
      return 0;
  }
}

SheetSettings SettingsOf(SheetContext& sheet) {
  SheetSettings settings{sheet.options, sheet.jobValues, {0, &FormName}, {}};
  for (KeywordId id = 0; id < KW_MAX; ++id) {
    settings.choices[id] = HasChoicesBeyondItem(id) ? 0 : CountChoices(sheet.items[id]);
  }
  return settings;
}

}  // namespace

SheetFavorites& SheetFavorites::Of(SheetContext& sheet) {
  if (!sheet.favorites) {
    sheet.favorites = std::make_unique<SheetFavorites>(sheet);
  }
  return static_cast<SheetFavorites&>(*sheet.favorites);
}

SheetFavorites::SheetFavorites(SheetContext& sheet)
    : settings_(SettingsOf(sheet)),
      store_(
          GetSharedFolder(SharedFolder::Favorite), GetFavoriteExtension(), LoadFavoriteKeys(),
          {LoadResourceString(IDS_STANDARD_FAVORITE), LoadResourceString(IDS_RESERVED_FAVORITE)}) {
  Refresh();
}

// The form names are the process's: another sheet may have had them read anew.
SheetSettings& SheetFavorites::Settings() {
  settings_.forms.count = settings_.choices[KW_PAGESIZE] = GetFormsCount();
  return settings_;
}

void SheetFavorites::Refresh() {
  // Without a shared folder a search would look into the root of the drive.
  store_.SetFiles(store_.Folder().empty() ? std::vector<std::string>()
                                          : ListFavoriteFiles(store_.Folder()));
}

const SettingSource* SheetFavorites::Load(std::size_t index) {
  return store_.Load(index, Settings());
}

std::vector<SettingSource> SheetFavorites::LoadAll(std::size_t most) {
  std::vector<SettingSource> favorites(std::min(store_.Count(), most));
  for (std::size_t i = 0; i < favorites.size(); ++i) {
    if (const SettingSource* const favorite = store_.Load(i, Settings())) {
      favorites[i] = *favorite;
    } else {
      TakeDefaults(favorites[i], Settings());
      favorites[i].name = store_.Name(i);
    }
  }
  return favorites;
}

SettingSource& SheetFavorites::Current() {
  TakeCurrent(current_, Settings());
  return current_;
}

SettingSource SheetFavorites::Defaults() {
  SettingSource defaults;
  TakeDefaults(defaults, Settings());
  return defaults;
}

bool SheetFavorites::DiffersFrom(Choice choice) {
  if (!choice) {
    return DiffersFromDefaults(Settings());
  }
  const SettingSource* const favorite = store_.Load(*choice, Settings());
  return favorite != nullptr && Differs(*favorite, Reach::Favorite, Settings());
}

std::optional<PaperMatch> SheetFavorites::Select(Choice choice) {
  if (!choice) {
    ApplyDefaults(Settings());
    return PaperMatch::ByName;
  }
  store_.Forget();
  const SettingSource* const favorite = store_.Load(*choice, Settings());
  if (favorite == nullptr) {
    return std::nullopt;
  }
  const PaperMatch match = Apply(*favorite, Reach::Favorite, Settings());
  current_.option = favorite->option;
  return match;
}

SheetFavorites::Choice SheetFavorites::Save(std::string_view name, std::string_view comment) {
  if (!store_.Accepts(name, comment)) {
    return std::nullopt;
  }
  // Makes the folder for the first favourite of the machine.
  (void)GetSharedFolder(SharedFolder::Favorite, MissingFolder::Create);
  const std::string spelled = RespellFile(name);
  return store_.Save(spelled, comment, Settings()) ? store_.Find(spelled) : std::nullopt;
}

bool SheetFavorites::Delete(std::size_t index) {
  SettingSource entry;
  entry.folder = store_.Folder();
  entry.name = store_.Name(index);
  if (!DeleteFavorite(entry, true)) {
    return false;
  }
  store_.Remove(index);
  return true;
}

// The file system takes "Fair" and "fair" for one file: it gets the name that the user wrote. Where
// the file system keeps the old spelling, that is the favourite's name, as the folder lists it.
std::string SheetFavorites::RespellFile(std::string_view name) {
  std::string wanted(name);
  const std::string path = GetFavoritePath(store_.Folder(), name);
  if (store_.Find(name) || !FavoriteFileExists(path.c_str())) {
    return wanted;
  }
  for (std::size_t i = 0; i < store_.Count(); ++i) {
    if (std::string listed = store_.Name(i); ::lstrcmpiA(listed.c_str(), wanted.c_str()) == 0) {
      ::MoveFileA(GetFavoritePath(store_.Folder(), listed).c_str(), path.c_str());
      Refresh();
      return store_.Find(name) ? wanted : listed;
    }
  }
  return wanted;
}

}  // namespace zn
