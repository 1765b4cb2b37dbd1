#include "tests/inspector/inspector.h"

namespace zn::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::string_view kFile =
    "12\n-7\n5\nComment=spring fair\n"
    "EXT_NUP=4\t\tPG_PPSIZE=7\t\tEXT_PGSIZE=5\t\tPG_PTYPE=0\t\tNEW_TAG=x\t\tMEMO_CMT=a b\t\t"
    "OUT_PPSWM=12.34\t\tCBS_PG=5\t\t\nPageSize=A3 wide\n";

TEST(InspectFavorite, PrintsTheEntryThenBothTables) {
  const TempFolder folder;
  const std::string output = Inspect({"favorite", folder.Write("x.pfj", kFile)});
  EXPECT_THAT(output,
              StartsWith("number1=12\nnumber2=-7\nnumber3=5\ncomment=spring fair\n"
                         "page_size=A3 wide\nEXT_PGSIZE=5\nEXT_ORIENTATION=0\nEXT_NUP=4\n"));
  // The paper size is PG_PPSIZE in this list, whatever the file's item of that name says.
  EXPECT_THAT(output, HasSubstr("\nEXT_PAGEORDER=0\nPG_NUMBR=0\nPG_RANGE=-1\nPG_RTEXT=\n"
                                "PG_PPSIZE=5\nPG_PPSIZEX=0.0\nPG_PPSIZEY=0.0\nPG_PSIZE=7\n"
                                "PG_CSIZX=0.0\n"));
  const std::vector<std::string> lines = Lines(output);
  EXPECT_EQ(lines.size(), 5 + 13 + 534U);
  for (const char* line : {"PG_PTYPE=0", "MEMO_CMT=a b", "OUT_PPSWM=12.3", "OUT_PPSW=21474836.48",
                           "CBS_PRT=-1", "CBS_PG=5"}) {
    EXPECT_THAT(lines, Contains(line));
  }
}

TEST(InspectFavorite, SavesOverAFileAndKeepsItsUnknownItems) {
  const TempFolder folder;
  const std::string from = folder.Write("from.pfj", kFile);
  const std::string over = folder.Write("over.pfj", "1\n2\nOLD=1\t\tEXT_NUP=9\t\t\n");
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(Inspect({"favorite", from, "--save", over}), "");
    EXPECT_THAT(
        folder.Read("over.pfj"),
        StartsWith("12\n-7\n5\nComment=spring fair\nOLD=1\t\tEXT_NUP=4\t\tEXT_PGSIZE=5\t\t"));
  }
}

TEST(InspectFavorite, FreshRecordIsThatOfAFileWithoutItems) {
  const TempFolder folder;
  EXPECT_EQ(Inspect({"record", "--default"}),
            Inspect({"favorite", folder.Write("x.pfj", "0\n0\n")}));
}

}  // namespace
}  // namespace zn::test
