#include "host/window/screenshot.h"

#include <objidl.h>
// This must come behind objidl.h.
#include <gdiplus.h>

#include "host/base/files.h"
#include "host/base/host_error.h"
#include "platform/handles.h"

namespace zn::host {
namespace {

using UniqueDc = Unique<HDC, &::DeleteDC>;

// {557CF406-1A04-11D3-9A73-0000F81EF32E}
constexpr CLSID kPngEncoder = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

class GdiPlusSession {
 public:
  GdiPlusSession() {
    const Gdiplus::GdiplusStartupInput input;
    started_ = Gdiplus::GdiplusStartup(&token_, &input, nullptr) == Gdiplus::Ok;
  }
  ~GdiPlusSession() {
    if (started_) {
      Gdiplus::GdiplusShutdown(token_);
    }
  }
  GdiPlusSession(const GdiPlusSession&) = delete;
  GdiPlusSession& operator=(const GdiPlusSession&) = delete;

 private:
  ULONG_PTR token_ = 0;
  bool started_ = false;
};

UniqueBitmap Capture(HWND window) {
  RECT area{};
  ::GetWindowRect(window, &area);
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  const HDC screen = ::GetDC(nullptr);
  const UniqueDc memory(::CreateCompatibleDC(screen));
  UniqueBitmap bitmap(::CreateCompatibleBitmap(screen, width, height));
  const HGDIOBJ old = ::SelectObject(memory.get(), bitmap.get());
  ::BitBlt(memory.get(), 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
  ::SelectObject(memory.get(), old);
  ::ReleaseDC(nullptr, screen);
  return bitmap;
}

}  // namespace

void SaveScreenshot(HWND window, const std::string& path) {
  const GdiPlusSession session;
  const UniqueBitmap bitmap = Capture(window);
  Gdiplus::Bitmap picture(bitmap.get(), nullptr);
  if (picture.Save(WideText(path).c_str(), &kPngEncoder, nullptr) != Gdiplus::Ok) {
    throw HostError("cannot write " + path);
  }
}

}  // namespace zn::host
