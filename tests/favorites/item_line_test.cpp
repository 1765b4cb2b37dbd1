// The item line: reading item by item, and building upon an old line.
#include "favorites/item_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace zn {
namespace {

using ::testing::ElementsAreArray;
using Pairs = std::vector<std::pair<std::string, std::string>>;

std::string Repeat(const std::string& text, std::size_t count) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) {
    all += text;
  }
  return all;
}

TEST(ItemReader, TakesItemsUpToTheLineEnd) {
  struct Row {
    std::string line;
    Pairs items;
    std::size_t rest = 0;  // bytes behind the line
  };
  // clang-format off
  const Row rows[] = {
      {"", {}},
      {"\nx", {}, 1},
      {"junk\nx", {}, 1},
      {"A=1\t\tB=2\t\t\nPageSize=A4\n", {{"A", "1"}, {"B", "2"}}, 12},
      {"A=1\tB=2\t", {{"A", "1"}, {"B", "2"}}},
      {"A=1\t\tB=2\n", {{"A", "1"}}},  // no TAB ends the last one
      {"A=1\t\tB=2", {{"A", "1"}}},
      {"A=1\nB=2\t\t\n", {}, 6},
      {"A=x=y=\t\t", {{"A", "x=y="}}},
      {"A=\t\t", {{"A", ""}}},
      {"=5\t\tB=2\t\t", {{"", "5"}, {"B", "2"}}},
      {"\t\t\tA=1\t\t\t\t\tB=2\t", {{"A", "1"}, {"B", "2"}}},
      {"junk\t\tA=1\t\tB=2\t\t", {{"junkA", "1"}, {"B", "2"}}},
      {"A=1\r\t\t\r\n", {{"A", "1\r"}}},
      {"ABCDEFGHIJKLMNOPQRS=1\t\t", {{"ABCDEFGHIJKLMNOPQRS", "1"}}},
      {"ABCDEFGHIJKLMNOPQRST=1\t\tB=2\t\t", {{"", "1"}, {"B", "2"}}},  // longer than any tag
      {"A=" + std::string(700, 'v') + "\t\t", {{"A", std::string(599, 'v')}}},
      {std::string("A=1\0002\t\tB\0=3\t\t", 13), {{"A", "1"}, {std::string("B\0", 2), "3"}}},
  };
  // clang-format on
  for (const Row& row : rows) {
    ItemReader reader(row.line);
    ItemReader::Item item;
    Pairs items;
    while (reader.ReadPrintOptionOne(item)) {
      items.emplace_back(item.tag, item.value);
    }
    EXPECT_THAT(items, ElementsAreArray(row.items)) << row.line;
    if (row.rest != 0) {
      EXPECT_EQ(row.line.size() - reader.End(), row.rest) << row.line;
    }
  }
}

TEST(ItemLine, PlacesItemsInTheirOldPlacesAndNewOnesBehind) {
  struct Row {
    std::string old;
    Pairs placed;
    std::string line;
  };
  const Row rows[] = {
      {"", {{"A", "1"}}, "A=1\t\t"},
      {"", {{"A", "1"}, {"B", ""}}, "A=1\t\tB=\t\t"},
      {"X=9\t\tA=1\t\tY=8\t\t", {{"A", "222"}}, "X=9\t\tA=222\t\tY=8\t\t"},
      {"X=9\t\tA=123\t\tY=8\t\t", {{"A", ""}, {"B", "2"}}, "X=9\t\tA=\t\tY=8\t\tB=2\t\t"},
      {"X=PG_A=1\t\t", {{"A", "2"}}, "X=PG_A=1\t\tA=2\t\t"},        // inside a value
      {"XA=1\t\tA=1\t\t", {{"A", "2"}}, "XA=1\t\tA=2\t\t"},         // the end of another tag
      {"junk\t\tA=1\t\t", {{"A", "2"}}, "junk\t\tA=1\t\tA=2\t\t"},  // its tag reads "junkA"
      {"a=1\t\t", {{"A", "2"}}, "a=1\t\tA=2\t\t"},
      {"cl_white=1\t\t", {{"CL_WHITE", "2"}}, "CL_WHITE=2\t\t"},  // readers take it for the tag
      {"X=9\t\tA=1", {{"B", "2"}}, "X=9\t\tA=1\t\tB=2\t\t"},
      {"X=9\t\tA=1", {{"A", "2"}}, "X=9\t\tA=2\t\t"},
      {"X=9\tA=1\t\t\tY=8\t", {{"A", "2"}}, "X=9\tA=2\t\t\tY=8\t"},
      {"X=9\t\tjunk", {{"B", "2"}}, "X=9\t\tB=2\t\tjunk"},  // would become a part of "B"
      {"A=1\t\tX=9\t\tA=3\t\t", {{"A", "2"}}, "A=2\t\tX=9\t\tA=2\t\t"},
      {"A=1\t\t", {{"A", "2"}, {"A", "3"}}, "A=3\t\t"},
      {"A=1\t\t\nPageSize=A4\n", {{"B", "2"}}, "A=1\t\tB=2\t\t"},
      {"=5\t\t", {{"B", "2"}}, "=5\t\tB=2\t\t"},
  };
  for (const Row& row : rows) {
    ItemLine line(row.old);
    for (const auto& [tag, value] : row.placed) {
      EXPECT_TRUE(line.Place(tag, value));
    }
    EXPECT_EQ(line.Text(), row.line) << row.old;
    EXPECT_EQ(ItemLine(line.Text()).Text(), row.line) << "a second time";
  }
}

TEST(ItemLine, RemovesEveryItemOfATag) {
  ItemLine line("A=1\t\tB=2\t\tA=3\t\tC=4\t\t");
  line.Remove("A");
  line.Remove("D");
  EXPECT_EQ(line.Text(), "B=2\t\tC=4\t\t");
  line.Place("A", "5");
  EXPECT_EQ(line.Text(), "B=2\t\tC=4\t\tA=5\t\t");
}

TEST(ItemLine, StaysWithinItsBufferAndSaysWhenItIsFull) {
  const std::string unknown = "X=" + std::string(kMaxItemLine - 14, 'x') + "\t\t";
  ItemLine line(unknown);  // ten bytes are free
  EXPECT_FALSE(line.Place("A", "1234567"));
  EXPECT_TRUE(line.Place("A", "123456"));
  EXPECT_FALSE(line.Place("A", "1234567"));
  EXPECT_FALSE(line.Place("B", ""));
  EXPECT_EQ(line.Text(), unknown + "A=123456\t\t");
  EXPECT_EQ(line.Text().size(), kMaxItemLine);
  EXPECT_TRUE(line.Place("A", "12"));
  EXPECT_TRUE(line.Place("B", ""));
  EXPECT_EQ(line.Text(), unknown + "A=12\t\tB=\t\t");
}

TEST(ItemLine, LeavesOutWhatALongerOldLineHoldsBeyondTheBuffer) {
  const std::string full = "X=" + std::string(kMaxItemLine - 4, 'x') + "\t\t";
  EXPECT_EQ(ItemLine(full).Text(), full);
  EXPECT_EQ(ItemLine(full + "A=1\t\t").Text(), full);
  EXPECT_EQ(ItemLine("A=1\t\t" + full).Text(), "A=1\t\t");  // a cut value would look whole
  EXPECT_EQ(ItemLine("A=1\t\tX=" + std::string(kMaxItemLine - 8, 'x')).Text(), "A=1\t\t");
}

TEST(ItemLine, TakesAnyNumberOfTinyItems) {
  std::string old;
  for (int i = 0; old.size() < kMaxItemLine - 8; ++i) {
    old.append(1, static_cast<char>('A' + i % 26)).append(std::to_string(i)).append("=\t");
  }
  ItemLine line(old);
  EXPECT_TRUE(line.Place("B1", ""));
  EXPECT_EQ(line.Text(), old);
  const std::string many = Repeat("AB=1\t\t", 900);
  EXPECT_EQ(ItemLine(many).Text(), Repeat("AB=1\t\t", kMaxItemLine / 6));
}

TEST(OneLine, TurnsLineEndsAndTabsIntoBlanks) {
  EXPECT_EQ(OneLine("a\r\nb\nc\td\r\n\r\n"), "a b c d  ");
  EXPECT_EQ(OneLine("a\tb\n\r", true), "a\tb \r");  // only LF ends a line of the file
}

}  // namespace
}  // namespace zn
