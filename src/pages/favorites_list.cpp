#include "pages/favorites_list.h"

#include <commctrl.h>

#include <algorithm>
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
constexpr UINT_PTR kFillTimer = 1;

// Entries that are made in one go: a list of 10,000 would keep the page from opening.
constexpr std::size_t kPortion = 250;

// One tick at a time, so that other messages come in between.
void CALLBACK FillOn(HWND list, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) noexcept {
  ::KillTimer(list, timer);
  try {
    if (auto* const sheet =
            reinterpret_cast<SheetContext*>(::GetWindowLongPtrA(::GetParent(list), DWLP_USER))) {
      FavoritesList(list, SheetFavorites::Of(*sheet)).FillOnWhenIdle();
    }
  } catch (...) {  // without memory the list stays short until it is opened
  }
}

}  // namespace

void FavoritesList::Fill() const {
  std::string standard = LoadResourceString(IDS_STANDARD_FAVORITE);
  FillList(list_, true, {&standard, 1}, std::span(&kStandardImage, 1), kStandardData);
  SetMark(0);
  Select(SheetFavorites::Choice());
  FillOnWhenIdle();
}

void FavoritesList::FillOnWhenIdle() const {
  if (!FillMore(kPortion)) {
    ::SetTimer(list_, kFillTimer, USER_TIMER_MINIMUM, &FillOn);
  }
}

bool FavoritesList::FillMore(std::size_t most) const {
  const FavoritesStore& store = favorites_.List();
  const std::size_t first = CountFilled();
  const std::size_t count = std::min(most, store.Count() - std::min(first, store.Count()));
  if (count != 0) {
    std::vector<std::string> names;
    names.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
      names.push_back(store.Name(first + i));
    }
    const std::vector<int> images(count, kFavoriteImage);
    AddToList(list_, true, names, images, static_cast<LPARAM>(first));
  }
  return first + count >= store.Count();
}

void FavoritesList::FillAll() const {
  FillMore(favorites_.List().Count());
}

std::size_t FavoritesList::CountFilled() const {
  const LRESULT others = Mark() != 0 ? 2 : 1;  // the standard one, and the marked one
  const LRESULT count = ::SendMessageA(list_, CB_GETCOUNT, 0, 0);
  return static_cast<std::size_t>(std::max(count - others, LRESULT{0}));
}

void FavoritesList::Select(SheetFavorites::Choice choice) const {
  RemoveMark();
  if (choice && *choice >= CountFilled()) {
    FillAll();
  }
  SelectEntry(list_, choice ? *choice + 1 : 0);
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
    SelectEntry(list_, base + 1);
  }
}

void FavoritesList::RemoveMark() const {
  if (Mark() != 0) {
    ::SendMessageA(list_, CBEM_DELETEITEM, static_cast<WPARAM>(Mark()), 0);
    SetMark(0);
  }
}

}  // namespace zn
