// The favourites list of the basic page: the standard settings first, then every favourite by name.
// While the sheet's settings differ from the selected one, a marked entry stands behind that and is
// selected instead of it. There is one marked entry at most.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "favorites/sheet_favorites.h"

namespace zn {

class FavoritesList {
 public:
  // The list is an extended combo box; its user data holds where the marked entry stands.
  FavoritesList(HWND list, SheetFavorites& favorites) noexcept
      : list_(list), favorites_(favorites) {}

  // Shows the favourites that the sheet knows now and selects the standard settings. Of many, the
  // first are there at once, and the others follow while messages are handled.
  void Fill() const;
  void FillAll() const;
  // Adds the next entries, and has itself called again while some are left.
  void FillOnWhenIdle() const;
  // Selects an entry without a mark; a name that the sheet does not know: the standard settings.
  void Select(SheetFavorites::Choice choice) const;
  void Select(std::string_view name) const { Select(favorites_.List().Find(name)); }

  // What the selected entry stands for, marked or not; the standard settings without a selection.
  [[nodiscard]] SheetFavorites::Choice Selected() const;
  [[nodiscard]] std::string SelectedName() const;  // without the mark
  [[nodiscard]] bool IsMarkSelected() const;

  // Marks or unmarks the selected entry, as the settings differ from it or not, and removes a
  // marked entry that is not the selected one.
  void ShowChange() const;

 private:
  [[nodiscard]] LRESULT SelectedEntry() const;
  [[nodiscard]] std::size_t CountFilled() const;  // the favourites that have their entry
  // Adds the next entries, `most` of them or all that are left; true when none is left then.
  bool FillMore(std::size_t most) const;
  void InsertMark(LRESULT base) const;
  void RemoveMark() const;
  // Where the marked entry stands; 0: nowhere.
  [[nodiscard]] LONG_PTR Mark() const { return ::GetWindowLongPtrA(list_, GWLP_USERDATA); }
  void SetMark(LONG_PTR entry) const { ::SetWindowLongPtrA(list_, GWLP_USERDATA, entry); }

  HWND list_;
  SheetFavorites& favorites_;
};

}  // namespace zn
