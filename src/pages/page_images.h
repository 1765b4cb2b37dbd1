// The images of the pages' lists: strips of the module's bitmaps, and the warning icons, as large
// as the screen's resolution asks. Made at the first use and kept while the module is loaded.
#pragma once

#include <windows.h>

#include <cstdint>
#include <span>

#include "platform/handles.h"

namespace zn {

// Dots an inch: 96 at 100 percent.
[[nodiscard]] int ScreenDpi() noexcept;

struct WarningImages {
  UniqueIcon icon16, icon24, icon32;  // pixels at 100 percent
  UniqueImageList m_hImgWarningList_16;
};
const WarningImages& LoadWarningImage();

// The images of one of the module's bitmaps; those of staples and holes end with the warning icon.
// Null for any other bitmap.
[[nodiscard]] HIMAGELIST SharedImages(UINT bitmapId);

// Gives every option whose flag is 0 the last image of the list. 1 when there was one; 0 also for
// a missing or empty list.
int SetWarningIndex(std::span<const std::uint32_t> availableFlags, std::span<int> imageIndices,
                    HIMAGELIST imageList) noexcept;

// Whether an entry of an extended list carries the last image of its list, the warning.
[[nodiscard]] bool ShowsWarning(HWND list, int entry) noexcept;

// Gives an extended list its images, or none; it gets the height that it needs for them.
void SetListImages(HWND list, HIMAGELIST images) noexcept;

}  // namespace zn
