// The favourites of a folder: listing, loading on demand, saving and what a failure leaves.
#include "favorites/favorites_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/favorites/settings_test_sheet.h"
#include "tests/support/temp_folder.h"

namespace zn {
namespace {

using ::testing::ElementsAre;

class FavoritesStoreTest : public ::testing::Test {
 protected:
  void List() { store_.SetFiles(Files()); }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < store_.Count(); ++i) {
      names.push_back(store_.Name(i));
    }
    return names;
  }
  const SettingSource* Load(std::string_view name) {
    return store_.Load(store_.Find(name).value(), sheet_.settings);
  }
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }
  bool Save(std::string_view name, std::string_view comment = {}) {
    return store_.Save(name, comment, sheet_.settings);
  }

  TempFolder folder_;
  FavoritesStore store_{folder_.Path(), ".pfj", {}, {"standard", ""}};
  test::TestSheet sheet_;
};

TEST_F(FavoritesStoreTest, ListsTheFavouritesOfTheFolderInTheOrderOfTheirNames) {
  const std::string longest(27, 'n');
  store_.SetFiles({"b.pfj", "a.PFJ", "B.pfj", ".pfj", "a.txt", "standard.pfj", "\x83\x5C.pfj",
                   longest + ".pfj", longest + "n.pfj", "pfj"});
  EXPECT_THAT(Names(), ElementsAre("B", "a", "b", longest, "\x83\x5C"));
  EXPECT_EQ(store_.Find("b"), 2U);
  EXPECT_FALSE(store_.Find("A"));
}

TEST_F(FavoritesStoreTest, LoadTakesWhatTheFileHoldsAndDefaultsForTheRest) {
  folder_.Write("fair.pfj",
                "5\n6\n7\nComment=for the fair\nOUT_STPL=3\t\tEXT_NUP=2\t\tCL_CMODE=99\t\t\n"
                "PageSize=A3\n");
  folder_.Write("old.pfj", "1\n2\nEXT_PGSIZE=53\t\t\n");
  folder_.Write("bare.pfj", "1\n2\nOUT_STPL=1\t\t\n");
  folder_.Write("bad.pfj", "no second line");
  List();
  sheet_.Default(KW_BRIGHTNESS) = 5;
  sheet_[KW_JOG] = 2;  // current selections are no defaults
  EXPECT_EQ(Load("fair")->folder, folder_.Path());
  EXPECT_EQ(Apply(*Load("fair"), Reach::Favorite, sheet_.settings), PaperMatch::ByName);
  EXPECT_EQ(sheet_[KW_STAPLE], 3U);
  EXPECT_EQ(sheet_[KW_NUP], 2U);
  EXPECT_EQ(sheet_[KW_BRIGHTNESS], 5U);
  EXPECT_EQ(sheet_[KW_JOG], 0U);
  EXPECT_EQ(sheet_[KW_COLORMODEL], 0U);  // 99 is no colour mode
  EXPECT_EQ(sheet_[KW_PAGESIZE], 2U);

  // One that names no paper leaves the sheet's, whatever its code says.
  EXPECT_EQ(Apply(*Load("old"), Reach::Favorite, sheet_.settings), PaperMatch::Unnamed);
  EXPECT_EQ(sheet_[KW_PAGESIZE], 2U);
  sheet_[KW_PAGESIZE] = 4;
  Apply(*Load("bare"), Reach::Favorite, sheet_.settings);
  EXPECT_EQ(sheet_[KW_PAGESIZE], 4U);

  EXPECT_EQ(Load("bad"), nullptr);
  ASSERT_TRUE(Save("bad", "whole"));
  List();
  EXPECT_EQ(Load("bad")->comment, "whole");
}

TEST_F(FavoritesStoreTest, SavesANewFavouriteInItsPlace) {
  for (const char* name : {"b", "c", "a"}) {
    ASSERT_TRUE(Save(name, name));
  }
  EXPECT_THAT(Names(), ElementsAre("a", "b", "c"));
  store_.Remove(1);
  EXPECT_EQ(store_.Load(1, sheet_.settings)->comment, "c");
  sheet_[KW_PAGESIZE] = 3;
  ASSERT_TRUE(Save("a", "two\r\nlines"));
  List();
  const SettingSource* const favorite = Load("a");
  ASSERT_NE(favorite, nullptr);
  EXPECT_EQ(favorite->comment, "two lines");
  EXPECT_EQ(favorite->pageSizeName, "B5");
  EXPECT_FALSE(Differs(*favorite, Reach::Favorite, sheet_.settings));
}

TEST_F(FavoritesStoreTest, OverwritingKeepsTheHeaderAndWhatIsUnknown) {
  folder_.Write("fair.pfj",
                "5\n6\n7\nComment=old\nNEWER=9\t\tOUT_STPL=3\t\tST_NAME=paper\t\t\nPageSize=A4\n");
  List();
  ASSERT_TRUE(Save("fair", "new"));
  EXPECT_THAT(
      folder_.Read("fair.pfj"),
      ::testing::StartsWith("5\n6\n7\nComment=new\nNEWER=9\t\tOUT_STPL=0\t\tST_NAME=paper\t\t"));
  // What was loaded before must not be what is loaded now.
  EXPECT_FALSE(Differs(*Load("fair"), Reach::Favorite, sheet_.settings));
  ASSERT_TRUE(Save("new"));
  EXPECT_THAT(folder_.Read("new.pfj"), ::testing::StartsWith("0\n0\n0\nComment=\nEXT_"));
  EXPECT_THAT(Files(), ::testing::UnorderedElementsAre("fair.pfj", "new.pfj"));
}

TEST_F(FavoritesStoreTest, RefusesWhatTheFormatCannotHoldAndTellsAFailedSave) {
  const std::string longest(27, 'n');
  for (const char* name : {"standard", "..\\x", "a:b", "a\tb", "NUL", "COM1"}) {
    EXPECT_FALSE(Save(name)) << name;
  }
  EXPECT_FALSE(Save("fair", std::string(256, 'c')));
  EXPECT_THAT(Files(), ElementsAre());
  EXPECT_FALSE(FavoritesStore("", ".pfj").Save("fair", "", sheet_.settings));
  EXPECT_TRUE(Save(longest, std::string(255, 'c')));
  EXPECT_EQ(Load(longest)->comment, std::string(255, 'c'));
}

TEST_F(FavoritesStoreTest, WhatCannotBeReadWholeOrReplacedStays) {
  const std::string huge = "1\n2\n" + std::string(1 << 20, 'x');
  folder_.Write("huge.pfj", huge);
  std::filesystem::create_directories(folder_.Path("taken.pfj/inside"));
  EXPECT_FALSE(Save("taken"));
  EXPECT_EQ(store_.Count(), 0U);
  List();
  for (const char* name : {"huge", "taken"}) {
    EXPECT_FALSE(Save(name)) << name;
  }
  EXPECT_THAT(Names(), ElementsAre("huge", "taken"));
  EXPECT_EQ(folder_.Read("huge.pfj"), huge);
  EXPECT_THAT(Files(), ::testing::UnorderedElementsAre("huge.pfj", "taken.pfj"));

  // Where no file can be made beside the favourite, it is written in its place.
  folder_.Write("fair.pfj", "5\n6\n7\nComment=old\n\n");
  std::filesystem::create_directory(folder_.Path("fair.pfj.tmp"));
  List();
  EXPECT_TRUE(Save("fair", "new"));
  EXPECT_THAT(folder_.Read("fair.pfj"), ::testing::StartsWith("5\n6\n7\nComment=new\n"));
}

}  // namespace
}  // namespace zn
