#include "pages/favorites_list.h"

#include <commctrl.h>

#include <vector>

#include "pages/page_images.h"
#include "pages/pspage.h"
#include "platform/resources.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

constexpr LPARAM kStandardData = -1;  // the favourites count from 0
constexpr int kStandardImage = 1;
constexpr int kFavoriteImage = 2;

}  // namespace

void FavoritesList::Fill() const {
  const FavoritesStore& store = favorites_.List();
  std::vector<std::string> names{LoadResourceString(IDS_STANDARD_FAVORITE)};
  names.reserve(store.Count() + 1);
  for (std::size_t i = 0; i < store.Count(); ++i) {
    names.push_back(store.Name(i));
  }
  std::vector<int> images(names.size(), kFavoriteImage);
  images.front() = kStandardImage;
  FillList(list_, true, names, images, kStandardData);
  SetMark(0);
  Select(SheetFavorites::Choice());
}

void FavoritesList::Select(SheetFavorites::Choice choice) const {
  RemoveMark();
  ::SendMessageA(list_, CB_SETCURSEL, choice ? *choice + 1 : 0, 0);
}

LRESULT FavoritesList::SelectedEntry() const {
  return ::SendMessageA(list_, CB_GETCURSEL, 0, 0);
}

SheetFavorites::Choice FavoritesList::Selected() const {
  if (list_ == nullptr) {
    return std::nullopt;
  }
  const LRESULT data =
      ::SendMessageA(list_, CB_GETITEMDATA, static_cast<WPARAM>(SelectedEntry()), 0);
  const auto favorite = static_cast<std::size_t>(data);
  return data >= 0 && favorite < favorites_.List().Count() ? SheetFavorites::Choice(favorite)
                                                           : std::nullopt;
}

std::string FavoritesList::SelectedName() const {
  const SheetFavorites::Choice choice = Selected();
  return choice ? favorites_.List().Name(*choice) : LoadResourceString(IDS_STANDARD_FAVORITE);
}

bool FavoritesList::IsMarkSelected() const {
  return Mark() != 0 && Mark() == SelectedEntry();
}

void FavoritesList::ShowChange() const {
  const LRESULT selected = SelectedEntry();
  if (selected < 0) {
    return;
  }
  const bool isMarked = IsMarkSelected();
  if (Mark() != 0 && !isMarked) {
    Select(Selected());
  }
  const bool differs = favorites_.DiffersFrom(Selected());
  if (differs && !isMarked) {
    InsertMark(SelectedEntry());
  } else if (!differs && isMarked) {
    Select(Selected());
  }
}

void FavoritesList::InsertMark(LRESULT base) const {
  std::string text = LoadResourceString(IDS_CHANGED_MARK) + SelectedName();
  const SheetFavorites::Choice choice = Selected();
  COMBOBOXEXITEMA entry{};
  entry.mask = CBEIF_TEXT | CBEIF_IMAGE | CBEIF_SELECTEDIMAGE | CBEIF_LPARAM;
  entry.iItem = base + 1;
  entry.pszText = text.data();
  entry.iImage = entry.iSelectedImage = choice ? kFavoriteImage : kStandardImage;
  entry.lParam = choice ? static_cast<LPARAM>(*choice) : kStandardData;
  if (::SendMessageA(list_, CBEM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&entry)) == base + 1) {
    SetMark(base + 1);
    ::SendMessageA(list_, CB_SETCURSEL, static_cast<WPARAM>(base + 1), 0);
  }
}

void FavoritesList::RemoveMark() const {
  if (Mark() != 0) {
    ::SendMessageA(list_, CBEM_DELETEITEM, static_cast<WPARAM>(Mark()), 0);
    SetMark(0);
  }
}

}  // namespace zn
