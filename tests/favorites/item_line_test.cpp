// The item line: reading item by item, and building upon an old line.
#include "favorites/item_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace zn {
namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

TEST(ItemReader, TakesItemsUpToTheLineEnd) {
  struct Row {
    std::string line;
    Pairs items;
  };
  const Row rows[] = {
      {"A=1\t\tB=2\t\t\nPageSize=A4\t", {{"A", "1"}, {"B", "2"}}},
      {"A=1\tB=2\n", {{"A", "1"}}},  // no TAB ends the last one
      {"A=x=y=\t\tB=\t\t", {{"A", "x=y="}, {"B", ""}}},
      {"=5\t\t\t\t\tB=2\t\t", {{"", "5"}, {"B", "2"}}},
      {"junk\t\tA=1\t\t", {{"junkA", "1"}}},
      {"ABCDEFGHIJKLMNOPQRS=1\t\tABCDEFGHIJKLMNOPQRST=2\t\t",
       {{"ABCDEFGHIJKLMNOPQRS", "1"}, {"", "2"}}},  // longer than any tag
      {"ABCDEFGHI\tJKLMNOPQR\t\tS=1\t\tABCDEFGHI\tJKLMNOPQRST=2\t\tB\t=3\t\t",
       {{"ABCDEFGHIJKLMNOPQRS", "1"}, {"", "2"}, {"B", "3"}}},
      {"A=" + std::string(700, 'v') + "\t\t", {{"A", std::string(599, 'v')}}},
      {std::string("A=1\0002\t\tB\0=3\t\t", 13), {{"A", "1"}, {std::string("B\0", 2), "3"}}},
  };
  for (const Row& row : rows) {
    ItemReader reader(row.line);
    ItemReader::Item item;
    Pairs items;
    while (reader.ReadPrintOptionOne(item)) {
      items.emplace_back(item.tag, item.value);
    }
    EXPECT_THAT(items, ::testing::ElementsAreArray(row.items)) << row.line;
    const std::size_t end = row.line.find('\n');
    EXPECT_EQ(reader.End(), end == std::string::npos ? row.line.size() : end + 1) << row.line;
  }
}

TEST(ItemLine, PlacesItemsInTheirOldPlacesAndNewOnesBehind) {
  struct Row {
    std::string old;
    Pairs placed;
    std::string line;
  };
  const Row rows[] = {
      {"", {{"A", "1"}, {"B", ""}, {"A", "3"}}, "A=3\t\tB=\t\t"},
      {"X=9\t\tA=1\t\tY=8\t\t", {{"A", "222"}, {"B", "2"}}, "X=9\t\tA=222\t\tY=8\t\tB=2\t\t"},
      {"X=PG_A=1\t\t", {{"A", "2"}}, "X=PG_A=1\t\tA=2\t\t"},        // inside a value
      {"XA=1\t\tA=1\t\t", {{"A", "2"}}, "XA=1\t\tA=2\t\t"},         // the end of another tag
      {"junk\t\tA=1\t\t", {{"A", "2"}}, "junk\t\tA=1\t\tA=2\t\t"},  // its tag reads "junkA"
      {"a=1\t\t", {{"A", "2"}}, "a=1\t\tA=2\t\t"},
      {"cl_white=1\t\t", {{"CL_WHITE", "2"}}, "CL_WHITE=2\t\t"},  // readers take it for the tag
      {"X=9\t\tA=1", {{"B", "2"}}, "X=9\t\tA=1\t\tB=2\t\t"},
      {"X=9\tA=1\t\t\tY=8\t", {{"A", "2"}}, "X=9\tA=2\t\t\tY=8\t"},
      {"X=9\t\tjunk", {{"B", "2"}}, "X=9\t\tB=2\t\tjunk"},  // would become a part of "B"
      {"A=1\t\tX=9\t\tA=3\t\t", {{"A", "2"}}, "A=2\t\tX=9\t\tA=2\t\t"},
      {"=5\t\t\nPageSize=A4\n", {{"B", "2"}}, "=5\t\tB=2\t\t"},
  };
  for (const Row& row : rows) {
    ItemLine line(row.old);
    for (const auto& [tag, value] : row.placed) {
      EXPECT_TRUE(line.Place(tag, value));
    }
    EXPECT_EQ(line.Text(), row.line) << row.old;
  }
  ItemLine line("A=1\t\tB=2\t\tA=3\t\tC=4\t\t");
  line.Remove("A");
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
  EXPECT_TRUE(line.Place("A", "12"));
  EXPECT_TRUE(line.Place("B", ""));
  EXPECT_EQ(ItemLine(line.Text() + "C=1\t\t").Text(), line.Text());
  EXPECT_EQ(ItemLine("C=12\t\t" + unknown).Text(), "C=12\t\t" + unknown);
  EXPECT_EQ(ItemLine("C=123456789\t\t" + unknown).Text(), "C=123456789\t\t")
      << "a cut value would look whole";
}

}  // namespace
}  // namespace zn
