// Pictures of the dialogs that a page opens: whatever opens modally is pictured, refused and so
// closed again.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace zn::host {

struct PictureFile {
  std::string path;
  std::string title;  // of the window
};

// Runs `open`, which opens dialogs of `sheet`. Files are named "STEM-1.png", "STEM-2.png" ... in
// the order in which the windows open.
[[nodiscard]] std::vector<PictureFile> PictureDialogs(HWND sheet, const std::string& stem,
                                                      const std::function<void()>& open);

}  // namespace zn::host
