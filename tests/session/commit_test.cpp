// What a commit leaves in the core driver's items, its private part and the settings block.
#include <cstring>
#include <memory>
#include <string>

#include "keywords/keyword_table.h"
#include "session/job_values.h"
#include "session/session.h"
#include "sheet_fixture.h"
#include "test_queue.h"

namespace zn::test {
namespace {

class CommitTest : public SheetTest {
 protected:
  static void SetUpTestSuite() { queue_ = std::make_unique<TestQueue>(); }
  static void TearDownTestSuite() { queue_.reset(); }

  void Open() {
    for (KeywordId id = 0; id < KW_COPIES; ++id) {
      if (id != KW_COLLATE) {
        items_.AddKeyword(id, 0);
      }
    }
    // Keyword items stand last.
    items_.AddStandard(DMPUB_COPIES_COLLATE, 1);
    std::rotate(items_.All().begin(), items_.All().end() - 1, items_.All().end());
    queue_->StoreDevMode(devMode_.Bytes());
    sheet_->hPrinter = queue_->Handle();
    TakeItems();
    Session().HidePrinterSetting();
    ASSERT_TRUE(sheet_->settingsRead);
  }

  void SelectCode(KeywordId id, std::uint32_t code) {
    std::uint32_t index = 0;
    ASSERT_TRUE(GetOptionIndex(id, code, index)) << id;
    sheet_->SetCurrent(id, index);
  }

  static inline std::unique_ptr<TestQueue> queue_;
};

// Opening a sheet and closing it with OK leaves the job as it was.
TEST_F(CommitTest, UnchangedSheetChangesNothing) {
  devMode_.driver = kUsedDriverPart;
  for (const DevModeField& field : DevModeFields()) {
    if (field.kind == FieldKind::Text) {
      devMode_.block.SetText(field.offset, std::string(field.width - 1u, 't'));
    } else if (field.kind == FieldKind::Number && field.repair == Repair::Range) {
      devMode_.block.SetDWord(field.offset, field.high);
    }
  }
  for (const std::size_t flag :
       {devmode::kBookletSizeFlag, devmode::kRepeatSizeFlag, devmode::kImpositionSizeFlag}) {
    devMode_.block.SetDWord(flag, 0);  // follow from the selections
  }
  const auto before = std::make_unique<StoredDevMode>(devMode_);
  Open();
  Session().CommitSession();
  EXPECT_TRUE(driver_.updates.empty());
  for (const DevModeField& field : DevModeFields()) {
    EXPECT_EQ(std::memcmp(&devMode_.block.Bytes()[field.offset],
                          &before->block.Bytes()[field.offset], field.width),
              0)
        << "offset " << field.offset;
  }
  EXPECT_EQ(std::memcmp(&devMode_.driver, &before->driver, sizeof devMode_.driver), 0);
}

TEST_F(CommitTest, DerivedValues) {
  Open();
  SelectCode(KW_BOOKLETPAPERSIZE, 20);
  SelectCode(KW_REPEATPRINTPAPERSIZE, 62);
  SelectCode(KW_CMYKSIMULATION, 119);
  SelectCode(KW_RGBCOLORCORRECT, 11);
  SelectCode(KW_CLEARPROCESSREGISTERDPATTERN, 100);
  sheet_->SetCurrent(KW_WMSELECTION, 9);
  sheet_->SetCurrent(KW_SAVETIFF, 1);
  for (const auto& [offset, value] :
       {std::pair{20u, 1u}, {1340, 1}, {1360, 0}, {9232, 100}, {9236, 1}, {9248, 9}, {9320, 100}}) {
    Session().CommitSession();
    EXPECT_EQ(devMode_.block.GetDWord(offset), value) << "offset " << offset;
  }
  EXPECT_EQ(sheet_->items[KW_WMSELECTION]->Sel, 0) << "a number of the device's own";
  EXPECT_EQ(driver_.updates.size(), 6u) << "told once";
  SelectCode(KW_CMYKSIMULATION, 179);
  sheet_->SetCurrent(KW_RGBCOLORCORRECT, 5000);  // no such option
  Session().CommitSession();
  EXPECT_EQ(devMode_.block.GetDWord(devmode::kCustomCmyk), 0u);
  EXPECT_EQ(devMode_.block.GetDWord(devmode::kCustomRgb), 0u);
}

TEST_F(CommitTest, JobTextsAndPrivateValuesAreWrittenBack) {
  Open();
  SetDeviceProfile(*sheet_, DeviceProfileOf(*sheet_));
  Session().CommitSession();
  EXPECT_EQ(devMode_.block.GetText(devmode::kDeviceProfile), "") << "the fallback is not stored";
  SetDeviceProfile(*sheet_, "ZN5050");
  sheet_->jobValues.SetText(devmode::kComment, "first\r\nsecond");
  sheet_->jobValues.SetDWord(devmode::kTiffDpi, 300);
  sheet_->jobValues.SetDWord(32, 5);  // 4304 is written by its setter only
  Session().DRVSetDWord(4352, 120);
  Session().CommitSession();
  EXPECT_EQ(devMode_.block.GetText(devmode::kDeviceProfile), "ZN5050");
  EXPECT_EQ(devMode_.block.GetText(devmode::kComment), "first\r\nsecond");
  EXPECT_EQ(devMode_.block.GetTiffDPI(), 300u);
  EXPECT_EQ(devMode_.block.GetDWord(32), 1u);
  EXPECT_EQ(devMode_.block.GetDWord(2964), 120u) << "no older value is put back";
  SetDeviceProfile(*sheet_, queue_->DriverName());
  Session().CommitSession();
  EXPECT_EQ(devMode_.block.GetText(devmode::kDeviceProfile), queue_->DriverName());
}

TEST_F(CommitTest, CoreDriversPart) {
  items_.AddStandard(DMPUB_NUP, 2);
  devMode_.driver = kUsedDriverPart;
  devMode_.driver.flags = 0xF4;
  devMode_.driver.customPaperHeight = 0;  // never set
  Open();
  EXPECT_EQ(sheet_->Current(KW_PSSENDERRORHANDLER), 0u);
  EXPECT_EQ(sheet_->Current(KW_MIRRORPRINT), 1u);
  EXPECT_EQ(sheet_->Current(KW_NUPBORDER), 0u) << "refused";
  EXPECT_EQ(sheet_->Current(KW_CUSTOMPAPERWIDTH), 100'000u);
  EXPECT_EQ(sheet_->Current(KW_CUSTOMPAPERHEIGHT), sheet_->Default(KW_CUSTOMPAPERHEIGHT));
  EXPECT_EQ(sheet_->Current(KW_PSLANGUAGELEVEL), 2u);

  sheet_->SetCurrent(KW_PSSENDERRORHANDLER, 1);
  sheet_->SetCurrent(KW_MIRRORPRINT, 0);
  sheet_->SetCurrent(KW_NUPBORDER, 1);
  sheet_->SetCurrent(KW_CUSTOMPAPERWIDTH, 330'000);
  Session().CommitSession();
  EXPECT_EQ(devMode_.driver.flags, 0xF2u);
  EXPECT_EQ(devMode_.driver.noBorder, 0u);
  EXPECT_EQ(devMode_.driver.customPaperWidth, 330'000u);

  devMode_.open.dmDriverVersion = 0x0501;  // has the flags only
  Session().HidePrinterSetting();
  EXPECT_EQ(sheet_->Current(KW_PSSENDERRORHANDLER), 1u);
  EXPECT_EQ(sheet_->Current(KW_NUPBORDER), 1u);
  EXPECT_EQ(sheet_->Current(KW_PSLANGUAGELEVEL), 3u);
  Session().CommitSession();
  EXPECT_EQ(devMode_.driver.psLanguageLevel, 2u);

  sheet_->SetCurrent(KW_MIRRORPRINT, 1);
  devMode_.open.dmSize += 8;  // the block would begin inside the part
  Session().CommitSession();
  EXPECT_TRUE(devMode_.block.IsCurrent());
  EXPECT_EQ(devMode_.driver.flags, 0xF2u);
  sheet_->pPublicDM = nullptr;
  sheet_->pDevMode = nullptr;
  Session().CommitSession();
  EXPECT_EQ(Session().SavePrinterDefault(), -1);
}

TEST_F(CommitTest, PrinterDefaultIsTheFullDevMode) {
  Open();
  sheet_->jobValues.SetText(devmode::kAccountId, "a13");
  Session().CommitSession();
  EXPECT_EQ(Session().SavePrinterDefault(), 0);
  Session().HidePrinterSetting();  // takes the account from there
  EXPECT_EQ(sheet_->jobValues.GetText(devmode::kAccountId), "a13");

  CDevMode elsewhere = devMode_.block;
  sheet_->pDevMode = &elsewhere;
  EXPECT_EQ(Session().SavePrinterDefault(), -1) << "the DEVMODE does not carry the block";
  sheet_->pDevMode = &devMode_.block;
  sheet_->hPrinter = nullptr;
  EXPECT_EQ(Session().SavePrinterDefault(), -1);
}

}  // namespace
}  // namespace zn::test
