// Texts in double-byte code pages, and formats that a translator may have changed.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/double_byte.h"
#include "platform/format_text.h"

namespace zn {
namespace {

TEST(DoubleByte, EachCodePageHasItsLeadBytes) {
  struct Row {
    std::uint32_t codePage;
    std::string_view lead, single;  // the ends of the ranges, and what lies beside them
  };
  for (const Row& row : {Row{932, "\x81\x9F\xE0\xFC", "\x5C\x80\xA0\xDF\xFD\xFF"},
                         Row{936, "\x81\xFE", "\x80\xFF"}, Row{949, "\x81\xFE", "\x80\xFF"},
                         Row{950, "\x81\xFE", "\x80\xFF"}, Row{1252, "", "\x81\xFE"}}) {
    const auto isLead = [&](char byte) { return IsLeadByte(byte, row.codePage); };
    EXPECT_TRUE(std::ranges::all_of(row.lead, isLead)) << row.codePage;
    EXPECT_TRUE(std::ranges::none_of(row.single, isLead)) << row.codePage;
  }
}

TEST(DoubleByte, TextsAreCutAndSearchedByWholeCharacters) {
  constexpr auto kNone = std::string_view::npos;
  struct Row {
    std::string_view text;
    std::uint32_t codePage;
    std::size_t cutAtThree, backslash, lastDot;  // of "\" and of "." or "\"
  };
  const Row rows[] = {
      {"", 932, 0, kNone, kNone},
      {"abc", 932, 3, kNone, kNone},
      {"a.\\.b", 932, 3, 2, 3},
      {"a\x95\x5C", 932, 3, kNone, kNone},
      {"a\x95\x5C", 1252, 3, 2, 2},
      {"ab\x95\x5C.", 932, 2, kNone, 4},
      {"ab\x95\x5C.", 1252, 3, 3, 4},
      {"\xA0\x5C\xA0\x5C", 932, 3, 1, 3},  // no lead byte there, but in the others
      {"\xA0\x5C\xA0\x5C", 936, 2, kNone, kNone},
      {"ab\x81\x5C\\", 949, 2, 4, 4},
      {"\\b\xFE\x5C", 950, 2, 0, 0},
      {"ab\x81", 932, 3, kNone, kNone},  // half a character at the end
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.text) + " in " + std::to_string(row.codePage));
    EXPECT_EQ(CutText(row.text, 3, row.codePage), row.text.substr(0, row.cutAtThree));
    EXPECT_EQ(FindText(row.text, "\\", row.codePage), row.backslash);
    EXPECT_EQ(FindLastOf(row.text, ".\\", row.codePage), row.lastDot);
  }
}

TEST(FillIn, PlaceholdersTakeTheTextsInTurnAndForeignOnesStay) {
  EXPECT_EQ(FillIn("%s of %d: %s", {"a", "b%s", "c"}), "a of b%s: c");
  EXPECT_EQ(FillIn("%s %s %d", {"one"}), "one %s %d");
  EXPECT_EQ(FillIn("%n %1$s 100%% %x%", {"one"}), "%n %1$s 100%% %x%");
  EXPECT_EQ(FillIn("%%s none", {"one", "two"}), "%one none");
}

}  // namespace
}  // namespace zn
