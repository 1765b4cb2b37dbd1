#include "pages/page_images.h"

#include <commctrl.h>

#include <algorithm>
#include <array>

#include "platform/resources.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

constexpr COLORREF kTransparentColor = RGB(255, 0, 255);

// A bitmap of square images side by side.
struct ImageStrip {
  UINT bitmapId;
  int size;  // pixels
  bool endsWithWarning;
};
constexpr std::array kStrips{
    ImageStrip{IDB_COLOR_MODE, 24, false}, ImageStrip{IDB_DUPLEX, 24, false},
    ImageStrip{IDB_FAVORITE, 16, false},   ImageStrip{IDB_NUP, 24, false},
    ImageStrip{IDB_PUNCH, 24, true},       ImageStrip{IDB_STAPLE, 24, true},
};

UniqueImageList LoadImages(const ImageStrip& strip) {
  const UniqueBitmap bitmap(static_cast<HBITMAP>(::LoadImageA(
      ResourceInstance(), MAKEINTRESOURCEA(strip.bitmapId), IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR)));
  UniqueImageList images(::ImageList_Create(strip.size, strip.size, ILC_COLOR24 | ILC_MASK, 1, 1));
  if (!bitmap || !images ||
      ::ImageList_AddMasked(images.get(), bitmap.get(), kTransparentColor) < 0) {
    return nullptr;
  }
  if (strip.endsWithWarning) {
    ::ImageList_AddIcon(images.get(), LoadWarningImage().icon24);
  }
  return images;
}

HICON SharedIcon(UINT id, int size) noexcept {
  return static_cast<HICON>(
      ::LoadImageA(ResourceInstance(), MAKEINTRESOURCEA(id), IMAGE_ICON, size, size, LR_SHARED));
}

}  // namespace

const WarningImages& LoadWarningImage() {
  static const WarningImages images = [] {
    WarningImages made{SharedIcon(IDI_WARNING_16, 16), SharedIcon(IDI_WARNING_24, 24),
                       SharedIcon(IDI_WARNING_24, 32),
                       UniqueImageList(::ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 1, 1))};
    ::ImageList_AddIcon(made.m_hImgWarningList_16.get(), made.icon16);
    return made;
  }();
  return images;
}

HIMAGELIST SharedImages(UINT bitmapId) {
  static std::array<UniqueImageList, kStrips.size()> made;
  const auto strip = std::ranges::find(kStrips, bitmapId, &ImageStrip::bitmapId);
  if (strip == kStrips.end()) {
    return nullptr;
  }
  UniqueImageList& images = made[static_cast<std::size_t>(strip - kStrips.begin())];
  if (!images) {
    images = LoadImages(*strip);
  }
  return images.get();
}

int SetWarningIndex(std::span<const std::uint32_t> availableFlags, std::span<int> imageIndices,
                    HIMAGELIST imageList) noexcept {
  const int last = imageList != nullptr ? ::ImageList_GetImageCount(imageList) - 1 : -1;
  if (last < 0) {
    return 0;
  }
  int marked = 0;
  for (std::size_t option = 0; option < std::min(availableFlags.size(), imageIndices.size());
       ++option) {
    if (availableFlags[option] == 0) {
      imageIndices[option] = last;
      marked = 1;
    }
  }
  return marked;
}

bool ShowsWarning(HWND list, int entry) noexcept {
  const auto images = reinterpret_cast<HIMAGELIST>(::SendMessageA(list, CBEM_GETIMAGELIST, 0, 0));
  COMBOBOXEXITEMA item{};
  item.mask = CBEIF_IMAGE;
  item.iItem = entry;
  return images != nullptr &&
         ::SendMessageA(list, CBEM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item)) != 0 &&
         item.iImage == ::ImageList_GetImageCount(images) - 1;
}

void AttachImages(HWND page, std::span<const ListImages> lists) {
  for (const auto& [listId, bitmapId] : lists) {
    ::SendDlgItemMessageA(page, listId, CBEM_SETIMAGELIST, 0,
                          reinterpret_cast<LPARAM>(SharedImages(bitmapId)));
  }
}

}  // namespace zn
