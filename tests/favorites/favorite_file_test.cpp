// Favourite files: reading, saving, re-saving, limits and damage.
#include "favorites/favorite_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "ddb/tag_table.h"
#include "favorites/item_line.h"
#include "tests/favorites/reload_check.h"
#include "tests/support/temp_folder.h"

namespace zn {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

// An entry with odd values, to see what a load leaves alone.
SettingSource OddEntry() {
  SettingSource entry;
  entry.number1 = 101;
  entry.number2 = 102;
  entry.number3 = 3;
  entry.comment = "old comment";
  entry.pageSizeName = "old size";
  entry.name = "name";
  return entry;
}

std::string Summary(const SettingSource& entry) {
  return std::to_string(entry.number1) + "|" + std::to_string(entry.number2) + "|" +
         std::to_string(entry.number3) + "|" + entry.comment + "|" + entry.pageSizeName + "|" +
         std::to_string(entry.option.m_Extended[ddb::EXT_NUP]) + "|" + entry.name;
}

class FavoriteFile : public ::testing::Test {
 protected:
  bool Save(const SettingSource& entry) {
    return files_.SaveFavoriteFromPath(entry, path_.c_str());
  }
  SettingSource Load() {
    SettingSource entry;
    EXPECT_TRUE(files_.LoadFavoriteFromPath(entry, path_.c_str()));
    return entry;
  }
  SettingSource LoadFrom(const std::string& file) {
    folder_.Write("x.pfj", file);
    return Load();
  }
  std::string Text() { return folder_.Read("x.pfj"); }

  const TempFolder folder_;
  const std::string path_ = folder_.Path("x.pfj");
  CFavoriteFileManager files_;
};

TEST_F(FavoriteFile, LoadsWhatItHoldsAndLeavesTheRest) {
  struct Row {
    std::string file;
    const char* summary = "101|102|3|old comment|old size|0|name";  // not loaded
  };
  const Row rows[] = {
      {"12\n-7\n5\nComment=c\nEXT_NUP=4\t\t\nPageSize=A3 wide\n", "12|-7|5|c|A3 wide|4|name"},
      {" 12x\n99999999999\n", "12|0|3|old comment|old size|0|name"},
      {"1\n2\n12\nEXT_NUP=4\t\t\n", "1|2|3|old comment|old size|0|name"},  // "12" is the item line
      {"1\n2\n0\ncomment=c\nPageSize=A4\n", "1|2|0|old comment|A4|0|name"},
      {"1\n2\nComment=c\nEXT_NUP=4\t\t\nPageSize=A4", "1|2|3|c|old size|4|name"},  // no LF
      // A line of 266 bytes without LF is no comment line, so it is the item line.
      {"1\n2\nComment=" + std::string(258, 'c') + "\nEXT_NUP=4\t\t\n",
       "1|2|3|old comment|old size|0|name"},
      {std::string("1\n2\n5\nComment=a\0b\n\n", 19), "1|2|5|a|old size|0|name"},
      {"1\n2"},
      {"1\n" + std::string(256, '0') + "\n"},
  };
  for (const Row& row : rows) {
    SettingSource entry = OddEntry();
    const bool isLoaded = files_.LoadFavoriteFromMemory(entry, row.file);
    EXPECT_EQ(isLoaded, entry.number1 != 101) << row.file;
    EXPECT_EQ(Summary(entry), row.summary) << row.file;
  }
  SettingSource entry;
  EXPECT_FALSE(files_.LoadFavoriteFromPath(entry, path_.c_str()));
}

TEST_F(FavoriteFile, OffersItemsToTheExtendedTagsFirst) {
  const SettingSource entry =
      LoadFrom("0\n0\nEXT_PGSIZE=5\t\tPG_PPSIZE=6\t\tpg_numbr=-4\t\tPG_PTYPE=0\t\text_nup=3\t\t\n");
  const ddb::PrintOptionBody& body = entry.option.m_Body;
  EXPECT_EQ(body.PG_PPSIZE, 5);
  EXPECT_EQ(body.PG_PSIZE, 6);
  EXPECT_EQ(body.PG_NUMBR, 1);   // in lower case the tag has the other handler
  EXPECT_EQ(body.PG_PTYPE, 10);  // media codes are those of files
  EXPECT_EQ(entry.option.m_Extended[ddb::EXT_NUP], 0);
}

TEST_F(FavoriteFile, SavesTheLinesInOrder) {
  SettingSource entry = OddEntry();
  entry.option.m_Extended[ddb::EXT_NUP] = 4;
  ASSERT_TRUE(Save(entry));
  EXPECT_THAT(Text(), StartsWith("101\n102\n3\nComment=old comment\n"
                                 "EXT_ORIENTATION=0\t\tEXT_NUP=4\t\t"));
  EXPECT_THAT(Text(), EndsWith("\t\t\nPageSize=old size\n"));
  std::string part(21, '#');
  files_.WritePrintOption(entry, std::span(part).first(20));
  EXPECT_EQ(part, std::string("EXT_ORIENTATION=0\t\t\0#", 21));
  // No items: empty texts, and what the digit scan would read as another value.
  for (const char* tag : {"MEMO_CMT=", "EXT_PGSIZE=", "GR_DEPTH=", "PG_NUMBR=", "PG_SIZEX="}) {
    EXPECT_THAT(Text(), Not(HasSubstr(tag)));
  }
  EXPECT_FALSE(files_.SaveFavoriteFromPath(entry, folder_.Path("none/x.pfj").c_str()));
#ifdef __linux__
  EXPECT_FALSE(files_.SaveFavoriteFromPath(entry, "/dev/full"));
#endif
}

TEST_F(FavoriteFile, TextsAreMadeToFitTheirLines) {
  SettingSource entry;
  entry.number3 = 12;  // would be taken for the item line
  entry.comment = "first\r\nsecond\tthird\n" + std::string(400, 'c');
  entry.pageSizeName = "A4\nwide" + std::string(400, 'p');
  ddb::SetText(entry.option.m_Body, ddb::TagNamed("MEMO_CMT"), "a\r\nb\tc=d");
  ASSERT_TRUE(Save(entry));
  const SettingSource loaded = Load();
  EXPECT_EQ(loaded.number3, 9);
  EXPECT_EQ(loaded.comment, "first second\tthird " + std::string(236, 'c'));
  EXPECT_EQ(loaded.pageSizeName, "A4 wide" + std::string(248, 'p'));
  EXPECT_STREQ(loaded.option.m_Body.MEMO_CMT.text, "a b c=d");
}

TEST_F(FavoriteFile, KeyTextsOfTheStringTableAndTheirFallbacks) {
  const SettingSource entry = OddEntry();
  std::string text = CFavoriteFileManager({"Memo:", "Size:"}).SaveFavoriteToMemory(entry, {});
  EXPECT_THAT(text, HasSubstr("\nMemo:old comment\n"));
  EXPECT_THAT(text, EndsWith("\nSize:old size\n"));
  // Without texts the page-size line is written under the comment's key, but read under its own.
  const CFavoriteFileManager bare({"", ""});
  EXPECT_THAT(bare.SaveFavoriteToMemory(entry, {}), EndsWith("\nComment=old size\n"));
  SettingSource loaded;
  bare.LoadFavoriteFromMemory(loaded, "0\n0\nComment=c\n\nPageSize=p\n");
  EXPECT_EQ(loaded.comment + loaded.pageSizeName, "cp");
}

TEST_F(FavoriteFile, ResaveKeepsUnknownItemsAndLeavesNoOldValueToBeReadLater) {
  SettingSource entry = LoadFrom(
      "0\n0\nNEW_TAG=x=y\t\tpg_ppsize=7\t\text_nup=3\t\tOut_Stpl=9\t\tEXT_PSLLV=2\t\t"
      "OT_USEICC=1\t\tot_useicuid=1\t\tMEMO_CMT=a b\t\tPG_PTRAY=4\t\t\n");
  EXPECT_EQ(entry.option.m_Body.PG_PPSIZE, 7);
  EXPECT_EQ(entry.option.m_Body.OT_USEICUID, 1);  // such switches are read, but never written
  entry.option.m_Body.PG_PPSIZE = 8;
  entry.option.m_Body.OUT_STPL = 1;
  entry.option.m_Body.PG_PTRAY = ddb::kNoCode;
  entry.option.m_Body.MEMO_CMT.text[0] = '\0';  // without its item the old one would come back
  ASSERT_TRUE(Save(entry));
  EXPECT_THAT(Text(), HasSubstr("\nNEW_TAG=x=y\t\tEXT_PGSIZE=8\t\text_nup=3\t\tOUT_STPL=1\t\t"
                                "EXT_PSLLV=2\t\tMEMO_CMT=\t\tEXT_ORIENTATION="));
  SettingSource loaded = Load();
  EXPECT_EQ(test::LostSetting(entry, loaded), "");
  EXPECT_EQ(loaded.option.m_Body.PG_PTRAY, ddb::kNoCode);
}

TEST_F(FavoriteFile, FullLineKeepsTheOldValuesBehindIt) {
  const std::string unknown = "NEWER=" + std::string(4900, 'x') + "\t\t";
  SettingSource entry = LoadFrom("0\n0\n0\nComment=\n" + unknown + "CL_GAMMA=2\t\t\n");
  entry.option.m_Extended[ddb::EXT_NUP] = 3;
  entry.option.m_Body.CL_GAMMA = 1;
  const std::string saved = files_.SaveFavoriteToMemory(entry, Text());
  EXPECT_THAT(saved,
              HasSubstr("\n" + unknown + "CL_GAMMA=2\t\tEXT_ORIENTATION=0\t\tEXT_NUP=3\t\t"));
  EXPECT_THAT(saved, EndsWith("\nPageSize=\n"));
}

TEST_F(FavoriteFile, HugeLineIsReadOnlyUpToALimitAndNeverReplaced) {
  constexpr std::size_t kLimit = 1 << 20;
  const std::string begin = "1\n2\n3\nComment=c\nEXT_NUP=4\t\tX=";
  const std::string beyond = begin + std::string(kLimit - begin.size(), 'x') + "\t\tEXT_NUP=5\t\t";
  const SettingSource entry = LoadFrom(beyond);
  EXPECT_EQ(Summary(entry), "1|2|3|c||4|");
  EXPECT_FALSE(Save(entry));
  EXPECT_EQ(Text(), beyond);
  LoadFrom(beyond.substr(0, kLimit - 1));
  EXPECT_TRUE(Save(entry));
  EXPECT_LT(Text().size(), 5100U);
  // A folder opens, or not, but cannot be read: what it may hold must not be lost.
  const std::string fresh = folder_.Path("fresh.pfj");
  EXPECT_FALSE(files_.SaveFavoriteFromPath(entry, fresh.c_str(), folder_.Path().c_str()));
  EXPECT_FALSE(std::filesystem::exists(fresh));
}

}  // namespace
}  // namespace zn
