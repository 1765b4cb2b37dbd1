#include "pages/page_images.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstddef>

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

// Bitmaps are drawn for 100 and 150 percent; from 200 percent on the pixels of the first are
// repeated, which leaves them as crisp as they are.
struct ImageScale {
  int size24;     // what 24 pixels become
  UINT idOffset;  // of the bitmap
  int times;      // how often a pixel is repeated
};

ImageScale ScreenScale() noexcept {
  constexpr int kFullDpi = 96;
  const int dpi = ScreenDpi();
  if (dpi >= 2 * kFullDpi) {
    return {24 * (dpi / kFullDpi), 0, dpi / kFullDpi};
  }
  return dpi >= kFullDpi * 3 / 2 ? ImageScale{36, IDB_150_PERCENT, 1} : ImageScale{24, 0, 1};
}

int Scaled(int size) noexcept {
  return size * ScreenScale().size24 / 24;
}

// The bitmaps are run-length encoded, so they are drawn rather than loaded.
UniqueBitmap DrawnBitmap(UINT id, int times) {
  const HRSRC found = ::FindResourceA(ResourceInstance(), MAKEINTRESOURCEA(id), RT_BITMAP);
  const HGLOBAL loaded = found != nullptr ? ::LoadResource(ResourceInstance(), found) : nullptr;
  const auto* const info = static_cast<const BITMAPINFO*>(::LockResource(loaded));
  if (info == nullptr) {
    return nullptr;
  }
  const auto& header = info->bmiHeader;
  const auto* const bits =
      reinterpret_cast<const std::byte*>(info) + header.biSize + header.biClrUsed * sizeof(RGBQUAD);
  const int width = header.biWidth * times;
  const int height = header.biHeight * times;
  const HDC screen = ::GetDC(nullptr);
  const UniqueMemoryDC memory(::CreateCompatibleDC(screen));
  UniqueBitmap bitmap(::CreateCompatibleBitmap(screen, width, height));
  ::ReleaseDC(nullptr, screen);
  if (!memory || !bitmap) {
    return nullptr;
  }
  const HGDIOBJ before = ::SelectObject(memory.get(), bitmap.get());
  ::SetStretchBltMode(memory.get(), COLORONCOLOR);
  ::StretchDIBits(memory.get(), 0, 0, width, height, 0, 0, header.biWidth, header.biHeight, bits,
                  info, DIB_RGB_COLORS, SRCCOPY);
  ::SelectObject(memory.get(), before);
  return bitmap;
}

UniqueImageList LoadImages(const ImageStrip& strip) {
  const ImageScale scale = ScreenScale();
  const int size = Scaled(strip.size);
  const UniqueBitmap bitmap = DrawnBitmap(strip.bitmapId + scale.idOffset, scale.times);
  UniqueImageList images(::ImageList_Create(size, size, ILC_COLOR24 | ILC_MASK, 1, 1));
  if (!bitmap || !images ||
      ::ImageList_AddMasked(images.get(), bitmap.get(), kTransparentColor) < 0) {
    return nullptr;
  }
  if (strip.endsWithWarning) {
    ::ImageList_AddIcon(images.get(), LoadWarningImage().icon24.get());
  }
  return images;
}

UniqueIcon LoadWarningIcon(int size) noexcept {
  const int scaled = Scaled(size);
  const UINT id = scaled < 24 ? IDI_WARNING_16 : IDI_WARNING_24;
  return UniqueIcon(static_cast<HICON>(::LoadImageA(ResourceInstance(), MAKEINTRESOURCEA(id),
                                                    IMAGE_ICON, scaled, scaled, LR_DEFAULTCOLOR)));
}

}  // namespace

int ScreenDpi() noexcept {
  const HDC screen = ::GetDC(nullptr);
  const int dpi = ::GetDeviceCaps(screen, LOGPIXELSX);
  ::ReleaseDC(nullptr, screen);
  return dpi;
}

const WarningImages& LoadWarningImage() {
  static const WarningImages images = [] {
    const int size = Scaled(16);
    WarningImages made{
        LoadWarningIcon(16), LoadWarningIcon(24), LoadWarningIcon(32),
        UniqueImageList(::ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, 1, 1))};
    ::ImageList_AddIcon(made.m_hImgWarningList_16.get(), made.icon16.get());
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

void SetListImages(HWND list, HIMAGELIST images) noexcept {
  const auto shown = reinterpret_cast<LPARAM>(images);
  // Lists that are given their images again measure and paint themselves again.
  if (::SendMessageA(list, CBEM_GETIMAGELIST, 0, 0) != shown) {
    ::SendMessageA(list, CBEM_SETIMAGELIST, 0, shown);
  }
}

}  // namespace zn
