// Pictures of the dialogs that a page's buttons open: a button is pressed, and whatever opens
// modally is pictured, refused and so closed again.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace zn::host {

struct PictureFile {
  std::string path;
  std::string title;  // of the window
};

// Presses `button` of `page` (a disabled or hidden one is left alone). Files are named
// "STEM-1.png", "STEM-2.png" ... in the order in which the windows open.
[[nodiscard]] std::vector<PictureFile> PictureDialogs(HWND page, int button,
                                                      const std::string& stem);

}  // namespace zn::host
