// The picture of a job, computed from selections of every kind.
#include "pages/job_picture.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <limits>
#include <string>
#include <utility>

namespace zn::test {
namespace {

using Selections = std::initializer_list<std::pair<KeywordId, std::uint32_t>>;

JobPicture Describe(Selections selections, PaperSize document = kA4, bool hasPageOrder = true) {
  OptionTable options{};
  for (const auto& [id, selection] : selections) {
    options[id].currentSelection = selection;
  }
  return DescribeJob(options, document, hasPageOrder);
}

std::string Text(const SheetArea& area) {
  return std::to_string(area.left) + "," + std::to_string(area.top) + "," +
         std::to_string(area.right) + "," + std::to_string(area.bottom);
}

std::string Numbers(const std::vector<int>& numbers) {
  std::string text;
  for (const int number : numbers) {
    text += std::to_string(number);
  }
  return text;
}

// Output paper by its option: 4 is A4, 6 A3, 43 the custom size.
TEST(JobPicture, PlacesTheDocumentOnItsPaper) {
  struct Row {
    const char* what;
    Selections selections;
    PaperSize document;
    int width, height;
    const char* area;
  };
  for (const Row& row : {
           Row{"portrait", {}, kA4, 2100, 2970, "0,0,2100,2970"},
           Row{"landscape", {{KW_ORIENTATION, 1}}, kA4, 2970, 2100, "0,0,2970,2100"},
           Row{"no such orientation", {{KW_ORIENTATION, 3}}, kA4, 2100, 2970, "0,0,2100,2970"},
           Row{"unknown paper", {}, {0, 1480}, 2100, 2970, "0,0,2100,2970"},
           Row{"a line", {}, {4'000'000'000, 1}, 800, 100, "0,0,800,100"},
           Row{"larger paper", {{KW_OUTPUTPAPERSIZE, 6}}, kA4, 2970, 4200, "0,0,2100,2970"},
           Row{"centred",
               {{KW_OUTPUTPAPERSIZE, 6}, {KW_PAGEPRINTONCENTER, 1}},
               kA4,
               2970,
               4200,
               "435,615,2535,3585"},
           Row{"fitted",
               {{KW_OUTPUTPAPERSIZE, 6}, {KW_PAGEFITSIZE, 1}, {KW_ORIENTATION, 1}},
               kA4,
               4200,
               2970,
               "0,0,4200,2969"},
           Row{"cut off, on its head",
               {{KW_OUTPUTPAPERSIZE, 4}, {KW_ORIENTATION, 2}},
               {2970, 4200},
               2970,
               2100,
               "-1230,-870,2970,2100"},
           Row{"custom output", {{KW_OUTPUTPAPERSIZE, 43}}, kA4, 2100, 2970, "0,0,2100,2970"},
           Row{"no such output", {{KW_OUTPUTPAPERSIZE, 44}}, kA4, 2100, 2970, "0,0,2100,2970"},
       }) {
    const JobPicture picture = Describe(row.selections, row.document);
    EXPECT_EQ(picture.width, row.width) << row.what;
    EXPECT_EQ(picture.height, row.height) << row.what;
    EXPECT_EQ(Text(picture.document), row.area) << row.what;
  }
}

TEST(JobPicture, PlacesPagesInReadingOrder) {
  struct Row {
    std::uint32_t nup, orientation;
    int width, columns, pages, firstBack;
  };
  for (const Row& row : {
           Row{0, 0, 2100, 1, 1, 2},
           Row{1, 0, 2970, 2, 2, 3},
           Row{1, 1, 2100, 1, 2, 3},
           Row{2, 0, 2100, 2, 4, 5},
           Row{3, 0, 2970, 3, 6, 7},
           Row{3, 1, 2100, 2, 6, 7},
           Row{4, 1, 2970, 3, 9, 10},
           Row{5, 0, 2100, 4, 16, 17},
           Row{7, 0, 2100, 1, 1, 2},
       }) {
    const JobPicture picture =
        Describe({{KW_NUP, row.nup}, {KW_ORIENTATION, row.orientation}, {KW_NUPBORDER, 1}});
    const auto& pages = picture.pages;
    ASSERT_EQ(pages.size(), static_cast<std::size_t>(row.pages)) << row.nup;
    EXPECT_EQ(picture.width, row.width) << row.nup;
    EXPECT_EQ(pages[0].back, row.firstBack);
    EXPECT_EQ(picture.hasBorders, row.pages > 1);
    for (std::size_t index = 1; index < pages.size(); ++index) {
      EXPECT_EQ(pages[index].front, static_cast<int>(index) + 1);
      const SheetArea& before = pages[index - 1].area;
      const SheetArea& area = pages[index].area;
      const bool newRow = index % static_cast<std::size_t>(row.columns) == 0;
      EXPECT_TRUE(newRow ? area.left == pages[0].area.left && area.top >= before.bottom
                         : area.left >= before.right && area.top == before.top)
          << row.nup << ", page " << index + 1;
    }
  }
  // The first page of a sheet that stands on its head is at the lower right.
  const JobPicture turned = Describe({{KW_NUP, 2}, {KW_ORIENTATION, 2}});
  EXPECT_TRUE(turned.isUpsideDown);
  EXPECT_EQ(Text(turned.pages[0].area), "1485,1050,2970,2100");
  // Pages keep their proportions where their share of the sheet has others.
  EXPECT_EQ(Text(Describe({{KW_NUP, 1}}, {1000, 1000}).pages[1].area), "250,500,750,1000");
}

TEST(JobPicture, TurnsOnAnEdgeOfTheSheet) {
  struct Row {
    std::uint32_t duplex, nup, orientation;
    Edge edge;
  };
  for (const Row& row : {
           Row{0, 0, 0, Edge::None},
           Row{1, 0, 0, Edge::Left},
           Row{2, 0, 0, Edge::Top},
           Row{1, 0, 1, Edge::Top},
           Row{2, 0, 2, Edge::Left},
           Row{1, 1, 0, Edge::Top},
           Row{1, 6, 0, Edge::Left},
           Row{2, 6, 1, Edge::Top},
           Row{3, 0, 0, Edge::None},
       }) {
    const JobPicture picture =
        Describe({{KW_DUPLEX, row.duplex}, {KW_NUP, row.nup}, {KW_ORIENTATION, row.orientation}});
    EXPECT_EQ(picture.turn, row.edge) << row.duplex << row.nup << row.orientation;
  }
  const auto booklet = Describe({{KW_DUPLEX, 1}, {KW_NUP, 6}}).pages;
  EXPECT_EQ(Numbers({booklet[0].front, booklet[1].front, booklet[0].back, booklet[1].back}),
            "4123");
}

TEST(JobPicture, FinishesTheSheet) {
  struct Row {
    KeywordId keyword;
    std::uint32_t option, holes;
    std::size_t staples, folds, punched;
    int x, y;  // of the first mark
  };
  for (const Row& row : {
           Row{KW_STAPLE, 0, 0, 0, 0, 0, 0, 0},
           Row{KW_STAPLE, 2, 0, 1, 0, 0, 2000, 200},
           Row{KW_STAPLE, 7, 0, 2, 0, 0, 90, 662},
           Row{KW_STAPLE, 13, 0, 4, 0, 0, 182, 2880},
           Row{KW_STAPLE, 9, 0, 2, 0, 0, 445, 1485},
           Row{KW_STAPLE, 10, 0, 2, 2, 0, 445, 1485},
           Row{KW_STAPLE, 21, 0, 2, 0, 0, 90, 662},
           Row{KW_STAPLE, 22, 0, 0, 0, 0, 0, 0},
           Row{KW_PUNCH, 1, 0, 0, 0, 2, 120, 1085},
           Row{KW_PUNCH, 3, 2, 0, 0, 4, 262, 120},
           Row{KW_PUNCH, 2, 1, 0, 0, 3, 1980, 495},
           Row{KW_PUNCH, 13, 0, 0, 0, 2, 120, 1085},
           Row{KW_PUNCH, 6, 0, 0, 0, 0, 0, 0},
           Row{KW_PUNCH, 1, 3, 0, 0, 0, 0, 0},
       }) {
    const auto picture = Describe({{row.keyword, row.option}, {KW_PUNCHHOLES, row.holes}});
    EXPECT_EQ(picture.staples.size(), row.staples) << row.option;
    EXPECT_EQ(picture.folds.size(), row.folds) << row.option;
    EXPECT_EQ(picture.holes.size(), row.punched) << row.option;
    if (row.staples + row.punched > 0) {
      const SheetPoint mark = row.staples > 0 ? picture.staples[0].from : picture.holes[0];
      EXPECT_EQ(mark.x, row.x) << row.option;
      EXPECT_EQ(mark.y, row.y) << row.option;
    }
  }
  EXPECT_EQ(PunchEntry({1, 0}), 1u);
  EXPECT_EQ(PunchEntry({13, 1}), 15u);
  EXPECT_EQ(PunchEntry({5, 2}), 10u);
  EXPECT_EQ(PunchEntry({6, 0}), std::nullopt);
  EXPECT_EQ(PunchEntry({1, 3}), std::nullopt);
}

TEST(JobPicture, OrdersTheSheets) {
  struct Row {
    std::uint32_t copies, collate, order;
    bool hasPageOrder;
    const char* sheets;
    std::size_t groupSize;
  };
  for (const Row& row : {
           Row{1, 1, 0, true, "123", 3},
           Row{3, 1, 0, true, "123123", 3},
           Row{3, 0, 0, true, "112233", 2},
           Row{2, 0, 1, true, "332211", 2},
           Row{2, 1, 1, false, "123123", 3},
           Row{0, 0, 2, true, "123", 3},
       }) {
    const auto picture =
        Describe({{KW_COPIES, row.copies}, {KW_COLLATE, row.collate}, {KW_PAGEORDER, row.order}},
                 kA4, row.hasPageOrder);
    EXPECT_EQ(Numbers(picture.sheets), row.sheets);
    EXPECT_EQ(picture.groupSize, row.groupSize) << row.sheets;
  }
}

// Settings of a foreign block can be anything.
TEST(JobPicture, HoldsForAnySelection) {
  for (const std::uint32_t value : {0u, 1u, 5u, 6u, 7u, 21u, 22u, 255u, 0x7FFFFFFFu,
                                    std::numeric_limits<std::uint32_t>::max()}) {
    OptionTable options{};
    for (OptionSelection& option : options) {
      option.currentSelection = value;
    }
    const JobPicture picture = DescribeJob(options, {value, ~value}, true);
    EXPECT_GT(picture.width, 0) << value;
    EXPECT_GT(picture.height, 0) << value;
    EXPECT_LE(picture.pages.size(), 16u) << value;
    EXPECT_GE(picture.copies, 1u) << value;
    EXPECT_LE(picture.copies, kMostCopies) << value;
  }
}

}  // namespace
}  // namespace zn::test
