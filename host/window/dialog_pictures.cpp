#include "host/window/dialog_pictures.h"

#include <array>

#include "host/base/dialog_driver.h"
#include "host/window/screenshot.h"

namespace zn::host {
namespace {

constexpr UINT kTick = 200;    // milliseconds; a window that outlives one has drawn itself
constexpr int kPatience = 10;  // ticks until a window that does not close is given up

PictureFile Picture(HWND window, const std::string& file) {
  SaveScreenshot(window, file);
  std::array<char, 128> title{};
  ::GetWindowTextA(window, title.data(), static_cast<int>(title.size()));
  return {file, title.data()};
}

}  // namespace

std::vector<PictureFile> PictureDialogs(HWND sheet, const std::string& stem,
                                        const std::function<void()>& open) {
  std::vector<PictureFile> files;
  HWND seen = nullptr;
  int ticks = 0;  // since `seen` appeared
  const auto onDialog = [&](HWND window) {
    if (window != seen) {
      seen = window;
      ticks = 0;
    } else if (++ticks == 1) {
      files.push_back(Picture(window, stem + "-" + std::to_string(files.size() + 1) + ".png"));
      RefuseDialog(window);
    } else if (ticks > kPatience) {
      ::EndDialog(window, IDCANCEL);
    }
  };
  DriveDialogs(sheet, kTick, onDialog, open);
  return files;
}

}  // namespace zn::host
