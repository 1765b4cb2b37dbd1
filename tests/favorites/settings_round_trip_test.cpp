// What the user selected comes back from a favourite, for every setting that one carries.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "favorites/favorite_file.h"
#include "favorites/sheet_settings.h"
#include "keywords/keyword_table.h"
#include "tests/favorites/settings_test_sheet.h"
#include "tests/support/temp_folder.h"

namespace zn {
namespace {

constexpr std::uint32_t kCodeList = 0;  // as many options as the code list has entries

// Selections that a page or the tree offers for a keyword.
struct Offer {
  KeywordId id;
  std::uint32_t first;
  std::uint32_t last;
};

// clang-format off
const std::vector<Offer> kPageOffers = {
    // job page
    {KW_COLORMODEL, 0, kCodeList}, {KW_PRINTERMODE, 0, kCodeList}, {KW_SPOOLOPTION, 0, kCodeList},
    // basic page and custom paper size
    {KW_PAGESIZE, 0, test::kForms.size() - 1}, {KW_ORIENTATION, 0, 2},
    {KW_OUTPUTPAPERSIZE, 0, kCodeList}, {KW_PAGEFITSIZE, 0, kCodeList},
    {KW_PAGEPRINTONCENTER, 0, 1}, {KW_COPIES, 1, 9999}, {KW_DUPLEX, 0, 2}, {KW_NUP, 0, 6},
    {KW_NUPBORDER, 0, 1}, {KW_CUSTOMPAPERWIDTH, 25400, 660400},
    {KW_CUSTOMPAPERHEIGHT, 25400, 660400}, {KW_CUSTOMPAPERDIRECTION, 0, 3},
    // tray and output page, media type dialogs
    {KW_SOURCE, 0, 6}, {KW_OUTPUTTRAY, 0, kCodeList}, {KW_JOG, 0, kCodeList}, {KW_COLLATE, 0, 1},
    {KW_PAGEORDER, 0, 1}, {KW_STAPLE, 0, 21}, {KW_PUNCH, 0, 4}, {KW_PUNCH, 13, 13},
    {KW_PUNCHHOLES, 0, 2}, {KW_AUTOTRAYSETTINGTOBYPASS, 0, 1}, {KW_MEDIATYPEBYPASS, 0, 34},
    {KW_MEDIATYPEWEIGHTBYPASS, 0, 8}, {KW_PAPERCOLORBYPASS, 0, 17}, {KW_MANUALFEEDDUPLEX, 0, 4},
    {KW_ZNMEDIATYPE, 0, 34}, {KW_MEDIATYPEWEIGHT, 0, 8}, {KW_PAPERCOLOR, 0, 17},
    // what a question about forbidden combinations can set to its default
    {KW_BOOKLETFINISHING, 0, 2},
    // watermark page
    {KW_WATERMARK, 0, 1}, {KW_WMSELECTION, 1, 100}, {KW_WMORDER, 0, 2}, {KW_WMPOSITION, 0, 4},
    // tree
    {KW_RESOLUTION, 0, 1}, {KW_ICMMETHOD, 0, 3}, {KW_ICMINTENT, 0, 3}, {KW_SCALE, 1, 1000},
    {KW_TTOPTION, 0, 1}, {KW_PSOUTPUTOPTION, 0, 3}, {KW_TRUETYPEFONTDOWNLOAD, 0, 3},
    {KW_PSLANGUAGELEVEL, 1, 3}, {KW_PSSENDERRORHANDLER, 0, 1}, {KW_MIRRORPRINT, 0, 1},
};
// clang-format on

// All of a range up to `most` selections; both ends and some in between of a longer one.
std::vector<std::uint32_t> SelectionsOf(const Offer& offer, std::uint32_t most = 120) {
  const std::uint32_t last =
      offer.last == kCodeList ? static_cast<std::uint32_t>(GetOptionCodeList(offer.id).size() - 1)
                              : offer.last;
  const std::uint32_t step = last - offer.first < most ? 1 : (last - offer.first) / 7;
  std::vector<std::uint32_t> selections;
  for (std::uint32_t selection = offer.first; selection < last; selection += step) {
    selections.push_back(selection);
  }
  selections.push_back(last);
  return selections;
}

class SettingsRoundTripTest : public ::testing::Test {
 protected:
  // Saves the sheet's settings as a favourite, restores the defaults, and loads the favourite.
  void SaveRestoreLoad() {
    const std::string path = folder_.Path("favorite.pfj");
    std::filesystem::remove(path);
    SettingSource saved;
    TakeCurrent(saved, sheet_.settings);
    CFavoriteFileManager files;
    ASSERT_TRUE(files.SaveFavoriteFromPath(saved, path.c_str()));
    ApplyDefaults(sheet_.settings);
    ASSERT_FALSE(DiffersFromDefaults(sheet_.settings));
    SettingSource loaded;
    TakeDefaults(loaded, sheet_.settings);
    loaded.pageSizeName.clear();
    ASSERT_TRUE(files.LoadFavoriteFromPath(loaded, path.c_str()));
    Apply(loaded, Reach::Favorite, sheet_.settings);
    EXPECT_FALSE(Differs(loaded, Reach::Favorite, sheet_.settings));
  }

  void ExpectBack(const Offer& offer, const std::vector<std::uint32_t>& selections) {
    for (const std::uint32_t selection : selections) {
      ApplyDefaults(sheet_.settings);
      sheet_[offer.id] = selection;
      SaveRestoreLoad();
      EXPECT_EQ(sheet_[offer.id], selection) << GetKeywordName(offer.id);
    }
    ApplyDefaults(sheet_.settings);
  }

  test::TestSheet sheet_;
  TempFolder folder_;
};

TEST_F(SettingsRoundTripTest, EveryOptionOfThePagesAndTheTree) {
  for (const Offer& offer : kPageOffers) {
    ExpectBack(offer, SelectionsOf(offer));
  }
  for (const Offer& offer : kPageOffers) {
    sheet_.Default(offer.id) = SelectionsOf(offer).back();
  }
  for (const Offer& offer : kPageOffers) {  // the first one is no longer the default
    ExpectBack(offer, {SelectionsOf(offer).front()});
  }
}

TEST_F(SettingsRoundTripTest, EveryOtherKeyword) {
  for (const SettingRow& row : SettingRows()) {
    if (row.id < KW_MAX && row.reach == Reach::Favorite && row.IsMapped()) {
      const Offer offer = {row.id, row.low, row.high};
      ExpectBack(offer, SelectionsOf(offer, 12));
    }
  }
}

TEST_F(SettingsRoundTripTest, EveryNumberOfTheSettingsBlock) {
  for (const SettingRow& row : SettingRows()) {
    if (row.id < KW_MAX || !row.IsMapped()) {
      continue;
    }
    const DevModeField& field = *FindPrivateField(row.id);
    const bool range = field.repair == Repair::Range;
    const std::uint32_t highest = field.repair == Repair::Flag ? 1 : range ? field.high : 123456;
    for (const std::uint32_t value : {range ? field.low : 0, highest}) {
      sheet_.SetNumber(row.id, value);
      SaveRestoreLoad();
      EXPECT_EQ(sheet_.Number(row.id), value) << row.id;
    }
    sheet_.SetNumber(row.id, field.defaultValue);
  }
}

TEST_F(SettingsRoundTripTest, AllSettingsAtOnce) {
  for (const Offer& offer : kPageOffers) {
    sheet_[offer.id] = SelectionsOf(offer).back();
  }
  sheet_.Block().SetText(FindDevModeField(952)->offset, "memo \x83\x5C of 64");
  SaveRestoreLoad();
  for (const Offer& offer : kPageOffers) {
    if (offer.id != KW_PUNCH || offer.first == 13) {
      EXPECT_EQ(sheet_[offer.id], SelectionsOf(offer).back()) << GetKeywordName(offer.id);
    }
  }
  EXPECT_EQ(sheet_.Block().GetText(952), "memo \x83\x5C of 64");
}

}  // namespace
}  // namespace zn
