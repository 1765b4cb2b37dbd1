// Draws a job's picture: in the system's colours, with lines and texts that grow with the device's
// resolution.
#pragma once

#include <windows.h>

#include <algorithm>
#include <string>

#include "pages/job_picture.h"
#include "platform/handles.h"

namespace zn {

class JobPainter {
 public:
  // Texts have the font of `control`, if that has one. Clears the bounds.
  JobPainter(HDC dc, HWND control, const RECT& bounds);
  ~JobPainter();
  JobPainter(const JobPainter&) = delete;
  JobPainter& operator=(const JobPainter&) = delete;

  // One or both sides of the sheet with the pages on it, and a line below.
  void DrawLayout(const JobPicture& picture, const std::string& caption);
  // The finished sheet, and below it the sheets in the order in which they come out.
  void DrawOutput(const JobPicture& picture);

 private:
  // Where a sheet of the picture lies on the device.
  struct Paper {
    RECT place;
    int width, height;  // of the sheet, tenths of a millimetre

    [[nodiscard]] POINT At(SheetPoint point) const;
    [[nodiscard]] RECT At(const SheetArea& area) const;
  };
  enum class Side : bool { Front, Back };

  void DrawSheets(const JobPicture& picture, const RECT& bounds);
  void DrawSide(const JobPicture& picture, const Paper& paper, Side side, bool withContent);
  void DrawPage(const JobPicture& picture, const RECT& page, int number, bool withContent);
  void DrawFinishing(const JobPicture& picture, const Paper& paper);
  void DrawRow(const JobPicture& picture, const RECT& bounds);
  void DrawTurn(const JobPicture& picture, const RECT& paper, Side side);

  void DrawBlankSheet(const RECT& place);
  // The largest sheet of the picture's proportions within the bounds, in their middle.
  [[nodiscard]] static Paper FitSheet(const JobPicture& picture, const RECT& bounds);
  void Fill(const RECT& area, COLORREF color) const;
  void Frame(const RECT& area, COLORREF color) const;
  void Dashes(POINT from, POINT to, COLORREF color) const;
  void DashedFrame(const RECT& area, COLORREF color) const;
  void ThickLine(POINT from, POINT to, int width, COLORREF color) const;
  void Disc(POINT center, int radius, COLORREF color) const;
  void Number(POINT center, int height, int number, bool isUpsideDown, COLORREF color) const;
  void Line(const RECT& area, const std::string& text, UINT format) const;
  [[nodiscard]] int Scaled(int pixelsAt96Dpi) const {
    return std::max(1, ::MulDiv(pixelsAt96Dpi, dpi_, 96));
  }

  HDC dc_;
  RECT bounds_;
  int dpi_;
  HFONT font_;
  int lineHeight_;
  int state_;  // of the device context, saved
};

}  // namespace zn
