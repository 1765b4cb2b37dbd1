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
  void List() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
      names.push_back(entry.path().filename().string());
    }
    store_.SetFiles(names);
  }
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
  EXPECT_FALSE(store_.Find("standard"));
}

TEST_F(FavoritesStoreTest, LoadTakesWhatTheFileHoldsAndDefaultsForTheRest) {
  folder_.Write(
      "fair.pfj",
      "5\n6\n7\nComment=for the fair\nOUT_STPL=3\t\tEXT_NUP=2\t\tCL_CMODE=99\t\tNEW=1\t\t\n"
      "PageSize=A3\n");
  List();
  sheet_.Default(KW_BRIGHTNESS) = 5;
  sheet_[KW_JOG] = 2;  // current selections are no defaults
  const SettingSource* const favorite = Load("fair");
  ASSERT_NE(favorite, nullptr);
  EXPECT_EQ(favorite->name, "fair");
  EXPECT_EQ(favorite->folder, folder_.Path());
  EXPECT_EQ(favorite->comment, "for the fair");
  EXPECT_EQ(favorite->pageSizeName, "A3");
  EXPECT_EQ(favorite->number1, 5);
  EXPECT_EQ(Apply(*favorite, Reach::Favorite, sheet_.settings), PaperMatch::ByName);
  EXPECT_EQ(sheet_[KW_STAPLE], 3U);
  EXPECT_EQ(sheet_[KW_NUP], 2U);
  EXPECT_EQ(sheet_[KW_BRIGHTNESS], 5U);
  EXPECT_EQ(sheet_[KW_JOG], 0U);
  EXPECT_EQ(sheet_[KW_COLORMODEL], 0U);  // 99 is no colour mode
  EXPECT_EQ(sheet_[KW_PAGESIZE], 2U);
}

TEST_F(FavoritesStoreTest, FileThatNamesNoPaperTakesItsCodeOrTheSheets) {
  folder_.Write("old.pfj", "1\n2\nEXT_PGSIZE=53\t\t\n");
  folder_.Write("bare.pfj", "1\n2\nOUT_STPL=1\t\t\n");
  List();
  EXPECT_EQ(Apply(*Load("old"), Reach::Favorite, sheet_.settings), PaperMatch::ByCode);
  EXPECT_EQ(sheet_[KW_PAGESIZE], 1U);
  sheet_[KW_PAGESIZE] = 4;
  Apply(*Load("bare"), Reach::Favorite, sheet_.settings);
  EXPECT_EQ(sheet_[KW_PAGESIZE], 4U);
}

TEST_F(FavoritesStoreTest, UnreadableFileYieldsNothingUntilItIsSavedOver) {
  folder_.Write("good.pfj", "1\n2\n");
  folder_.Write("bad.pfj", "no second line");
  List();
  ASSERT_NE(Load("good"), nullptr);
  EXPECT_EQ(Load("bad"), nullptr);
  std::filesystem::remove(folder_.Path("good.pfj"));
  EXPECT_EQ(Load("good"), nullptr);
  ASSERT_TRUE(Save("bad", "whole"));
  List();
  EXPECT_EQ(Load("bad")->comment, "whole");
}

TEST_F(FavoritesStoreTest, SavesANewFavourite) {
  folder_.Write("b.pfj", "1\n2\n");
  List();
  sheet_[KW_STAPLE] = 4;
  sheet_[KW_PAGESIZE] = 3;
  ASSERT_TRUE(Save("a", "two\r\nlines"));
  EXPECT_THAT(Names(), ElementsAre("a", "b"));
  ApplyDefaults(sheet_.settings);
  List();
  const SettingSource* const favorite = Load("a");
  ASSERT_NE(favorite, nullptr);
  EXPECT_EQ(favorite->comment, "two lines");
  EXPECT_EQ(favorite->pageSizeName, "B5");
  EXPECT_TRUE(Differs(*favorite, Reach::Favorite, sheet_.settings));
  Apply(*favorite, Reach::Favorite, sheet_.settings);
  EXPECT_EQ(sheet_[KW_STAPLE], 4U);
  EXPECT_EQ(sheet_[KW_PAGESIZE], 3U);
}

TEST_F(FavoritesStoreTest, OverwritingKeepsTheHeaderAndWhatIsUnknown) {
  folder_.Write("fair.pfj",
                "5\n6\n7\nComment=old\nNEWER=9\t\tOUT_STPL=3\t\tST_NAME=paper\t\t\nPageSize=A4\n");
  List();
  sheet_[KW_STAPLE] = 0;
  ASSERT_TRUE(Save("fair", "new"));
  EXPECT_THAT(Names(), ElementsAre("fair"));
  const std::string file = folder_.Read("fair.pfj");
  EXPECT_TRUE(file.starts_with("5\n6\n7\nComment=new\nNEWER=9\t\tOUT_STPL=0\t\tST_NAME=paper\t\t"))
      << file;
  // What was loaded before must not be what is loaded now.
  EXPECT_FALSE(Differs(*Load("fair"), Reach::Favorite, sheet_.settings));
}

TEST_F(FavoritesStoreTest, RefusesWhatTheFormatCannotHold) {
  EXPECT_FALSE(Save(std::string(28, 'n')));
  EXPECT_FALSE(Save(""));
  EXPECT_FALSE(Save("standard"));
  EXPECT_FALSE(Save("fair", std::string(256, 'c')));
  EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
  EXPECT_FALSE(FavoritesStore("", ".pfj").Save("fair", "", sheet_.settings));
  EXPECT_TRUE(Save(std::string(27, 'n'), std::string(255, 'c')));
  EXPECT_EQ(Load(std::string(27, 'n'))->comment, std::string(255, 'c'));
}

TEST_F(FavoritesStoreTest, FailedSaveIsToldAndAddsNothing) {
  std::filesystem::create_directory(folder_.Path("taken.pfj"));  // no file can be opened there
  EXPECT_FALSE(Save("taken"));
  EXPECT_EQ(store_.Count(), 0U);
  std::filesystem::remove_all(folder_.Path());
  EXPECT_FALSE(Save("fair"));
  EXPECT_EQ(store_.Count(), 0U);
}

TEST_F(FavoritesStoreTest, RemovingMovesTheOthersUp) {
  for (const char* name : {"a", "b", "c"}) {
    ASSERT_TRUE(Save(name, name));
  }
  ASSERT_NE(Load("b"), nullptr);
  store_.Remove(1);
  EXPECT_THAT(Names(), ElementsAre("a", "c"));
  EXPECT_EQ(store_.Load(1, sheet_.settings)->comment, "c");
}

}  // namespace
}  // namespace zn
