// The favourites of a sheet in the shared folder, and the print option setting dialog on the
// sheet's settings. The companion is the stand-in beside the test program.
#include "favorites/sheet_favorites.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "fake_driver_path.h"
#include "favorites/favorite_folders.h"
#include "pages/print_option_setting.h"
#include "platform/resources.h"
#include "tests/session/sheet_fixture.h"
#include "tests/support/temp_folder.h"

namespace zn::test {
namespace {

using Choice = SheetFavorites::Choice;

std::string g_documents;  // where the shared documents lie

BOOL WINAPI FakeSpecialFolder(HWND, LPSTR path, int, BOOL) {
  std::strcpy(path, g_documents.c_str());
  return !g_documents.empty();
}

class SheetFavoritesTest : public SheetTest {
 protected:
  SheetFavoritesTest() {
    g_documents = temp_.Path();
    FakeDriverPath::path = BesideProgram("driver.drv");
    SetModuleInstance(::GetModuleHandleA(nullptr));
    sheet_->jobValues.SetDefaults();
    for (const KeywordId id : {KW_COPIES, KW_WMSELECTION, KW_FORMNO}) {
      sheet_->options[id] = {1, 1, 1};
    }
    sheet_->options[KW_SCALE] = {100, 100, 100};
    sheet_->options[KW_PSLANGUAGELEVEL] = {3, 3, 3};
  }
  ~SheetFavoritesTest() override {
    ::SetEnvironmentVariableA("ZN_COMPANION_ANSWER", nullptr);
    SetModuleInstance(nullptr);
  }

  SheetFavorites& Favorites() { return SheetFavorites::Of(*sheet_); }
  Choice Find(const char* name) { return Favorites().List().Find(name); }
  std::uint32_t& operator[](KeywordId id) { return sheet_->options[id].currentSelection; }
  static std::string PathOf(const char* name) {
    return GetFavoritePath(GetSharedFolder(SharedFolder::Favorite), name);
  }

  TempFolder temp_;
  ImportPatch specialFolder_{::GetModuleHandleA(nullptr), "SHGetSpecialFolderPathA",
                             &FakeSpecialFolder};
  FakeDriverPath driverPath_;
};

TEST_F(SheetFavoritesTest, SavesSelectsAndDeletesInTheSharedFolder) {
  (*this)[KW_STAPLE] = 10;
  ASSERT_TRUE(Favorites().Save("\x83\x5C fair", "comment"));
  EXPECT_TRUE(FavoriteFileExists(PathOf("\x83\x5C fair").c_str()));
  EXPECT_TRUE(Favorites().DiffersFrom(std::nullopt));
  EXPECT_FALSE(Favorites().DiffersFrom(Choice(0)));

  EXPECT_TRUE(Favorites().Select(std::nullopt));
  EXPECT_EQ((*this)[KW_STAPLE], 0U);
  EXPECT_TRUE(Favorites().DiffersFrom(Choice(0)));
  Favorites().Refresh();
  EXPECT_TRUE(Favorites().Select(Find("\x83\x5C fair")));
  EXPECT_EQ((*this)[KW_STAPLE], 10U);

  EXPECT_TRUE(Favorites().Delete(0));
  EXPECT_EQ(Favorites().List().Count(), 0U);
  EXPECT_FALSE(FavoriteFileExists(PathOf("\x83\x5C fair").c_str()));
}

TEST_F(SheetFavoritesTest, MissingFolderOrFileChangesNothing) {
  g_documents.clear();
  EXPECT_FALSE(Favorites().Save("fair", ""));
  g_documents = temp_.Path();
  sheet_->favorites.reset();
  ASSERT_TRUE(Favorites().Save("fair", ""));
  (*this)[KW_STAPLE] = 1;
  Favorites().Refresh();
  ASSERT_TRUE(::DeleteFileA(PathOf("fair").c_str()));
  EXPECT_FALSE(Favorites().Select(Choice(0)));
  EXPECT_FALSE(Favorites().DiffersFrom(Choice(0)));
  EXPECT_FALSE(Favorites().Delete(0));
  EXPECT_EQ((*this)[KW_STAPLE], 1U);
  EXPECT_EQ(Favorites().LoadAll().at(0).name, "fair");
}

TEST_F(SheetFavoritesTest, NameInAnotherCaseIsTheSameFavorite) {
  ASSERT_TRUE(Favorites().Save("Fair", "old"));
  ASSERT_TRUE(Favorites().Save("fair", "new"));
  ASSERT_EQ(Favorites().List().Count(), 1U);
  EXPECT_EQ(Favorites().Load(0)->comment, "new");
  // The list has the spelling that the file system keeps.
  const std::string listed = Favorites().List().Name(0);
  Favorites().Refresh();
  ASSERT_EQ(Favorites().List().Count(), 1U);
  EXPECT_EQ(Favorites().List().Name(0), listed);
}

TEST_F(SheetFavoritesTest, SelectsOnlyWhatTheItemsOffer) {
  OPTTYPE list{};
  list.Type = TVOT_LISTBOX;
  list.Count = 5;
  for (const KeywordId id : {KW_STAPLE, KW_USERCURVEIMAGE}) {
    sheet_->items[id] = &items_.AddKeyword(id, 0);
    sheet_->items[id]->pOptType = &list;
  }
  (*this)[KW_STAPLE] = 9;
  (*this)[KW_USERCURVEIMAGE] = 90;  // the device's list, not the driver's
  ASSERT_TRUE(Favorites().Save("fair", ""));
  EXPECT_TRUE(Favorites().Select(std::nullopt));
  EXPECT_TRUE(Favorites().Select(Choice(0)));
  EXPECT_EQ((*this)[KW_STAPLE], 0U);
  EXPECT_EQ((*this)[KW_USERCURVEIMAGE], 90U);
}

TEST_F(SheetFavoritesTest, DialogChangesWhatItChangedAndNothingElse) {
  (*this)[KW_COLORMODEL] = 0;
  (*this)[KW_PUNCH] = 5;  // its code alone would come back as another selection
  (*this)[KW_STAPLE] = 99;
  sheet_->jobValues.SetText(104, "old comment");
  ::SetEnvironmentVariableA("ZN_COMPANION_ANSWER",
                            "ok;CL_CMODE=0;USR_COMT=new comment;SP_TFDPI=1200;GR_TITLE=banner");
  ASSERT_TRUE(RunPrintOptionSetting(*sheet_, nullptr));
  EXPECT_EQ((*this)[KW_COLORMODEL], 1U);
  EXPECT_EQ((*this)[KW_PUNCH], 5U);
  EXPECT_EQ((*this)[KW_STAPLE], 99U);
  EXPECT_EQ(sheet_->jobValues.GetText(104), "new comment");
  EXPECT_EQ(sheet_->jobValues.GetTiffDPI(), 1200U);
  // What only the record holds is there for the next time.
  EXPECT_EQ(ddb::GetText(Favorites().Current().option.m_Body, ddb::TagNamed("GR_TITLE")), "banner");
  FakeDriverPath::path.clear();
  EXPECT_FALSE(RunPrintOptionSetting(*sheet_, nullptr)) << "there is no companion";
}

}  // namespace
}  // namespace zn::test
