// What the illustrations of the pages show: the sheet of paper with the pages on it, and how the
// printed sheets leave the device. A plain description, computed from the selections; it holds for
// any selection, also for values that no list offers. Lengths are tenths of a millimetre.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "session/option_selection.h"

namespace zn {

struct PaperSize {
  std::uint32_t width, height;  // of the portrait sheet; 0: unknown

  bool operator==(const PaperSize&) const = default;
};
inline constexpr PaperSize kUnknownPaper{0, 0};
inline constexpr PaperSize kA4{2100, 2970};

// The paper of an option of the output paper size; unknown for the document's own size, for the
// custom size and for no option at all.
[[nodiscard]] PaperSize OutputPaperSize(std::uint32_t option) noexcept;

struct SheetPoint {
  int x, y;  // from the upper left corner of the sheet
};
struct SheetLine {
  SheetPoint from, to;
};
struct SheetArea {
  int left, top, right, bottom;
};

// A page on the sheet; the same place on the back holds another one.
struct PlacedPage {
  SheetArea area;
  int front, back;  // page numbers
};

enum class Edge : std::uint8_t { None, Left, Top };
enum class Shift : std::uint8_t { None, Groups, Job };

inline constexpr std::uint32_t kMostCopies = 9999;

struct JobPicture {
  // The sheet as one looks at it: wide for landscape.
  int width, height;
  SheetArea document;             // where the document's own sheet lies; may reach beyond the sheet
  std::vector<PlacedPage> pages;  // in reading order, but for a booklet's
  bool isUpsideDown;              // pages stand on their heads
  bool isBooklet;
  bool hasBorders;  // around each page
  Edge turn;        // the edge on which the sheet is turned; none: its back stays empty
  bool isGray;
  std::uint32_t copies;  // 1 to kMostCopies

  std::vector<SheetLine> staples;
  std::vector<SheetLine> folds;
  std::vector<SheetPoint> holes;

  // The page numbers of the sheets in the order in which they come out, of two copies at most, and
  // how many of them make a group.
  std::vector<int> sheets;
  std::size_t groupSize;
  Shift shift;
};

// `document` is the paper of the document; of unknown paper the picture takes A4. `hasPageOrder`:
// the printer can reverse the order of the pages.
[[nodiscard]] JobPicture DescribeJob(const OptionTable& options, PaperSize document,
                                     bool hasPageOrder);

// What the entries of the list of punches stand for: ZNPunch, the position, and ZNPunchHoles. The
// list stores kLongEdgeStored for the position of option 5.
inline constexpr std::uint32_t kLongEdgeStored = 13;
inline constexpr auto kPunchEntries = std::to_array<SelectionPair>({{0, 0},
                                                                    {1, 0},
                                                                    {2, 0},
                                                                    {3, 0},
                                                                    {4, 0},
                                                                    {kLongEdgeStored, 0},
                                                                    {1, 2},
                                                                    {2, 2},
                                                                    {3, 2},
                                                                    {4, 2},
                                                                    {kLongEdgeStored, 2},
                                                                    {1, 1},
                                                                    {2, 1},
                                                                    {3, 1},
                                                                    {4, 1},
                                                                    {kLongEdgeStored, 1}});
// The entry that stands for a pair; nothing when none does.
[[nodiscard]] std::optional<std::uint32_t> PunchEntry(SelectionPair punch) noexcept;

}  // namespace zn
