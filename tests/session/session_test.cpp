// Reading and writing of single ids.
#include "session/session.h"

#include <set>

#include "keywords/keyword_table.h"
#include "session/binding.h"
#include "sheet_fixture.h"

namespace zn::test {
namespace {

struct SessionTest : SheetTest {
  void Open() {
    TakeItems();
    BindKeywords(*sheet_);
    sheet_->jobValues = devMode_.block;
  }
};

TEST_F(SessionTest, OnlyAnotherValueIsToldToTheCoreDriver) {
  OPTITEM& staple = items_.AddKeyword(KW_STAPLE, 3);
  Open();
  EXPECT_EQ(Session().DRVSetDWord(KW_STAPLE, 3), 1);
  EXPECT_TRUE(driver_.updates.empty());
  EXPECT_EQ(staple.Flags & OPTIF_CHANGED, 0u);
  EXPECT_FALSE(sheet_->settingsChanged);

  EXPECT_EQ(Session().DRVSetDWord(KW_STAPLE, 5), 1);
  EXPECT_EQ(staple.Sel, 5);
  EXPECT_NE(staple.Flags & OPTIF_CHANGED, 0u);
  EXPECT_TRUE(sheet_->settingsChanged);
  ASSERT_EQ(driver_.updates.size(), 1u);
  EXPECT_EQ(driver_.updates[0].item, &staple);
  EXPECT_EQ(driver_.updates[0].previous, 3u);
  EXPECT_EQ(driver_.updates[0].mode, OEMCUIP_DOCPROP);
  EXPECT_EQ(driver_.updates[0].context, &driverObject_);

  EXPECT_EQ(Session().DRVSetDWord(KW_PUNCH, 1), 0) << "no item";
  driver_.answer = E_FAIL;
  EXPECT_EQ(Session().DRVSetDWord(KW_STAPLE, 2), 0);
  sheet_->pOEMHelp = nullptr;
  EXPECT_EQ(Session().DRVSetDWord(KW_STAPLE, 4), 0);
  EXPECT_EQ(staple.Sel, 4) << "set without helper interface, too";
  EXPECT_EQ(driver_.updates.size(), 2u);
}

TEST_F(SessionTest, DeviceSuppliedListsStayZeroInTheItem) {
  const std::set<KeywordId> fitted = {32,  35,  36,  67,  68,  69,  70,  73,  83,
                                      87,  90,  94,  96,  107, 127, 135, 143, 145,
                                      151, 163, 173, 178, 185, 186, 188, 216, 237};
  for (KeywordId id = 0; id < KW_MAX; ++id) {
    items_.AddKeyword(id, 0);
  }
  Open();
  for (KeywordId id = 0; id < KW_MAX; ++id) {
    if (id != KW_COLLATE) {
      EXPECT_EQ(Session().DRVSetDWord(id, 5), 1);
      EXPECT_EQ(Session().DRVGetDWord(id, false), fitted.contains(id) ? 0u : 5u) << "id " << id;
      EXPECT_EQ(sheet_->options[id].lastWritten, 5u) << "id " << id;
    }
  }
  // Custom colours, too.
  for (const auto& [id, firstCode] :
       {std::pair{KW_CMYKSIMULATION, 20u}, {KW_RGBCOLORCORRECT, 11u}}) {
    std::uint32_t first = 0;
    ASSERT_TRUE(GetOptionIndex(id, firstCode, first));
    for (const auto& [value, told] :
         {std::pair{first - 1, first - 1}, {first, 0u}, {first + 99, 0u}, {1000u, 0u}}) {
      Session().DRVSetDWord(id, value);
      EXPECT_EQ(Session().DRVGetDWord(id, false), told) << "id " << id << " value " << value;
    }
  }
}

TEST_F(SessionTest, CollationIsTheCheckBoxAndReadsInverted) {
  OPTITEM& copies = items_.AddStandard(DMPUB_COPIES_COLLATE, 2, OPTIF_ECB_CHECKED);
  Open();
  EXPECT_EQ(Session().DRVGetDWord(KW_COLLATE, false), 0u);
  EXPECT_EQ(Session().DRVSetDWord(KW_COLLATE, 0), 1);
  EXPECT_EQ(copies.Flags & OPTIF_ECB_CHECKED, 0u);
  EXPECT_EQ(Session().DRVGetDWord(KW_COLLATE, false), 1u);
  EXPECT_EQ(Session().DRVSetDWord(KW_COLLATE, 1), 1);
  EXPECT_NE(copies.Flags & OPTIF_ECB_CHECKED, 0u);
  EXPECT_EQ(copies.Sel, 2) << "the number of copies";
}

TEST_F(SessionTest, ReadsDefaultItemAndAbsence) {
  items_.AddKeyword(KW_STAPLE, 3, 1).Sel = 4;
  Open();
  sheet_->SetCurrent(KW_STAPLE, 9);
  EXPECT_EQ(Session().DRVGetDWord(KW_STAPLE, false), 4u) << "the item, not the selection";
  EXPECT_EQ(Session().DRVGetDWord(KW_STAPLE, true), 1u);
  EXPECT_EQ(Session().DRVGetDWord(KW_PUNCH, false), 0u);
  for (const std::uint32_t unknown : {266u, 4300u, 4317u, 4339u, 4349u, 4356u, 5823u}) {
    EXPECT_EQ(Session().DRVGetDWord(unknown, false), 0u) << unknown;
    EXPECT_EQ(Session().DRVSetDWord(unknown, 1), 0) << unknown;
  }
  EXPECT_EQ(Session().DRVGetDWord(5824, false), 0xFFFFFFFFu);
  EXPECT_EQ(Session().DRVGetDWord(6000, true), 0xFFFFFFFFu);
  EXPECT_EQ(Session().DRVGetKeywordNumOptions(KW_STAPLE), 2u);
  sheet_->items[KW_STAPLE]->pOptType = nullptr;
  for (const std::uint32_t none : {std::uint32_t{KW_STAPLE}, std::uint32_t{KW_JOG}, 266u}) {
    EXPECT_EQ(Session().DRVGetKeywordNumOptions(none), 0u) << none;
  }
}

TEST_F(SessionTest, NoSheetIsNoCrash) {
  CSession none(nullptr);
  none.HidePrinterSetting();
  none.CommitSession();
  EXPECT_EQ(none.DRVGetDWord(KW_STAPLE, false), 0u);
  EXPECT_EQ(none.DRVSetDWord(KW_STAPLE, 1), 0);
  EXPECT_EQ(none.DRVGetKeywordNumOptions(KW_STAPLE), 0u);
  EXPECT_EQ(none.SavePrinterDefault(), -1);
}

TEST_F(SessionTest, PrivateIds) {
  constexpr std::uint32_t kHidden = 0xDEAD;  // cannot be read
  struct Row {
    std::uint32_t first, last;
    int bits;
    std::uint32_t defaultValue;
    int answer;
  };
  constexpr Row kRows[] = {
      {4302, 4302, 16, 600, 1},   {4306, 4311, 32, kHidden, 1}, {4312, 4312, 16, 1, 0},
      {4315, 4315, 32, 0, 0},     {4318, 4325, 32, 0, 1},       {4330, 4330, 32, 42000, 1},
      {4342, 4344, 16, 20200, 1}, {4353, 4353, 32, kHidden, 1}, {4354, 4355, 32, kHidden, 0}};
  Open();
  for (const Row& row : kRows) {
    for (std::uint32_t id = row.first; id <= row.last; ++id) {
      SCOPED_TRACE(id);
      const std::uint32_t value = 0x12340000u + id;
      const bool isHidden = row.defaultValue == kHidden;
      EXPECT_EQ(Session().DRVGetDWord(id, true), isHidden ? 0 : row.defaultValue);
      EXPECT_EQ(Session().DRVSetDWord(id, value), row.answer);
      const std::uint32_t kept = row.bits == 16 ? value & 0xFFFF : value;
      EXPECT_EQ(Session().DRVGetDWord(id, false), isHidden ? 0 : kept);
      const DevModeField* const field = FindPrivateField(id);
      ASSERT_NE(field, nullptr);
      EXPECT_EQ(devMode_.block.GetDWord(field->offset), kept);
      EXPECT_EQ(sheet_->jobValues.GetDWord(field->offset), kept);
    }
  }
  EXPECT_TRUE(driver_.updates.empty());
}

TEST_F(SessionTest, WithoutABlockTheSheetsCopyServes) {
  Open();
  devMode_.block.SetDWord(devmode::kVersion, 1);
  devMode_.block.SetDWord(devmode::kTiffDpi, 77);
  EXPECT_EQ(Session().DRVGetDWord(4302, false), 600u);
  EXPECT_EQ(Session().DRVSetDWord(4302, 300), 1);
  EXPECT_EQ(Session().DRVGetDWord(4302, false), 300u);
  EXPECT_EQ(devMode_.block.GetTiffDPI(), 77u) << "another version's block stays as it is";
  sheet_->pDevMode = nullptr;
  EXPECT_EQ(Session().DRVGetDWord(4302, false), 300u);
}

}  // namespace
}  // namespace zn::test
