// Favourite files: reading, saving, re-saving, limits and damage.
#include "favorites/favorite_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>

#include "ddb/tag_table.h"
#include "favorites/favorite_tag_list.h"
#include "favorites/item_line.h"
#include "tests/favorites/reload_check.h"
#include "tests/favorites/temp_folder.h"

namespace zn {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr std::string_view kFile =
    "12\n-7\n5\nComment=spring fair\nEXT_NUP=4\t\tPG_NUMBR=3\t\tNEW_TAG=x=y\t\tMEMO_CMT=a b\t\t\n"
    "PageSize=A3 wide\n";

// An entry with odd values, to see what a load leaves alone.
FavoriteEntry OddEntry() {
  FavoriteEntry entry;
  entry.number1 = 101;
  entry.number2 = 102;
  entry.number3 = 3;
  entry.comment = "old comment";
  entry.pageSizeName = "old size";
  entry.folder = "folder";
  entry.name = "name";
  return entry;
}

std::string Summary(const FavoriteEntry& entry) {
  return std::to_string(entry.number1) + "|" + std::to_string(entry.number2) + "|" +
         std::to_string(entry.number3) + "|" + entry.comment + "|" + entry.pageSizeName + "|" +
         std::to_string(entry.option.m_Extended[ddb::EXT_NUP]);
}

TEST(FavoriteFile, LoadsWhatItHoldsAndLeavesTheRest) {
  struct Row {
    std::string file;
    const char* summary;  // null: not loaded
  };
  const std::string old = "old comment|old size|";
  const Row rows[] = {
      {std::string(kFile), "12|-7|5|spring fair|A3 wide|4"},
      {"1\n2\n", "1|2|3|old comment|old size|0"},
      {"1\n2\nEXT_NUP=4\t\t\n", "1|2|3|old comment|old size|4"},
      {"1\n2\nEXT_NUP=4\t\t", "1|2|3|old comment|old size|4"},
      {"1\n2\n12\nEXT_NUP=4\t\t\n", "1|2|3|old comment|old size|0"},  // "12" is the item line
      {"1\n2\n12\nComment=c\nEXT_NUP=4\t\t\n", "1|2|3|old comment|old size|0"},
      {"1\n2\n-\nEXT_NUP=4\t\t\n", "1|2|3|old comment|old size|0"},
      {"1\n2\n0\nComment=\n\nPageSize=\n", "1|2|0|||0"},
      {"1\n2\n0\ncomment=c\nPageSize=A4\n", "1|2|0|old comment|A4|0"},
      {"1\n2\nComment=c\nEXT_NUP=4\t\t\nPageSize=A4", "1|2|3|c|old size|4"},  // no LF
      {"1\n2\nComment=c\nEXT_NUP=4\t\t\nPagesize=A4\n", "1|2|3|c|old size|4"},
      {"1\n2\nComment=c\nEXT_NUP=4\t\t\nx\nPageSize=A4\n", "1|2|3|c|old size|4"},
      {" 12x\n99999999999\n", "12|0|3|old comment|old size|0"},
      {"\n\n", "0|0|3|old comment|old size|0"},
      {"", nullptr},
      {"1", nullptr},
      {"1\n", nullptr},
      {"1\n2", nullptr},
      {std::string(255, '0') + "\n2\n", "0|2|3|old comment|old size|0"},
      {std::string(256, '0') + "\n2\n", nullptr},
      {"1\n" + std::string(256, '0') + "\n", nullptr},
      {std::string("1\0009\n2\n5\0\nComment=a\0b\n", 21), "1|2|3|old comment|old size|0"},
      {std::string("1\n2\n5\nComment=a\0b\n\n", 19), "1|2|5|a|old size|0"},
      {"1\r\n2\r\nEXT_NUP=4\t\t\r\n", "1|2|3|old comment|old size|4"},
  };
  for (const Row& row : rows) {
    FavoriteEntry entry = OddEntry();
    const bool loaded = CFavoriteFileManager().LoadFavoriteFromMemory(entry, row.file);
    EXPECT_EQ(loaded, row.summary != nullptr) << row.file;
    EXPECT_EQ(Summary(entry), row.summary != nullptr ? row.summary : Summary(OddEntry()))
        << row.file;
    EXPECT_EQ(entry.folder + entry.name, "foldername");
  }
}

TEST(FavoriteFile, CommentsAreReadUpToTheirLimit) {
  for (const std::size_t size : {254, 255, 256, 257, 258}) {
    FavoriteEntry entry = OddEntry();
    const std::string file = "1\n2\nComment=" + std::string(size, 'c') + "\nEXT_NUP=4\t\t\n";
    CFavoriteFileManager().LoadFavoriteFromMemory(entry, file);
    // A line of 266 bytes without LF is no comment line, so it is the item line.
    EXPECT_EQ(entry.comment,
              size > 257 ? "old comment" : std::string(std::min<std::size_t>(size, 255), 'c'));
    EXPECT_EQ(entry.option.m_Extended[ddb::EXT_NUP], size > 257 ? 0 : 4);
  }
}

TEST(FavoriteFile, OffersItemsToTheExtendedTagsFirst) {
  FavoriteEntry entry;
  CFavoriteFileManager().LoadFavoriteFromMemory(
      entry,
      "0\n0\nEXT_PGSIZE=5\t\tPG_PPSIZE=6\t\tpg_numbr=-4\t\tGR_DEPTH=1x2\t\tPG_PTYPE=0\t\t"
      "OT_USEICC=1\t\tCL_STYLE=2\t\tUNKNOWN=1\t\text_nup=3\t\t\n");
  const ddb::PrintOptionBody& body = entry.option.m_Body;
  EXPECT_EQ(body.PG_PPSIZE, 5);
  EXPECT_EQ(body.PG_PSIZE, 6);
  EXPECT_EQ(body.PG_NUMBR, 1);  // in lower case the tag has the other handler
  EXPECT_EQ(body.GR_DEPTH, 102);
  EXPECT_EQ(body.PG_PTYPE, 10);  // media codes are those of files
  EXPECT_EQ(body.OT_USEICC, 1);
  EXPECT_EQ(body.CL_OUTIT, 2);
  EXPECT_EQ(entry.option.m_Extended[ddb::EXT_NUP], 0);
}

TEST(FavoriteFile, MissingFileLoadsNothing) {
  const TempFolder folder;
  CFavoriteFileManager files;
  FavoriteEntry entry = OddEntry();
  EXPECT_FALSE(files.LoadFavoriteFromPath(entry, folder.Path("none.pfj").c_str()));
  EXPECT_FALSE(files.LoadFavoriteFromPath(entry, folder.Path("").c_str()));
  EXPECT_FALSE(files.LoadFavoriteFromPath(entry, folder.Path(std::string(300, 'n')).c_str()));
  EXPECT_EQ(Summary(entry), Summary(OddEntry()));
}

TEST(FavoriteFile, SavesTheLinesInOrder) {
  const TempFolder folder;
  FavoriteEntry entry = OddEntry();
  entry.option.m_Extended[ddb::EXT_NUP] = 4;
  const std::string path = folder.Path("new.pfj");
  ASSERT_TRUE(CFavoriteFileManager().SaveFavoriteFromPath(entry, path.c_str()));
  const std::string file = folder.Read("new.pfj");
  EXPECT_THAT(file, StartsWith("101\n102\n3\nComment=old comment\n"
                               "EXT_PGSIZE=-1\t\tEXT_ORIENTATION=0\t\tEXT_NUP=4\t\t"));
  EXPECT_THAT(file, ::testing::EndsWith("\t\t\nPageSize=old size\n"));
  EXPECT_THAT(file, Not(HasSubstr("MEMO_CMT")));  // empty texts are no items
  EXPECT_THAT(file, Not(HasSubstr("OT_USEIC")));
  EXPECT_THAT(file, Not(HasSubstr("PG_SIZEX")));
}

TEST(FavoriteFile, LineEndsInTextsBecomeBlanks) {
  const TempFolder folder;
  CFavoriteFileManager files;
  FavoriteEntry entry;
  entry.number3 = 12;  // would be taken for the item line
  entry.comment = "first\r\nsecond\tthird\n";
  entry.pageSizeName = "A4\nwide";
  ddb::SetText(entry.option.m_Body, ddb::TagNamed("MEMO_CMT"), "a\r\nb\tc=d");
  const std::string path = folder.Path("x.pfj");
  ASSERT_TRUE(files.SaveFavoriteFromPath(entry, path.c_str()));
  FavoriteEntry loaded;
  ASSERT_TRUE(files.LoadFavoriteFromPath(loaded, path.c_str()));
  EXPECT_EQ(loaded.number3, 9);
  EXPECT_EQ(loaded.comment, "first second\tthird ");
  EXPECT_EQ(loaded.pageSizeName, "A4 wide");
  EXPECT_STREQ(loaded.option.m_Body.MEMO_CMT.text, "a b c=d");
}

TEST(FavoriteFile, OverlongTextsAreCutOnSaving) {
  const TempFolder folder;
  CFavoriteFileManager files;
  FavoriteEntry entry;
  entry.comment = std::string(400, 'c');
  entry.pageSizeName = std::string(400, 'p');
  const std::string path = folder.Path("x.pfj");
  ASSERT_TRUE(files.SaveFavoriteFromPath(entry, path.c_str()));
  FavoriteEntry loaded;
  ASSERT_TRUE(files.LoadFavoriteFromPath(loaded, path.c_str()));
  EXPECT_EQ(loaded.comment, std::string(255, 'c'));
  EXPECT_EQ(loaded.pageSizeName, std::string(255, 'p'));
}

TEST(FavoriteFile, KeyTextsOfTheStringTableAndTheirFallbacks) {
  const TempFolder folder;
  const std::string path = folder.Path("x.pfj");
  FavoriteEntry entry = OddEntry();
  CFavoriteFileManager({"Memo:", "Size:"}).SaveFavoriteFromPath(entry, path.c_str());
  EXPECT_THAT(folder.Read("x.pfj"), HasSubstr("\nMemo:old comment\n"));
  EXPECT_THAT(folder.Read("x.pfj"), HasSubstr("\nSize:old size\n"));
  // Without texts the page-size line is written under the comment's key, but read under its own.
  CFavoriteFileManager({"", ""}).SaveFavoriteFromPath(entry, path.c_str());
  EXPECT_THAT(folder.Read("x.pfj"), HasSubstr("\nComment=old comment\n"));
  EXPECT_THAT(folder.Read("x.pfj"), HasSubstr("\nComment=old size\n"));
  FavoriteEntry loaded;
  CFavoriteFileManager({"", ""}).LoadFavoriteFromMemory(loaded, "0\n0\nComment=c\n\nPageSize=p\n");
  EXPECT_EQ(loaded.comment + loaded.pageSizeName, "cp");
}

TEST(FavoriteFile, ResaveKeepsUnknownItemsInTheirPlaces) {
  const TempFolder folder;
  const std::string path = folder.Write("x.pfj", kFile);
  CFavoriteFileManager files;
  FavoriteEntry entry;
  ASSERT_TRUE(files.LoadFavoriteFromPath(entry, path.c_str()));
  entry.option.m_Body.PG_NUMBR = 20;
  entry.option.m_Body.MEMO_CMT.text[0] = '\0';
  ASSERT_TRUE(files.SaveFavoriteFromPath(entry, path.c_str()));
  // The cleared text replaces the old one: without its item it would come back.
  EXPECT_THAT(folder.Read("x.pfj"),
              StartsWith("12\n-7\n5\nComment=spring fair\n"
                         "EXT_NUP=4\t\tPG_NUMBR=20\t\tNEW_TAG=x=y\t\tMEMO_CMT=\t\tEXT_PGSIZE="));
}

TEST(FavoriteFile, UseSwitchesAreReadButNeverWritten) {
  const TempFolder folder;
  const std::string path =
      folder.Write("x.pfj",
                   "0\n0\nA=1\t\tOT_USEICC=1\t\tOT_USEICUID=1\t\tOT_USEICUC=u\t\tOT_USEICUP=p\t\t"
                   "OT_USEICAID=a\t\tB=2\t\t\n");
  CFavoriteFileManager files;
  FavoriteEntry entry;
  ASSERT_TRUE(files.LoadFavoriteFromPath(entry, path.c_str()));
  EXPECT_STREQ(entry.option.m_Body.OT_USEICUP.text, "p");
  ASSERT_TRUE(files.SaveFavoriteFromPath(entry, path.c_str()));
  EXPECT_THAT(folder.Read("x.pfj"), HasSubstr("\nA=1\t\tB=2\t\tEXT_PGSIZE="));
  EXPECT_THAT(folder.Read("x.pfj"), Not(HasSubstr("OT_USEIC")));
}

TEST(FavoriteFile, FullLineKeepsTheOldValuesBehindIt) {
  const TempFolder folder;
  const std::string unknown = "NEWER=" + std::string(4900, 'x') + "\t\t";
  const std::string path =
      folder.Write("x.pfj", "0\n0\n0\nComment=\n" + unknown + "CL_GAMMA=2\t\t\n");
  CFavoriteFileManager files;
  FavoriteEntry entry;
  ASSERT_TRUE(files.LoadFavoriteFromPath(entry, path.c_str()));
  entry.option.m_Extended[ddb::EXT_NUP] = 3;
  entry.option.m_Body.CL_GAMMA = 1;
  ASSERT_TRUE(files.SaveFavoriteFromPath(entry, path.c_str()));
  const std::string file = folder.Read("x.pfj");
  EXPECT_THAT(file, HasSubstr("\n" + unknown + "CL_GAMMA=2\t\tEXT_PGSIZE="));
  EXPECT_THAT(file, HasSubstr("EXT_NUP=3\t\t"));
  EXPECT_THAT(file, ::testing::EndsWith("\nPageSize=\n"));
}

TEST(FavoriteFile, SaveOverAFileOfAnotherKindReplacesIt) {
  const TempFolder folder;
  CFavoriteFileManager files;
  std::string binary(5000, '\0');
  std::mt19937 random(1);
  for (char& c : binary) {
    c = static_cast<char>(random());
  }
  const FavoriteEntry entry = OddEntry();
  for (const std::string& old : {std::string(), std::string("no lines"), binary}) {
    const std::string path = folder.Write("x.pfj", old);
    ASSERT_TRUE(files.SaveFavoriteFromPath(entry, path.c_str()));
    FavoriteEntry loaded;
    ASSERT_TRUE(files.LoadFavoriteFromPath(loaded, path.c_str()));
    EXPECT_EQ(Summary(loaded), Summary(entry));
  }
}

TEST(FavoriteFile, HugeLineIsReadOnlyUpToALimit) {
  const TempFolder folder;
  const std::string path = folder.Write("x.pfj", "1\n2\n3\nComment=c\nEXT_NUP=4\t\tX=");
  std::filesystem::resize_file(path, std::uintmax_t{1} << 30);
  CFavoriteFileManager files;
  FavoriteEntry entry;
  EXPECT_TRUE(files.LoadFavoriteFromPath(entry, path.c_str()));
  EXPECT_EQ(Summary(entry), "1|2|3|c||4");
  EXPECT_TRUE(files.SaveFavoriteFromPath(entry, path.c_str()));
  EXPECT_LT(folder.Read("x.pfj").size(), 5100U);
}

TEST(FavoriteFile, ReportsWhatCouldNotBeWritten) {
  const TempFolder folder;
  CFavoriteFileManager files;
  const FavoriteEntry entry = OddEntry();
  EXPECT_FALSE(files.SaveFavoriteFromPath(entry, folder.Path("none/x.pfj").c_str()));
  EXPECT_FALSE(files.SaveFavoriteFromPath(entry, folder.Path("").c_str()));
#ifdef __linux__
  EXPECT_FALSE(files.SaveFavoriteFromPath(entry, "/dev/full"));
#endif
}

TEST(FavoriteFile, BufferVariantIsCutAndTerminated) {
  const CFavoriteFileManager files;
  const FavoriteEntry entry;
  std::string whole(kItemLineSize, '#');
  files.WritePrintOption(entry, whole);
  whole.resize(whole.find('\0'));
  std::string part(21, '#');
  files.WritePrintOption(entry, std::span(part).first(20));
  EXPECT_EQ(part, whole.substr(0, 19) + std::string("\0#", 2));
  files.WritePrintOption(entry, {});
}

TEST(FavoriteFile, CutAtEveryLengthLoadsItsWholeItemsOnly) {
  const CFavoriteFileManager files;
  for (std::size_t size = 0; size <= kFile.size(); ++size) {
    const std::string_view file = kFile.substr(0, size);
    FavoriteEntry entry;
    EXPECT_EQ(files.LoadFavoriteFromMemory(entry, file), size >= 6) << size;
    const bool nup = file.find("EXT_NUP=4\t") != std::string_view::npos;
    const bool copies = file.find("PG_NUMBR=3\t") != std::string_view::npos;
    EXPECT_EQ(entry.option.m_Extended[ddb::EXT_NUP], nup ? 4 : 0) << size;
    EXPECT_EQ(entry.option.m_Body.PG_NUMBR, copies ? 3 : 0) << size;
    EXPECT_EQ(entry.pageSizeName.empty(), size < kFile.size()) << size;
  }
}

// Files as they might come from anywhere: listed and other tags, odd values, unknown items, noise.
std::string RandomFile(std::mt19937& random) {
  static constexpr const char* kNoise[] = {"junk\t\t", "=\t", "\t", "A", "x=y=z\t", "\r\t\t"};
  const auto number = [&] { return std::to_string(static_cast<std::int32_t>(random())); };
  std::string file = number() + "\n" + number() + "\n";
  file += random() % 4 != 0 ? std::to_string(random() % 10) + "\n" : "";
  file += random() % 4 != 0 ? "Comment=" + std::string(random() % 256, 'c') + "\n" : "";
  const auto list = GetFavoriteTagList();
  const auto count = random() % 200;
  for (unsigned i = 0; i < count; ++i) {
    const ListedTag& listed = list[random() % list.size()];
    switch (random() % 8) {
      case 0:
        file += kNoise[random() % std::size(kNoise)];
        break;
      case 1:
        file += std::string(ddb::kTags[random() % ddb::kTags.size()].name) + "=7\t\t";
        break;
      case 2:
        file +=
            "NEW_" + std::to_string(random() % 50) + "=" + std::string(random() % 40, 'n') + "\t\t";
        break;
      default:
        file += std::string(listed.name) + "=" +
                (test::ReadsNoSign(listed) ? std::to_string(random() % 100000) : number()) + "\t\t";
    }
  }
  file += random() % 8 != 0 ? "\n" : "";
  return file + (random() % 4 != 0 ? "PageSize=A" + std::to_string(random() % 10) + "\n" : "");
}

std::string UnknownItems(const std::string& file) {
  std::string unknown;
  for (std::size_t at = file.find("NEW_"); at != std::string::npos;
       at = file.find("NEW_", at + 1)) {
    unknown += file.substr(at, file.find('\t', at) - at) + " ";
  }
  return unknown;
}

TEST(FavoriteFile, WhatWasSavedIsLoadedAgain) {
  const TempFolder folder;
  CFavoriteFileManager files;
  std::mt19937 random(42);
  for (int round = 0; round < 300; ++round) {
    const std::string file = RandomFile(random);
    const std::string path = folder.Write("x.pfj", file);
    FavoriteEntry first;
    ASSERT_TRUE(files.LoadFavoriteFromPath(first, path.c_str()));
    if (random() % 2 == 0) {
      std::filesystem::remove(path);
    }
    const bool resaved = std::filesystem::exists(path);
    ASSERT_TRUE(files.SaveFavoriteFromPath(first, path.c_str()));
    const std::string saved = folder.Read("x.pfj");
    FavoriteEntry second;
    ASSERT_TRUE(files.LoadFavoriteFromPath(second, path.c_str()));

    EXPECT_EQ(Summary(second), Summary(first)) << file;
    EXPECT_EQ(test::LostSetting(first, second), "") << file;
    EXPECT_EQ(UnknownItems(saved), resaved ? UnknownItems(file) : "");
    ASSERT_TRUE(files.SaveFavoriteFromPath(first, path.c_str()));
    EXPECT_EQ(folder.Read("x.pfj"), saved) << "a second save changed something";
  }
}

}  // namespace
}  // namespace zn
