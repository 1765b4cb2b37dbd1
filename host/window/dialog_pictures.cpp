#include "host/window/dialog_pictures.h"

#include <algorithm>
#include <array>

#include "host/window/screenshot.h"

namespace zn::host {
namespace {

constexpr UINT kTick = 200;    // milliseconds; a window that outlives one has drawn itself
constexpr int kPatience = 10;  // ticks until a window that does not close is given up

// What the timer works on; one walk at a time, on the sheet's thread.
struct Walk {
  HWND sheet;
  std::string stem;
  std::vector<PictureFile> files;
  HWND seen = nullptr;
  int ticks = 0;  // since `seen` appeared
};
Walk* g_walk = nullptr;

// The topmost modal window above the sheet.
BOOL CALLBACK FindDialog(HWND window, LPARAM found) {
  if (window != g_walk->sheet && ::IsWindowVisible(window) && ::IsWindowEnabled(window) &&
      ::GetWindow(window, GW_OWNER) != nullptr) {
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }
  return TRUE;
}

void Picture(HWND window) {
  const std::string file = g_walk->stem + "-" + std::to_string(g_walk->files.size() + 1) + ".png";
  SaveScreenshot(window, file);
  std::array<char, 128> title{};
  ::GetWindowTextA(window, title.data(), static_cast<int>(title.size()));
  g_walk->files.push_back({file, title.data()});
}

// A question is answered with no, so that what it asks about happens unchanged.
void Refuse(HWND window) {
  for (const int button : {IDNO, IDCANCEL}) {
    if (::GetDlgItem(window, button) != nullptr) {
      ::PostMessageA(window, WM_COMMAND, static_cast<WPARAM>(button), 0);
      return;
    }
  }
  ::PostMessageA(window, WM_CLOSE, 0, 0);
}

void CALLBACK OnTick(HWND, UINT, UINT_PTR, DWORD) {
  HWND window = nullptr;
  ::EnumThreadWindows(::GetCurrentThreadId(), &FindDialog, reinterpret_cast<LPARAM>(&window));
  if (window == nullptr || window != g_walk->seen) {
    g_walk->seen = window;
    g_walk->ticks = 0;
    return;
  }
  try {
    if (++g_walk->ticks == 1) {
      Picture(window);
      Refuse(window);
    } else if (g_walk->ticks > kPatience) {
      ::EndDialog(window, IDCANCEL);
    }
  } catch (...) {  // a picture that cannot be written must not leave the dialog open
    ::EndDialog(window, IDCANCEL);
  }
}

}  // namespace

std::vector<PictureFile> PictureDialogs(HWND sheet, const std::string& stem,
                                        const std::function<void()>& open) {
  Walk walk{sheet, stem, {}};
  g_walk = &walk;
  const UINT_PTR timer = ::SetTimer(nullptr, 0, kTick, &OnTick);
  open();
  ::KillTimer(nullptr, timer);
  g_walk = nullptr;
  return walk.files;
}

}  // namespace zn::host
