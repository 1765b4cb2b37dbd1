// Favourite files: reading, saving, re-saving, limits and damage.
#include "favorites/favorite_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <random>
#include <string>

#include "ddb/tag_table.h"
#include "favorites/favorite_tag_list.h"
#include "favorites/item_line.h"
#include "tests/favorites/reload_check.h"
#include "tests/support/temp_folder.h"

namespace zn {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr std::string_view kFile =
    "12\n-7\n5\nComment=spring fair\nEXT_NUP=4\t\tPG_NUMBR=3\t\tNEW_TAG=x=y\t\tMEMO_CMT=a b\t\t\n"
    "PageSize=A3 wide\n";

// An entry with odd values, to see what a load leaves alone.
SettingSource OddEntry() {
  SettingSource entry;
  entry.number1 = 101;
  entry.number2 = 102;
  entry.number3 = 3;
  entry.comment = "old comment";
  entry.pageSizeName = "old size";
  entry.folder = "folder";
  entry.name = "name";
  return entry;
}

std::string Summary(const SettingSource& entry) {
  return std::to_string(entry.number1) + "|" + std::to_string(entry.number2) + "|" +
         std::to_string(entry.number3) + "|" + entry.comment + "|" + entry.pageSizeName + "|" +
         std::to_string(entry.option.m_Extended[ddb::EXT_NUP]);
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), [](unsigned char c) { return std::tolower(c); });
  return lower;
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
  std::string Text() { return folder_.Read("x.pfj"); }

  const TempFolder folder_;
  const std::string path_ = folder_.Path("x.pfj");
  CFavoriteFileManager files_;
};

TEST_F(FavoriteFile, LoadsWhatItHoldsAndLeavesTheRest) {
  struct Row {
    std::string file;
    const char* summary;  // null: not loaded
  };
  const Row rows[] = {
      {std::string(kFile), "12|-7|5|spring fair|A3 wide|4"},
      {"1\n2\n", "1|2|3|old comment|old size|0"},
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
    SettingSource entry = OddEntry();
    const bool loaded = CFavoriteFileManager().LoadFavoriteFromMemory(entry, row.file);
    EXPECT_EQ(loaded, row.summary != nullptr) << row.file;
    EXPECT_EQ(Summary(entry), row.summary != nullptr ? row.summary : Summary(OddEntry()))
        << row.file;
    EXPECT_EQ(entry.folder + entry.name, "foldername");
  }
}

TEST_F(FavoriteFile, CommentsAreReadUpToTheirLimit) {
  for (const std::size_t size : {254, 255, 256, 257, 258}) {
    SettingSource entry = OddEntry();
    const std::string file = "1\n2\nComment=" + std::string(size, 'c') + "\nEXT_NUP=4\t\t\n";
    CFavoriteFileManager().LoadFavoriteFromMemory(entry, file);
    // A line of 266 bytes without LF is no comment line, so it is the item line.
    EXPECT_EQ(entry.comment,
              size > 257 ? "old comment" : std::string(std::min<std::size_t>(size, 255), 'c'));
    EXPECT_EQ(entry.option.m_Extended[ddb::EXT_NUP], size > 257 ? 0 : 4);
  }
}

TEST_F(FavoriteFile, OffersItemsToTheExtendedTagsFirst) {
  SettingSource entry;
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

TEST_F(FavoriteFile, MissingFileLoadsNothing) {
  SettingSource entry = OddEntry();
  for (const std::string& name : {std::string("none.pfj"), std::string(), std::string(300, 'n')}) {
    EXPECT_FALSE(files_.LoadFavoriteFromPath(entry, folder_.Path(name).c_str()));
  }
  EXPECT_EQ(Summary(entry), Summary(OddEntry()));
}

TEST_F(FavoriteFile, SavesTheLinesInOrder) {
  SettingSource entry = OddEntry();
  entry.option.m_Extended[ddb::EXT_NUP] = 4;
  ASSERT_TRUE(Save(entry));
  EXPECT_THAT(Text(), StartsWith("101\n102\n3\nComment=old comment\n"
                                 "EXT_ORIENTATION=0\t\tEXT_NUP=4\t\t"));
  EXPECT_THAT(Text(), ::testing::EndsWith("\t\t\nPageSize=old size\n"));
  // No items: empty texts, and what the digit scan would read as another value.
  for (const char* tag : {"MEMO_CMT=", "EXT_PGSIZE=", "GR_DEPTH=", "PG_NUMBR=", "PG_SIZEX="}) {
    EXPECT_THAT(Text(), Not(HasSubstr(tag)));
  }
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
  EXPECT_THAT(text, HasSubstr("\nSize:old size\n"));
  // Without texts the page-size line is written under the comment's key, but read under its own.
  text = CFavoriteFileManager({"", ""}).SaveFavoriteToMemory(entry, {});
  EXPECT_THAT(text, HasSubstr("\nComment=old comment\n"));
  EXPECT_THAT(text, HasSubstr("\nComment=old size\n"));
  SettingSource loaded;
  CFavoriteFileManager({"", ""}).LoadFavoriteFromMemory(loaded, "0\n0\nComment=c\n\nPageSize=p\n");
  EXPECT_EQ(loaded.comment + loaded.pageSizeName, "cp");
}

TEST_F(FavoriteFile, ResaveKeepsUnknownItemsInTheirPlaces) {
  folder_.Write("x.pfj", kFile);
  SettingSource entry = Load();
  entry.option.m_Body.PG_NUMBR = 20;
  entry.option.m_Body.MEMO_CMT.text[0] = '\0';
  ASSERT_TRUE(Save(entry));
  // The cleared text replaces the old one: without its item it would come back.
  EXPECT_THAT(Text(), StartsWith("12\n-7\n5\nComment=spring fair\nEXT_NUP=4\t\tPG_NUMBR=20\t\t"
                                 "NEW_TAG=x=y\t\tMEMO_CMT=\t\tEXT_ORIENTATION="));
}

TEST_F(FavoriteFile, ResaveLeavesNoOldValueToBeReadLater) {
  folder_.Write("x.pfj",
                "0\n0\npg_ppsize=7\t\text_nup=3\t\tOut_Stpl=9\t\tEXT_PSLLV=2\t\tPG_PTRAY=4\t\t\n");
  SettingSource entry = Load();
  EXPECT_EQ(entry.option.m_Body.PG_PPSIZE, 7);
  entry.option.m_Body.PG_PPSIZE = 8;
  entry.option.m_Body.OUT_STPL = 1;
  entry.option.m_Body.PG_PTRAY = ddb::kNoCode;
  ASSERT_TRUE(Save(entry));
  EXPECT_THAT(Text(),
              HasSubstr("\nEXT_PGSIZE=8\t\text_nup=3\t\tOUT_STPL=1\t\tEXT_PSLLV=2\t\tEXT_"));
  SettingSource loaded = Load();
  EXPECT_EQ(test::LostSetting(entry, loaded), "");
  EXPECT_EQ(Load().option.m_Body.PG_PTRAY, ddb::kNoCode);
}

TEST_F(FavoriteFile, UseSwitchesAreReadButNeverWritten) {
  folder_.Write("x.pfj",
                "0\n0\nA=1\t\tOT_USEICC=1\t\tot_useicuid=1\t\tOT_USEICUC=u\t\tOT_USEICUP=p\t\t"
                "OT_USEICAID=a\t\tB=2\t\t\n");
  const SettingSource entry = Load();
  EXPECT_STREQ(entry.option.m_Body.OT_USEICUP.text, "p");
  EXPECT_EQ(entry.option.m_Body.OT_USEICUID, 1);
  ASSERT_TRUE(Save(entry));
  EXPECT_THAT(Text(), HasSubstr("\nA=1\t\tB=2\t\tEXT_"));
  EXPECT_THAT(LowerCase(Text()), Not(HasSubstr("ot_useic")));
}

TEST_F(FavoriteFile, FullLineKeepsTheOldValuesBehindIt) {
  const std::string unknown = "NEWER=" + std::string(4900, 'x') + "\t\t";
  folder_.Write("x.pfj", "0\n0\n0\nComment=\n" + unknown + "CL_GAMMA=2\t\t\n");
  SettingSource entry = Load();
  entry.option.m_Extended[ddb::EXT_NUP] = 3;
  entry.option.m_Body.CL_GAMMA = 1;
  ASSERT_TRUE(Save(entry));
  EXPECT_THAT(Text(), HasSubstr("\n" + unknown + "CL_GAMMA=2\t\tEXT_"));
  EXPECT_THAT(Text(), HasSubstr("EXT_NUP=3\t\t"));
  EXPECT_THAT(Text(), ::testing::EndsWith("\nPageSize=\n"));
}

TEST_F(FavoriteFile, HugeLineIsReadOnlyUpToALimit) {
  folder_.Write("x.pfj", "1\n2\n3\nComment=c\nEXT_NUP=4\t\tX=");
  std::filesystem::resize_file(path_, std::uintmax_t{1} << 30);
  const SettingSource entry = Load();
  EXPECT_EQ(Summary(entry), "1|2|3|c||4");
  EXPECT_TRUE(Save(entry));
  EXPECT_LT(Text().size(), 5100U);
}

TEST_F(FavoriteFile, ReportsWhatCouldNotBeWritten) {
  SettingSource entry = OddEntry();
  EXPECT_FALSE(files_.SaveFavoriteFromPath(entry, folder_.Path("none/x.pfj").c_str()));
  EXPECT_FALSE(files_.SaveFavoriteFromPath(entry, folder_.Path("").c_str()));
#ifdef __linux__
  EXPECT_FALSE(files_.SaveFavoriteFromPath(entry, "/dev/full"));
#endif
}

TEST_F(FavoriteFile, BufferVariantIsCutAndTerminated) {
  const SettingSource entry;
  std::string part(21, '#');
  files_.WritePrintOption(entry, std::span(part).first(20));
  EXPECT_EQ(part, std::string("EXT_ORIENTATION=0\t\t\0#", 21));
  files_.WritePrintOption(entry, {});
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
    const std::string_view listed = list[random() % list.size()];
    switch (random() % 8) {
      case 0:
        file += kNoise[random() % std::size(kNoise)];
        break;
      case 1:
        file += std::string(ddb::kTags[random() % ddb::kTags.size()].name) + "=7\t\t";
        break;
      case 2:
        file += LowerCase(listed) + "=" + std::to_string(random() % 20) + "\t\t";
        break;
      case 3:
        file +=
            "NEW_" + std::to_string(random() % 50) + "=" + std::string(random() % 40, 'n') + "\t\t";
        break;
      default:
        file += std::string(listed) + "=" +
                (std::ranges::count(ddb::kExtendedTags, listed, &ddb::ExtendedTag::name) != 0 ? std::to_string(random() % 100000) : number()) +
                "\t\t";
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

TEST_F(FavoriteFile, WhatWasSavedIsLoadedAgain) {
  std::mt19937 random(42);
  for (int round = 0; round < 400; ++round) {
    const std::string file = RandomFile(random);
    const std::string old = random() % 2 == 0 ? file : "";
    SettingSource first;
    SettingSource second;
    ASSERT_TRUE(files_.LoadFavoriteFromMemory(first, file));
    const std::string saved = files_.SaveFavoriteToMemory(first, old);
    ASSERT_TRUE(files_.LoadFavoriteFromMemory(second, saved));
    EXPECT_EQ(Summary(second), Summary(first)) << file;
    EXPECT_EQ(test::LostSetting(first, second), "") << file;
    EXPECT_EQ(UnknownItems(saved), UnknownItems(old));
    for (const SettingSource& entry : {first, second}) {
      EXPECT_EQ(files_.SaveFavoriteToMemory(entry, saved), saved) << "changed by a second save";
    }
  }
}

}  // namespace
}  // namespace zn
