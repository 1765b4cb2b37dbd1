#include "pages/job_painter.h"

#include <algorithm>
#include <array>

#include "platform/resources.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

constexpr std::array<COLORREF, 3> kHues{RGB(0, 158, 224), RGB(214, 0, 122), RGB(250, 198, 40)};
constexpr std::array<COLORREF, 3> kGrays{RGB(144, 144, 144), RGB(80, 80, 80), RGB(192, 192, 192)};

struct SystemColor {
  int index;
  operator COLORREF() const { return ::GetSysColor(index); }
};
constexpr SystemColor kGround{COLOR_BTNFACE};
constexpr SystemColor kPaper{COLOR_WINDOW};
constexpr SystemColor kInk{COLOR_WINDOWTEXT};
constexpr SystemColor kFaint{COLOR_GRAYTEXT};
constexpr SystemColor kMark{COLOR_HIGHLIGHT};
constexpr SystemColor kCaption{COLOR_BTNTEXT};

int Width(const RECT& area) {
  return area.right - area.left;
}
int Height(const RECT& area) {
  return area.bottom - area.top;
}
POINT Center(const RECT& area) {
  return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}
RECT Shrunk(RECT area, int by) {
  ::InflateRect(&area, -by, -by);
  return area;
}
RECT Moved(RECT area, int x, int y) {
  ::OffsetRect(&area, x, y);
  return area;
}

}  // namespace

POINT JobPainter::Paper::At(SheetPoint point) const {
  return {place.left + ::MulDiv(point.x, Width(place), width),
          place.top + ::MulDiv(point.y, Height(place), height)};
}

RECT JobPainter::Paper::At(const SheetArea& area) const {
  const POINT from = At(SheetPoint{area.left, area.top});
  const POINT to = At(SheetPoint{area.right, area.bottom});
  return {from.x, from.y, to.x, to.y};
}

JobPainter::JobPainter(HDC dc, HWND control, const RECT& bounds)
    : dc_(dc),
      bounds_(bounds),
      dpi_(::GetDeviceCaps(dc, LOGPIXELSY)),
      font_(reinterpret_cast<HFONT>(::SendMessageA(control, WM_GETFONT, 0, 0))),
      state_(::SaveDC(dc)) {
  if (font_ == nullptr) {
    font_ = static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
  }
  ::SelectObject(dc_, font_);
  ::SelectObject(dc_, ::GetStockObject(DC_BRUSH));
  ::SelectObject(dc_, ::GetStockObject(NULL_PEN));
  ::SetBkMode(dc_, TRANSPARENT);
  TEXTMETRICA metrics{};
  ::GetTextMetricsA(dc_, &metrics);
  lineHeight_ = metrics.tmHeight + Scaled(2);
  Fill(bounds_, kGround);
}

JobPainter::~JobPainter() {
  ::RestoreDC(dc_, state_);
}

// --- The layout ---

void JobPainter::DrawLayout(const JobPicture& picture, const std::string& caption) {
  RECT area = Shrunk(bounds_, Scaled(2));
  RECT line = area;
  line.top = area.bottom - lineHeight_;
  Line(line, caption, DT_CENTER);
  area.bottom = line.top - Scaled(2);
  DrawSheets(picture, area);
}

void JobPainter::DrawSheets(const JobPicture& picture, const RECT& bounds) {
  const bool isTwoSided = picture.turn != Edge::None;
  // Room for the turning edge, and for the further copies behind the sheet.
  const int margin = Scaled(6);
  const int step = Scaled(4);
  const int behind = static_cast<int>(std::min<std::uint32_t>(picture.copies, 3)) - 1;
  RECT half = bounds;
  if (isTwoSided) {
    half.bottom = half.top + Height(bounds) / 2;
  }
  for (const Side side : {Side::Front, Side::Back}) {
    if (side == Side::Back && !isTwoSided) {
      break;
    }
    RECT area = side == Side::Front ? half : Moved(half, 0, Height(half));
    if (isTwoSided) {
      RECT line = area;
      line.top = area.bottom - lineHeight_;
      Line(line, LoadResourceString(side == Side::Front ? IDS_PICTURE_FRONT : IDS_PICTURE_BACK),
           DT_CENTER);
      area.bottom = line.top;
    }
    area = Shrunk(area, margin);
    area.right -= behind * step;
    area.bottom -= behind * step;
    const Paper paper = FitSheet(picture, area);
    for (int copy = side == Side::Front ? behind : 0; copy > 0; --copy) {
      DrawBlankSheet(Moved(paper.place, copy * step, copy * step));
    }
    DrawSide(picture, paper, side, true);
    DrawTurn(picture, paper.place, side);
  }
}

void JobPainter::DrawSide(const JobPicture& picture, const Paper& paper, Side side,
                          bool withContent) {
  DrawBlankSheet(paper.place);
  const int state = ::SaveDC(dc_);
  const RECT inner = Shrunk(paper.place, Scaled(1));
  ::IntersectClipRect(dc_, inner.left, inner.top, inner.right, inner.bottom);
  const RECT document = paper.At(picture.document);
  if (::EqualRect(&document, &paper.place) == 0) {
    DashedFrame(document, kFaint);
  }
  for (const PlacedPage& page : picture.pages) {
    RECT area = paper.At(page.area);
    if (picture.pages.size() > 1) {
      area = Shrunk(area, std::max(Scaled(1), Width(paper.place) / 50));
    }
    DrawPage(picture, area, side == Side::Front ? page.front : page.back, withContent);
  }
  if (picture.isBooklet) {
    const POINT middle = Center(document);
    const bool isWide = picture.width > picture.height;
    Dashes(isWide ? POINT{middle.x, document.top} : POINT{document.left, middle.y},
           isWide ? POINT{middle.x, document.bottom} : POINT{document.right, middle.y}, kFaint);
  }
  ::RestoreDC(dc_, state);
}

// A number and, in the colours of the print, bars below it.
void JobPainter::DrawPage(const JobPicture& picture, const RECT& page, int number,
                          bool withContent) {
  if (picture.hasBorders) {
    Frame(page, kInk);
  }
  const int width = Width(page);
  const int height = Height(page);
  const int direction = picture.isUpsideDown ? -1 : 1;
  const POINT middle = Center(page);
  // All numbers have the size of the longest one.
  const auto highest = picture.pages.size() * (picture.turn != Edge::None ? 2 : 1);
  const int digits = highest < 10 ? 1 : 2;
  const int size = std::min({height * 2 / 5, width * 7 / (8 * digits), Scaled(40)});
  Number({middle.x, middle.y - (withContent ? direction * height / 7 : 0)}, size, number,
         picture.isUpsideDown, withContent ? kInk : kFaint);
  const int bar = std::max(1, std::min(width, height) / 8);
  if (!withContent) {
    return;
  }
  const auto& colors = picture.isGray ? kGrays : kHues;
  constexpr std::array kHeights{5, 8, 3};  // of the highest bar's eight parts
  const int foot = middle.y + direction * height * 2 / 5;
  for (int index = 0; index < 3; ++index) {
    const int left =
        middle.x + direction * (index * bar * 3 / 2 - bar * 2) - (picture.isUpsideDown ? bar : 0);
    const int head = foot - direction * std::max(1, height / 4 * kHeights[index] / 8);
    const RECT area{left, std::min(head, foot), left + bar, std::max(head, foot)};
    Fill(area, colors[index]);
    if (bar > Scaled(4)) {
      Frame(area, kInk);
    }
  }
}

// The edge that stays in place while the sheet is turned; seen from behind it is the other one.
void JobPainter::DrawTurn(const JobPicture& picture, const RECT& paper, Side side) {
  const int width = Scaled(3);
  const int gap = Scaled(1);
  RECT edge = paper;
  if (picture.turn == Edge::None) {
    return;
  }
  if (picture.turn == Edge::Left) {
    edge.left = side == Side::Front ? paper.left - gap - width : paper.right + gap;
    edge.right = edge.left + width;
  } else {
    edge.top = side == Side::Front ? paper.top - gap - width : paper.bottom + gap;
    edge.bottom = edge.top + width;
  }
  Fill(edge, kMark);
}

// --- The output ---

void JobPainter::DrawOutput(const JobPicture& picture) {
  RECT upper = Shrunk(bounds_, Scaled(4));
  RECT lower = upper;
  upper.bottom = upper.top + Height(upper) * 5 / 8;
  lower.top = upper.bottom + Scaled(10);
  const Paper paper = FitSheet(picture, upper);
  DrawSide(picture, paper, Side::Front, false);
  DrawFinishing(picture, paper);
  DrawRow(picture, lower);
}

void JobPainter::DrawFinishing(const JobPicture& picture, const Paper& paper) {
  for (const SheetLine& fold : picture.folds) {
    Dashes(paper.At(fold.from), paper.At(fold.to), kFaint);
  }
  const int radius = std::max(Scaled(2), ::MulDiv(32, Width(paper.place), paper.width));
  for (const SheetPoint& hole : picture.holes) {
    Disc(paper.At(hole), radius + Scaled(1), kInk);
    Disc(paper.At(hole), radius, kGround);
  }
  for (const SheetLine& staple : picture.staples) {
    ThickLine(paper.At(staple.from), paper.At(staple.to), Scaled(3), kMark);
  }
}

// The first sheet lies in front, at the left; every second group is shifted.
void JobPainter::DrawRow(const JobPicture& picture, const RECT& bounds) {
  const int count = static_cast<int>(picture.sheets.size());
  const int shift = Scaled(10);
  RECT first = bounds;
  first.bottom -= shift;
  // A third of a sheet looks out from behind the one before it.
  const int columns = 3 + count - 1;
  first.right = first.left + Width(bounds) * 3 / columns;
  const Paper paper = FitSheet(picture, first);
  const int step = Width(paper.place) / 3 + Scaled(1);
  const int width = Width(paper.place) + (count - 1) * step;
  const RECT place =
      Moved(paper.place, (Width(bounds) - width) / 2 + bounds.left - paper.place.left,
            bounds.top - paper.place.top);
  if (picture.shift == Shift::Job) {
    // The job before it lies where it was.
    DrawBlankSheet(Moved(place, (count - 1) * step, 0));
  }
  for (int index = count - 1; index >= 0; --index) {
    const bool isOddGroup = index / static_cast<int>(picture.groupSize) % 2 != 0;
    const bool isShifted =
        picture.shift == Shift::Job || (picture.shift == Shift::Groups && isOddGroup);
    const RECT sheet = Moved(place, index * step, isShifted ? shift : 0);
    DrawBlankSheet(sheet);
    const int size = std::min(step, Height(sheet) / 2);
    Number({sheet.right - step / 2, sheet.top + size / 2 + Scaled(4)}, size, picture.sheets[index],
           false, kInk);
  }
}

// --- Pieces ---

JobPainter::Paper JobPainter::FitSheet(const JobPicture& picture, const RECT& bounds) {
  const int roomX = std::max(1, Width(bounds));
  const int roomY = std::max(1, Height(bounds));
  const bool byWidth = roomX * picture.height <= roomY * picture.width;
  const int width = byWidth ? roomX : ::MulDiv(roomY, picture.width, picture.height);
  const int height = byWidth ? ::MulDiv(roomX, picture.height, picture.width) : roomY;
  const int left = bounds.left + (roomX - width) / 2;
  const int top = bounds.top + (roomY - height) / 2;
  return {{left, top, left + width, top + height}, picture.width, picture.height};
}

void JobPainter::DrawBlankSheet(const RECT& place) {
  Fill(place, kPaper);
  Frame(place, kInk);
}

void JobPainter::Fill(const RECT& area, COLORREF color) const {
  ::SetDCBrushColor(dc_, color);
  ::FillRect(dc_, &area, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
}

void JobPainter::Frame(const RECT& area, COLORREF color) const {
  const int width = Scaled(1);
  Fill({area.left, area.top, area.right, area.top + width}, color);
  Fill({area.left, area.bottom - width, area.right, area.bottom}, color);
  Fill({area.left, area.top, area.left + width, area.bottom}, color);
  Fill({area.right - width, area.top, area.right, area.bottom}, color);
}

// Along one of the axes.
void JobPainter::Dashes(POINT from, POINT to, COLORREF color) const {
  const int width = Scaled(1);
  const int dash = Scaled(3);
  const bool isVertical = from.x == to.x;
  const LONG end = isVertical ? to.y : to.x;
  for (LONG at = isVertical ? from.y : from.x; at < end; at += 2 * dash) {
    const LONG stop = std::min<LONG>(at + dash, end);
    Fill(isVertical ? RECT{from.x, at, from.x + width, stop}
                    : RECT{at, from.y, stop, from.y + width},
         color);
  }
}

void JobPainter::DashedFrame(const RECT& area, COLORREF color) const {
  const LONG right = area.right - Scaled(1);
  const LONG bottom = area.bottom - Scaled(1);
  Dashes({area.left, area.top}, {right, area.top}, color);
  Dashes({area.left, bottom}, {right, bottom}, color);
  Dashes({area.left, area.top}, {area.left, bottom}, color);
  Dashes({right, area.top}, {right, bottom}, color);
}

void JobPainter::ThickLine(POINT from, POINT to, int width, COLORREF color) const {
  if (from.x == to.x || from.y == to.y) {
    const int before = width / 2;
    const int behind = width - before;
    const bool isVertical = from.x == to.x;
    Fill({from.x - (isVertical ? before : 0), from.y - (isVertical ? 0 : before),
          to.x + (isVertical ? behind : 0), to.y + (isVertical ? 0 : behind)},
         color);
    return;
  }
  // Only corners have slanting lines, of about 45 degrees.
  const bool isRising = (to.x > from.x) != (to.y > from.y);
  const LONG across = ::MulDiv(width, 5, 14);
  const LONG x = across;
  const LONG y = isRising ? across : -across;
  const std::array<POINT, 4> corners{{{from.x - x, from.y - y},
                                      {from.x + x, from.y + y},
                                      {to.x + x, to.y + y},
                                      {to.x - x, to.y - y}}};
  ::SetDCBrushColor(dc_, color);
  ::Polygon(dc_, corners.data(), static_cast<int>(corners.size()));
}

void JobPainter::Disc(POINT center, int radius, COLORREF color) const {
  ::SetDCBrushColor(dc_, color);
  // Without a pen the figure ends one pixel early.
  ::Ellipse(dc_, center.x - radius, center.y - radius, center.x + radius + 1,
            center.y + radius + 1);
}

void JobPainter::Number(POINT center, int height, int number, bool isUpsideDown,
                        COLORREF color) const {
  LOGFONTA form{};
  ::GetObjectA(font_, sizeof form, &form);
  form.lfHeight = -std::max(height, Scaled(6));
  form.lfWidth = 0;
  form.lfEscapement = form.lfOrientation = isUpsideDown ? 1800 : 0;
  form.lfOutPrecision = OUT_TT_PRECIS;  // others cannot be turned
  const UniqueFont font(::CreateFontIndirectA(&form));
  if (!font) {
    return;
  }
  const HGDIOBJ before = ::SelectObject(dc_, font.get());
  ::SetTextAlign(dc_, TA_CENTER | TA_BASELINE);
  ::SetTextColor(dc_, color);
  // Digits are about seven tenths of the font's height.
  const int half = -form.lfHeight * 35 / 100;
  const std::string text = std::to_string(number);
  ::TextOutA(dc_, center.x, center.y + (isUpsideDown ? -half : half), text.data(),
             static_cast<int>(text.size()));
  ::SetTextAlign(dc_, TA_LEFT | TA_TOP);
  ::SelectObject(dc_, before);
}

void JobPainter::Line(const RECT& area, const std::string& text, UINT format) const {
  RECT place = area;
  ::SetTextColor(dc_, kCaption);
  ::DrawTextA(dc_, text.data(), static_cast<int>(text.size()), &place,
              format | DT_SINGLELINE | DT_NOPREFIX | DT_VCENTER | DT_END_ELLIPSIS);
}

}  // namespace zn
