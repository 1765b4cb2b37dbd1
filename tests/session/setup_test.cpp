// Set-up of the session against a real queue, and against stored settings that nobody can trust.
#include <cstring>
#include <memory>
#include <string>

#include "fake_stored.h"
#include "session/keyword_table.h"
#include "session/session.h"
#include "sheet_fixture.h"
#include "test_queue.h"

namespace zn::test {
namespace {

constexpr std::size_t kPrivateSize = sizeof(DriverPrivateDevMode) + kDevModeSize;

class SetupTest : public SheetTest {
 protected:
  static void SetUpTestSuite() { queue_ = std::make_unique<TestQueue>(); }
  static void TearDownTestSuite() { queue_.reset(); }

  SetupTest() {
    sheet_->hPrinter = queue_->Handle();
    stored_.block.SetText(devmode::kJobOwnerName, "stored owner");
    stored_.block.SetText(devmode::kJobOwnerPassword, "secret");
    stored_.block.SetText(devmode::kAccountId, "account");
    stored_.block.SetDWord(devmode::kManagementMethod, 1);
    stored_.block.SetDWord(devmode::kOwnerNameSource, 1);
  }

  void SetUpSession() {
    TakeItems();
    Session().HidePrinterSetting();
  }

  // The stored settings as the spooler answers them: DEVMODEA, driver's part and block.
  [[nodiscard]] std::vector<std::byte> StoredBytes() const {
    DEVMODEA open{};
    open.dmSize = sizeof open;
    open.dmDriverExtra = kPrivateSize;
    std::vector<std::byte> bytes(sizeof open);
    std::memcpy(bytes.data(), &open, sizeof open);
    const auto* const rest = reinterpret_cast<const std::byte*>(&stored_.driver);
    bytes.insert(bytes.end(), rest, rest + kPrivateSize);
    return bytes;
  }

  [[nodiscard]] std::string Owner() const {
    return std::string(sheet_->jobValues.GetText(devmode::kJobOwnerName));
  }

  static std::unique_ptr<TestQueue> queue_;
  FullDevMode stored_;
};

std::unique_ptr<TestQueue> SetupTest::queue_;

TEST_F(SetupTest, TakesUserDataFromTheStoredSettings) {
  queue_->StoreDevMode(stored_.Bytes());
  SetUpSession();
  EXPECT_TRUE(sheet_->settingsRead);
  EXPECT_EQ(Owner(), "stored owner");
  EXPECT_EQ(sheet_->jobValues.GetText(devmode::kJobOwnerPassword), "secret");
  EXPECT_EQ(sheet_->jobValues.GetText(devmode::kAccountId), "account");
  EXPECT_EQ(sheet_->jobValues.GetDWord(devmode::kManagementMethod), 1u);
  EXPECT_TRUE(sheet_->rawOnly) << "the queue lacks the attribute";
}

TEST_F(SetupTest, LogonNameIsUsedOnlyForMethodOneAndSourceZero) {
  char logonName[257] = "";
  DWORD size = sizeof logonName;
  ASSERT_TRUE(::GetUserNameA(logonName, &size));
  struct Row {
    std::uint32_t method, source;
    const char* owner;
  };
  const Row rows[] = {
      {1, 0, logonName}, {1, 1, "stored owner"}, {0, 0, "stored owner"}, {2, 0, "stored owner"}};
  FakeStored fake;
  for (const Row& row : rows) {
    stored_.block.SetDWord(devmode::kManagementMethod, row.method);
    stored_.block.SetDWord(devmode::kOwnerNameSource, row.source);
    fake.user = {FakeStored::Kind::Bytes, StoredBytes()};
    SetUpSession();
    EXPECT_EQ(Owner(), row.owner) << row.method << ", " << row.source;
  }
}

TEST_F(SetupTest, GlobalDefaultServesWhenTheUserHasNone) {
  FakeStored fake;
  fake.user.kind = FakeStored::Kind::NoDevMode;
  fake.global = {FakeStored::Kind::Bytes, StoredBytes()};
  SetUpSession();
  EXPECT_EQ(Owner(), "stored owner");
}

TEST_F(SetupTest, BlockIsFoundByTheDriversSizeOrTheStoredOne) {
  FakeStored fake;
  std::vector<std::byte> bytes = StoredBytes();
  bytes.resize(bytes.size() + 16);  // something behind the block
  const auto full = static_cast<LONG>(bytes.size() - 16);
  reinterpret_cast<DEVMODEA*>(bytes.data())->dmDriverExtra += 16;
  fake.user = {FakeStored::Kind::Bytes, bytes};
  fake.documentSize = full;
  SetUpSession();
  EXPECT_EQ(Owner(), "stored owner");

  fake.user.bytes = StoredBytes();
  for (const LONG other : {full + 1000, full - 1000, LONG{1}}) {
    sheet_->jobValues = {};
    fake.documentSize = other;
    SetUpSession();
    EXPECT_EQ(Owner(), "stored owner") << other;
  }
}

TEST_F(SetupTest, UnusableStoredSettingsEndTheSetUp) {
  items_.AddKeyword(KW_STAPLE, 3);
  devMode_.block.SetText(devmode::kJobOwnerName, "own");
  devMode_.block.SetDWord(devmode::kCustomCmyk, 7);
  devMode_.block.SetDWord(9216, 5);
  const CDevMode before = devMode_.block;
  const auto damaged = [&](auto damage) {
    std::vector<std::byte> bytes = StoredBytes();
    damage(bytes, *reinterpret_cast<DEVMODEA*>(bytes.data()));
    return FakeStored::Answer{FakeStored::Kind::Bytes, bytes};
  };
  using Bytes = std::vector<std::byte>;
  const FakeStored::Answer answers[] = {
      {FakeStored::Kind::Fails, {}},
      {FakeStored::Kind::NoDevMode, {}},
      {FakeStored::Kind::Bytes, Bytes(20)},
      damaged([](Bytes& bytes, DEVMODEA&) { bytes.pop_back(); }),
      damaged([](Bytes& bytes, DEVMODEA&) { bytes.resize(sizeof(DEVMODEA)); }),
      damaged([](Bytes&, DEVMODEA& open) { open.dmDriverExtra += 1; }),
      damaged([](Bytes&, DEVMODEA& open) { open.dmDriverExtra = 0xFFFF; }),
      damaged([](Bytes&, DEVMODEA& open) { open.dmDriverExtra = kDevModeSize - 1; }),
      damaged([](Bytes&, DEVMODEA& open) { open.dmDriverExtra = 0; }),
      damaged([](Bytes&, DEVMODEA& open) { open.dmSize = 0xFFFF; }),
      damaged([](Bytes&, DEVMODEA& open) { open.dmSize = 0; }),
      damaged(
          [](Bytes& bytes, DEVMODEA&) { bytes[bytes.size() - kDevModeSize + 4] ^= std::byte{1}; }),
  };
  for (const FakeStored::Answer& answer : answers) {
    SCOPED_TRACE(&answer - answers);
    FakeStored fake;
    fake.user = answer;
    fake.documentSize = static_cast<LONG>(StoredBytes().size());  // where a whole one has its block
    fake.global.kind = FakeStored::Kind::Fails;
    SetUpSession();
    EXPECT_FALSE(sheet_->settingsRead);
    EXPECT_EQ(sheet_->Current(KW_STAPLE), 3u) << "what was found so far stands";
    EXPECT_EQ(sheet_->Current(KW_CMYKSIMULATION), 0u);
    EXPECT_EQ(Owner(), "own");

    Session().CommitSession();
    EXPECT_TRUE(driver_.updates.empty());
    EXPECT_EQ(std::memcmp(&devMode_.block, &before, sizeof before), 0)
        << "commit must not clear what set-up never read";
  }
}

TEST_F(SetupTest, PrinterThatCannotBeReadStillBinds) {
  items_.AddKeyword(KW_STAPLE, 3);
  sheet_->hPrinter = nullptr;
  SetUpSession();
  EXPECT_EQ(sheet_->Current(KW_STAPLE), 3u);
  EXPECT_FALSE(sheet_->rawOnly);
  EXPECT_FALSE(sheet_->settingsRead);
}

TEST_F(SetupTest, FormNamesAreThePrintersPapers) {
  SetUpSession();
  ASSERT_EQ(GetFormsCount(), 3u);
  const char* name = nullptr;
  std::string names;
  for (std::uint32_t form = 0; form < 3; ++form) {
    ASSERT_EQ(GetFormsInfo(form, &name), 1);
    names.append(name).append(";");
  }
  EXPECT_EQ(names, "A4;A3;B5;");
}

// Two papers, the first with a name that fills its 64 bytes; the second call may fail.
int g_namesAnswer = 2;
int WINAPI FakeDeviceCapabilities(LPCSTR, LPCSTR, WORD, LPSTR names, const DEVMODEA*) {
  if (names == nullptr) {
    return 2;
  }
  std::memset(names, 'p', 64);
  std::memcpy(names + 64, "second", sizeof "second");
  return g_namesAnswer;
}

TEST_F(SetupTest, FormNamesEndWithinTheirPlace) {
  const ImportPatch papers(::GetModuleHandleA(nullptr), "DeviceCapabilitiesA",
                           &FakeDeviceCapabilities);
  g_namesAnswer = 2;
  SetUpSession();
  const char* name = nullptr;
  ASSERT_EQ(GetFormsInfo(0, &name), 1);
  EXPECT_EQ(std::string(name), std::string(63, 'p'));
  ASSERT_EQ(GetFormsInfo(1, &name), 1);
  EXPECT_STREQ(name, "second");

  g_namesAnswer = -1;
  SetUpSession();
  name = "before";
  EXPECT_EQ(GetFormsCount(), 0u);
  EXPECT_EQ(GetFormsInfo(0, &name), 0);
  EXPECT_STREQ(name, "before");
}

TEST_F(SetupTest, JobValuesComeFromTheSheetsBlock) {
  queue_->StoreDevMode(stored_.Bytes());
  devMode_.block.SetDWord(devmode::kJobNameMode, 1);
  devMode_.block.SetText(devmode::kJobName, std::string(256, 'n'));
  devMode_.block.Bytes()[devmode::kJobName + 255] = std::byte{'n'};  // no terminator
  SetUpSession();
  EXPECT_EQ(sheet_->jobNameMode, JobNameMode::Entered);
  EXPECT_EQ(std::string(sheet_->jobName), std::string(255, 'n'));
  EXPECT_EQ(sheet_->deviceProfilePath, queue_->DriverName()) << "no profile is named";
  devMode_.block.SetText(devmode::kDeviceProfile, "other");
  SetUpSession();
  EXPECT_STREQ(sheet_->deviceProfilePath, "other");
}

TEST_F(SetupTest, DevicesOwnChoicesComeFromTheSheetsBlock) {
  queue_->StoreDevMode(stored_.Bytes());
  struct Row {
    std::size_t offset;
    std::uint32_t stored;
    KeywordId id;
    std::uint32_t selection;
  };
  constexpr Row kRows[] = {
      {9216, 11, 67, 11},    {9220, 12, 68, 12},  {9224, 13, 69, 13},   {9228, 14, 70, 14},
      {9232, 1, 2, 15},      {9236, 100, 3, 107}, {9240, 15, 32, 15},   {9244, 500, 35, 500},
      {9248, 1, 127, 1},     {9252, 16, 143, 16}, {9256, 17, 145, 17},  {9260, 18, 73, 18},
      {9264, 19, 83, 19},    {9268, 20, 87, 20},  {9272, 21, 90, 21},   {9276, 22, 94, 22},
      {9280, 23, 96, 23},    {9284, 24, 107, 24}, {9288, 25, 135, 25},  {9292, 26, 188, 26},
      {9296, 499, 151, 499}, {9300, 27, 163, 27}, {9304, 28, 173, 28},  {9308, 29, 178, 29},
      {9312, 101, 186, 101}, {9316, 30, 185, 30}, {9320, 100, 216, 99}, {9324, 31, 237, 31}};
  for (const Row& row : kRows) {
    devMode_.block.SetDWord(row.offset, row.stored);
  }
  SetUpSession();
  for (const Row& row : kRows) {
    EXPECT_EQ(sheet_->Current(row.id), row.selection) << "id " << row.id;
    EXPECT_EQ(sheet_->options[row.id].lastWritten, row.selection) << "id " << row.id;
  }
  EXPECT_EQ(sheet_->Default(KW_FORMNO), 1u);
  EXPECT_EQ(sheet_->Default(KW_WMSELECTION), 1u);
}

TEST_F(SetupTest, CustomColorNumbersOutOfRangeAreNone) {
  queue_->StoreDevMode(stored_.Bytes());
  items_.AddKeyword(KW_CMYKSIMULATION, 3);
  for (const std::uint32_t number : {0u, 101u, 0xFFFFFFFFu}) {
    devMode_.block.SetDWord(devmode::kCustomCmyk, number);
    SetUpSession();
    EXPECT_EQ(sheet_->Current(KW_CMYKSIMULATION), 3u) << number;
  }
}

TEST_F(SetupTest, CoreDriversPartIsRead) {
  queue_->StoreDevMode(stored_.Bytes());
  devMode_.driver = {.flags = 0x4,
                     .noBorder = 0,
                     .psOutputOption = 2,
                     .trueTypeFontDownload = 3,
                     .customPaperWidth = 100'000,
                     .customPaperHeight = 0,
                     .customPaperDirection = 1,
                     .psLanguageLevel = 2,
                     .reserved = 0};
  SetUpSession();
  EXPECT_EQ(sheet_->Current(KW_PSSENDERRORHANDLER), 0u);
  EXPECT_EQ(sheet_->Current(KW_MIRRORPRINT), 1u);
  EXPECT_EQ(sheet_->Current(KW_PSOUTPUTOPTION), 2u);
  EXPECT_EQ(sheet_->Current(KW_TRUETYPEFONTDOWNLOAD), 3u);
  EXPECT_EQ(sheet_->Current(KW_CUSTOMPAPERWIDTH), 100'000u);
  EXPECT_EQ(sheet_->Current(KW_CUSTOMPAPERHEIGHT), sheet_->Default(KW_CUSTOMPAPERHEIGHT));
  EXPECT_EQ(sheet_->Current(KW_CUSTOMPAPERDIRECTION), 1u);
  EXPECT_EQ(sheet_->Current(KW_PSLANGUAGELEVEL), 2u);

  devMode_.open.dmDriverVersion = 0x0501;
  devMode_.driver.flags = 0x2;
  SetUpSession();
  EXPECT_EQ(sheet_->Current(KW_PSSENDERRORHANDLER), 1u);
  EXPECT_EQ(sheet_->Current(KW_PSLANGUAGELEVEL), 3u) << "this version keeps no such value";

  devMode_.open.dmDriverVersion = 0x0600;
  devMode_.open.dmDriverExtra = 0;
  SetUpSession();
  EXPECT_EQ(sheet_->Current(KW_PSSENDERRORHANDLER), 0u) << "there is no such part";
}

TEST_F(SetupTest, BorderRule) {
  queue_->StoreDevMode(stored_.Bytes());
  OPTITEM& pages = items_.AddStandard(DMPUB_NUP, 0);
  struct Row {
    LONG pages;
    std::uint32_t noBorder, border;
  };
  for (const Row& row : {Row{0, 0, 0}, Row{0, 1, 0}, Row{2, 0, 1}, Row{2, 1, 0}}) {
    pages.Sel = row.pages;
    devMode_.driver.noBorder = row.noBorder;
    SetUpSession();
    EXPECT_EQ(sheet_->Current(KW_NUPBORDER), row.border) << row.pages << ", " << row.noBorder;
  }
}

}  // namespace
}  // namespace zn::test
