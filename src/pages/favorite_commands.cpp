#include "pages/favorite_commands.h"

#include <algorithm>
#include <string>
#include <vector>

#include "bridge/companion.h"
#include "pages/favorites_list.h"
#include "pages/page_frame.h"
#include "pages/pspage.h"
#include "pages/savepresetdlg.h"
#include "platform/format_text.h"
#include "platform/resources.h"
#include "res/resource_ids.h"
#include "session/job_values.h"

namespace zn {
namespace {

HWND ListOf(const PageFrame& page) noexcept {
  return ::GetDlgItem(page.Window(), IDC_BASIC_FAVORITES);
}

void Report(HWND page, UINT message, std::string_view name) {
  ShowMessage(page, FillIn(LoadResourceString(message), {name}), IDS_WARNING_CAPTION,
              MB_ICONEXCLAMATION);
}

// By name: the list may have changed while the dialog was open.
void DeleteFavorites(HWND page, SheetFavorites& favorites, std::span<const SettingSource> shown,
                     std::span<const std::uint8_t> marks) {
  for (std::size_t i = 0; i < std::min(shown.size(), marks.size()); ++i) {
    const SheetFavorites::Choice choice =
        marks[i] != 0 ? favorites.List().Find(shown[i].name) : std::nullopt;
    if (choice && !favorites.Delete(*choice)) {
      Report(page, IDS_FAVORITE_DELETE_FAILED, shown[i].name);
    }
  }
}

}  // namespace

void OnSavePreset(PageFrame& page) {
  SheetFavorites& favorites = SheetFavorites::Of(page.Sheet());
  const FavoritesList list(ListOf(page), favorites);
  CSavePresetDlg::Name name;
  CSavePresetDlg::Comment comment;
  const std::string shown = list.SelectedName();
  CopyText(name, shown);
  const SheetFavorites::Choice selected = list.Selected();
  const SettingSource* const favorite = selected ? favorites.Load(*selected) : nullptr;
  CopyText(comment, favorite != nullptr ? std::string_view(favorite->comment) : "");
  if (CSavePresetDlg().DoModal(name, comment) != IDOK) {
    return;
  }
  const SheetFavorites::Choice saved = favorites.Save(name, comment);
  list.Fill();  // also after a failure: the folder may have been listed anew
  list.Select(saved ? saved : favorites.List().Find(shown));
  list.ShowChange();
  if (!saved) {
    Report(page.Window(), IDS_FAVORITE_SAVE_FAILED, name);
  }
}

void OnSummaryPreset(PageFrame& page) {
  SheetContext& sheet = page.Sheet();
  SheetFavorites& favorites = SheetFavorites::Of(sheet);
  const FavoritesList list(ListOf(page), favorites);
  const SheetFavorites::Choice selected = list.Selected();
  const std::string name = list.SelectedName();

  std::vector<SettingSource> loaded = favorites.LoadAll();
  std::vector<companion_abi::FavoriteSummaryEntry> entries;
  entries.reserve(loaded.size());
  for (SettingSource& favorite : loaded) {
    entries.push_back({favorite.name.c_str(), favorite.comment.c_str(), &favorite.option});
  }
  // Copies: what the module does to them is no change of the sheet.
  SettingSource current = favorites.Current();
  SettingSource defaults = favorites.Defaults();
  FavoriteSummaryDialog dialog{.favorites = entries,
                               .current = &current.option,
                               .defaults = &defaults.option,
                               .favoriteFolder = favorites.List().Folder(),
                               .profile = std::string(DeviceProfileOf(sheet)),
                               .owner = ::GetParent(page.Window()),
                               .page = page.Window(),
                               .selection = selected ? static_cast<int>(*selected) : -1,
                               .name = name,
                               .deleted = {}};
  if (!DoModalFavoriteSummaryUI(sheet.hPrinter, dialog)) {
    return;
  }
  DeleteFavorites(page.Window(), favorites, loaded, dialog.deleted);
  // Somebody else may have saved or deleted others meanwhile. Selecting an entry from here does not
  // take its settings over: the current ones stay.
  favorites.Refresh();
  list.Fill();
  list.Select(name);
  list.ShowChange();
}

}  // namespace zn
