#include "pages/job_picture.h"

#include <algorithm>
#include <array>

#include "keywords/keyword_table.h"

namespace zn {
namespace {

// --- Paper ---

struct CodedPaper {
  std::uint32_t code;  // of the print option
  PaperSize size;
};
// clang-format off
constexpr auto kOutputPapers = std::to_array<CodedPaper>({
    {62, {1000, 1480}}, {53, {2000, 1480}}, {4, {1050, 1480}},  {2, {2100, 2970}},
    {3, {1480, 2100}},  {1, {2970, 4200}},  {54, {3200, 4500}}, {8, {1280, 1820}},
    {6, {1820, 2570}},  {7, {2000, 2700}},  {5, {2570, 3640}},  {55, {2830, 3940}},
    {10, {1842, 2667}}, {11, {1397, 2159}}, {12, {2159, 2794}}, {13, {2159, 3302}},
    {14, {2159, 3556}}, {15, {2159, 3404}}, {16, {2794, 4318}}, {17, {3048, 4572}},
    {65, {3302, 4572}}, {18, {3302, 4826}}, {57, {2250, 3200}}, {66, {3100, 4320}},
    {67, {3150, 4670}}, {91, {3300, 4830}}, {19, {2032, 2540}}, {22, {2700, 3900}},
    {23, {1950, 2700}}, {24, {1300, 1840}}, {68, {2230, 2970}}, {78, {3280, 4530}},
    {89, {3180, 4690}}, {88, {2730, 3940}}, {69, {2400, 3320}}, {70, {1200, 2350}},
    {71, {900, 2050}},  {51, {1140, 1620}}, {49, {1050, 2350}}, {72, {2160, 2770}},
    {50, {1200, 2360}}, {52, {1100, 2200}},
});
// clang-format on

// A paper that can be drawn: neither empty nor a mere line.
PaperSize Drawable(PaperSize paper) {
  constexpr std::uint32_t kShortest = 100;
  constexpr std::uint32_t kLongest = 20'000;
  constexpr std::uint32_t kMostTimes = 8;
  if (paper.width == 0 || paper.height == 0) {
    return kA4;
  }
  const auto width = std::clamp(paper.width, kShortest, kLongest);
  const auto height = std::clamp(paper.height, kShortest, kLongest);
  return {std::min(width, height * kMostTimes), std::min(height, width * kMostTimes)};
}

PaperSize Turned(PaperSize paper) {
  return {paper.height, paper.width};
}

bool IsWide(PaperSize paper) {
  return paper.width > paper.height;
}

// As large as the bounds allow without a change of proportions.
PaperSize Fitted(PaperSize paper, PaperSize bounds) {
  const std::uint64_t width = paper.width;
  const std::uint64_t height = paper.height;
  return bounds.width * height <= bounds.height * width
             ? PaperSize{bounds.width, static_cast<std::uint32_t>(bounds.width * height / width)}
             : PaperSize{static_cast<std::uint32_t>(bounds.height * width / height), bounds.height};
}

SheetArea Centered(PaperSize paper, const SheetArea& bounds) {
  const int width = static_cast<int>(paper.width);
  const int height = static_cast<int>(paper.height);
  const int left = bounds.left + (bounds.right - bounds.left - width) / 2;
  const int top = bounds.top + (bounds.bottom - bounds.top - height) / 2;
  return {left, top, left + width, top + height};
}

// --- Pages on a sheet ---

struct PageCount {
  int longSide, shortSide;  // pages along the sides of the sheet
  bool isBooklet = false;
};
// By option of N-up.
constexpr std::array<PageCount, 7> kPageCounts{
    {{1, 1}, {2, 1}, {2, 2}, {3, 2}, {3, 3}, {4, 4}, {2, 1, true}}};

void PlacePages(JobPicture& picture, PaperSize page, int columns, int rows) {
  const SheetArea& sheet = picture.document;
  const int width = sheet.right - sheet.left;
  const int height = sheet.bottom - sheet.top;
  const int count = columns * rows;
  for (int index = 0; index < count; ++index) {
    const int column = index % columns;
    const int row = index / columns;
    const SheetArea cell{sheet.left + width * column / columns, sheet.top + height * row / rows,
                         sheet.left + width * (column + 1) / columns,
                         sheet.top + height * (row + 1) / rows};
    const PaperSize bounds{static_cast<std::uint32_t>(cell.right - cell.left),
                           static_cast<std::uint32_t>(cell.bottom - cell.top)};
    picture.pages.push_back({Centered(Fitted(page, bounds), cell), index + 1, index + 1 + count});
  }
  if (picture.isBooklet) {
    // The outer side of a folded sheet holds its last and its first page.
    picture.pages[0].front = 4;
    picture.pages[1].front = 1;
    picture.pages[0].back = 2;
    picture.pages[1].back = 3;
  }
}

void TurnUpsideDown(JobPicture& picture) {
  const auto turn = [&picture](SheetArea& area) {
    area = {picture.width - area.right, picture.height - area.bottom, picture.width - area.left,
            picture.height - area.top};
  };
  turn(picture.document);
  for (PlacedPage& page : picture.pages) {
    turn(page.area);
  }
}

Edge TurnOf(std::uint32_t duplex, const JobPicture& picture) {
  constexpr std::uint32_t kLongEdge = 1;
  constexpr std::uint32_t kShortEdge = 2;
  const bool isWide = picture.width > picture.height;
  if (duplex != kLongEdge && duplex != kShortEdge) {
    return Edge::None;
  }
  // A booklet's sheets turn on their fold.
  const bool atSide = picture.isBooklet ? isWide : (duplex == kLongEdge) != isWide;
  return atSide ? Edge::Left : Edge::Top;
}

void DescribeSheet(JobPicture& picture, const OptionTable& options, PaperSize document) {
  const auto current = [&options](KeywordId id) { return options[id].currentSelection; };
  constexpr std::uint32_t kLandscape = 1;
  constexpr std::uint32_t kRotated = 2;
  const std::uint32_t orientation = current(KW_ORIENTATION);
  PaperSize page = Drawable(document);
  if (orientation == kLandscape || orientation == kRotated) {
    page = Turned(page);
  }

  const std::uint32_t nup = current(KW_NUP);
  const PageCount count = nup < kPageCounts.size() ? kPageCounts[nup] : kPageCounts[0];
  picture.isBooklet = count.isBooklet;
  const PaperSize own = count.longSide != count.shortSide ? Turned(page) : page;

  PaperSize sheet = own;
  if (const PaperSize output = OutputPaperSize(current(KW_OUTPUTPAPERSIZE));
      output != kUnknownPaper) {
    sheet = IsWide(output) == IsWide(own) ? output : Turned(output);
  }
  picture.width = static_cast<int>(sheet.width);
  picture.height = static_cast<int>(sheet.height);

  const PaperSize printed = current(KW_PAGEFITSIZE) != 0 ? Fitted(own, sheet) : own;
  picture.document = {0, 0, static_cast<int>(printed.width), static_cast<int>(printed.height)};
  if (current(KW_PAGEPRINTONCENTER) != 0) {
    picture.document = Centered(printed, {0, 0, picture.width, picture.height});
  }
  PlacePages(picture, page, IsWide(own) ? count.longSide : count.shortSide,
             IsWide(own) ? count.shortSide : count.longSide);
  picture.isUpsideDown = orientation == kRotated;
  if (picture.isUpsideDown) {
    TurnUpsideDown(picture);
  }
  picture.hasBorders = picture.pages.size() > 1 && current(KW_NUPBORDER) != 0;
  picture.turn = TurnOf(current(KW_DUPLEX), picture);
}

// --- Staples and holes ---

enum class Place : std::uint8_t {
  None,
  UpperLeft,
  UpperRight,
  LowerLeft,
  LowerRight,
  Top,
  Bottom,
  Left,
  Right,
  Middle,
};

struct StapleOption {
  Place place;
  int count;
  int folds = 0;
};
constexpr std::array<StapleOption, 22> kStapleOptions{{
    {Place::None, 0},       {Place::UpperLeft, 1}, {Place::UpperRight, 1}, {Place::LowerLeft, 1},
    {Place::LowerRight, 1}, {Place::Top, 2},       {Place::Bottom, 2},     {Place::Left, 2},
    {Place::Right, 2},      {Place::Middle, 2},    {Place::Middle, 2, 2},  {Place::Middle, 2, 1},
    {Place::Top, 4},        {Place::Bottom, 4},    {Place::Left, 4},       {Place::Right, 4},
    {Place::Top, 3},        {Place::Bottom, 3},    {Place::Left, 3},       {Place::Right, 3},
    {Place::UpperLeft, 1},  {Place::Left, 2},
}};

// By option of the punch position; the list stores 13 for the last one.
constexpr std::array kPunchPlaces{Place::None, Place::Left, Place::Right, Place::Top,
                                  Place::Bottom};
constexpr std::uint32_t kLongEdgeOption = 5;
constexpr std::array kHoleCounts{2, 3, 4};

// Marks inside an edge or along the middle of a sheet.
struct MarkPlace {
  bool isVertical;  // marks stand above each other
  int across;       // distance from the left or upper edge
  int length;       // of the edge
};

MarkPlace PlaceOfMarks(Place place, const JobPicture& picture, int inset) {
  switch (place) {
    case Place::Top:
      return {false, inset, picture.width};
    case Place::Bottom:
      return {false, picture.height - inset, picture.width};
    case Place::Right:
      return {true, picture.width - inset, picture.height};
    case Place::Middle:
      return picture.width > picture.height ? MarkPlace{true, picture.width / 2, picture.height}
                                            : MarkPlace{false, picture.height / 2, picture.width};
    default:
      return {true, inset, picture.height};
  }
}

SheetPoint PointAt(const MarkPlace& place, int along) {
  return place.isVertical ? SheetPoint{place.across, along} : SheetPoint{along, place.across};
}

// Inset and size of a mark, less on a small sheet.
int Limited(int length, const JobPicture& picture) {
  return std::min(length, std::min(picture.width, picture.height) / 8);
}

void AddCornerStaple(JobPicture& picture, Place place) {
  const int near = Limited(100, picture);
  const int far = near * 2;
  const bool isRight = place == Place::UpperRight || place == Place::LowerRight;
  const bool isLower = place == Place::LowerLeft || place == Place::LowerRight;
  const auto at = [&](int x, int y) {
    return SheetPoint{isRight ? picture.width - x : x, isLower ? picture.height - y : y};
  };
  picture.staples.push_back({at(near, far), at(far, near)});
}

void AddStaples(JobPicture& picture, std::uint32_t option) {
  if (option >= kStapleOptions.size()) {
    return;
  }
  const auto& [place, count, folds] = kStapleOptions[option];
  if (place >= Place::UpperLeft && place <= Place::LowerRight) {
    AddCornerStaple(picture, place);
    return;
  }
  const MarkPlace marks = PlaceOfMarks(place, picture, Limited(90, picture));
  const int half = Limited(80, picture);
  for (int index = 0; index < count; ++index) {
    const int middle = marks.length * (2 * index + 1) / (2 * count);
    picture.staples.push_back({PointAt(marks, middle - half), PointAt(marks, middle + half)});
  }
  const int folded = std::max(picture.width, picture.height);
  for (int index = 1; index <= folds; ++index) {
    MarkPlace line = marks;
    line.across = folded * index / (folds + 1);
    picture.folds.push_back({PointAt(line, 0), PointAt(line, line.length)});
  }
}

void AddHoles(JobPicture& picture, std::uint32_t punch, std::uint32_t holes) {
  const bool atLongEdge = punch == kLongEdgeOption || punch == kLongEdgeStored;
  if (holes >= kHoleCounts.size() || (!atLongEdge && punch >= kPunchPlaces.size()) || punch == 0) {
    return;
  }
  const bool isWide = picture.width > picture.height;
  const Place place = atLongEdge ? (isWide ? Place::Top : Place::Left) : kPunchPlaces[punch];
  const MarkPlace marks = PlaceOfMarks(place, picture, Limited(120, picture));
  const int count = kHoleCounts[holes];
  // 80 mm apart, three of them 108; less on a small sheet.
  const int distance = std::min(count == 3 ? 1080 : 800, marks.length / count);
  for (int index = 0; index < count; ++index) {
    const int along = (marks.length + distance * (2 * index + 1 - count)) / 2;
    picture.holes.push_back(PointAt(marks, along));
  }
}

// --- Order of the sheets ---

void OrderSheets(JobPicture& picture, bool isCollated, bool isReversed) {
  constexpr int kPages = 3;
  const int copies = picture.copies > 1 ? 2 : 1;
  for (int index = 0; index < kPages * copies; ++index) {
    const int page = isCollated ? index % kPages : index / copies;
    picture.sheets.push_back(isReversed ? kPages - page : page + 1);
  }
  picture.groupSize = static_cast<std::size_t>(isCollated || copies == 1 ? kPages : copies);
}

}  // namespace

PaperSize OutputPaperSize(std::uint32_t option) noexcept {
  std::uint32_t code = 0;
  if (!GetOptionCode(KW_OUTPUTPAPERSIZE, option, code)) {
    return kUnknownPaper;
  }
  const auto* const paper = std::ranges::find(kOutputPapers, code, &CodedPaper::code);
  return paper != kOutputPapers.end() ? paper->size : kUnknownPaper;
}

JobPicture DescribeJob(const OptionTable& options, PaperSize document, bool hasPageOrder) {
  const auto current = [&options](KeywordId id) { return options[id].currentSelection; };
  constexpr std::uint32_t kGray = 1;
  JobPicture picture{};
  DescribeSheet(picture, options, document);
  picture.isGray = current(KW_COLORMODEL) == kGray;
  picture.copies = std::clamp<std::uint32_t>(current(KW_COPIES), 1, kMostCopies);
  AddStaples(picture, current(KW_STAPLE));
  AddHoles(picture, current(KW_PUNCH), current(KW_PUNCHHOLES));
  OrderSheets(picture, current(KW_COLLATE) != 0, hasPageOrder && current(KW_PAGEORDER) == 1);
  constexpr std::array kShifts{Shift::None, Shift::Groups, Shift::Job};
  const std::uint32_t jog = current(KW_JOG);
  picture.shift = jog < kShifts.size() ? kShifts[jog] : Shift::None;
  return picture;
}

std::optional<std::uint32_t> PunchEntry(SelectionPair punch) noexcept {
  if (punch.first == kLongEdgeOption) {
    punch.first = kLongEdgeStored;
  } else if (punch.first == 0 && punch.second < kHoleCounts.size()) {
    punch.second = 0;  // no holes are no holes, however many
  }
  const auto* const entry = std::ranges::find(kPunchEntries, punch);
  return entry != kPunchEntries.end()
             ? std::optional(static_cast<std::uint32_t>(entry - kPunchEntries.begin()))
             : std::nullopt;
}

}  // namespace zn
