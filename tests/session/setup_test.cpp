// Set-up of the session against a real queue, and against stored settings that nobody can trust.
#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "iat_patch.h"
#include "session/forms.h"
#include "session/job_values.h"
#include "session/session.h"
#include "sheet_fixture.h"
#include "test_queue.h"

namespace zn::test {
namespace {

using Bytes = std::vector<std::byte>;

// What the fake spooler stores per user and for all: nothing when the call fails, empty without a
// DEVMODE, else a DEVMODEA and what lies behind it.
std::optional<Bytes> g_user;
std::optional<Bytes> g_global;
LONG g_driverSize = 0;  // of a full DEVMODEA, as the driver tells it

BOOL WINAPI FakeGetPrinter(HANDLE printer, DWORD level, LPBYTE memory, DWORD size, LPDWORD need) {
  if (level != 8 && level != 9) {
    const HMODULE spooler = ::GetModuleHandleA("winspool.drv");
    return reinterpret_cast<decltype(&::GetPrinterA)>(::GetProcAddress(spooler, "GetPrinterA"))(
        printer, level, memory, size, need);
  }
  const std::optional<Bytes>& stored = level == 9 ? g_user : g_global;
  PRINTER_INFO_9A info{};
  *need = stored ? static_cast<DWORD>(sizeof info + stored->size()) : 0;
  if (!stored || size < *need) {
    return FALSE;
  }
  if (!stored->empty()) {
    info.pDevMode = reinterpret_cast<DEVMODEA*>(memory + sizeof info);
    std::memcpy(info.pDevMode, stored->data(), stored->size());
  }
  std::memcpy(memory, &info, sizeof info);
  return TRUE;
}

LONG WINAPI FakeDocumentProperties(HWND, HANDLE, LPSTR, PDEVMODEA, PDEVMODEA, DWORD) {
  return g_driverSize;
}

struct FakeSpooler {
  ImportPatch getPrinter{::GetModuleHandleA(nullptr), "GetPrinterA", &FakeGetPrinter};
  ImportPatch documentProperties{::GetModuleHandleA(nullptr), "DocumentPropertiesA",
                                 &FakeDocumentProperties};
};

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
    g_driverSize = static_cast<LONG>(StoredBytes().size());
    g_user = StoredBytes();
    g_global.reset();
  }

  void SetUpSession() {
    TakeItems();
    Session().HidePrinterSetting();
  }

  // The stored settings as the spooler answers them: DEVMODEA, driver's part and block.
  [[nodiscard]] Bytes StoredBytes() const {
    const std::span rest = stored_.Bytes().subspan(sizeof stored_.open);
    DEVMODEA open{};
    open.dmSize = sizeof open;
    open.dmDriverExtra = static_cast<WORD>(rest.size());
    Bytes bytes(sizeof open);
    std::memcpy(bytes.data(), &open, sizeof open);
    bytes.insert(bytes.end(), rest.begin(), rest.end());
    return bytes;
  }

  [[nodiscard]] std::string Owner() const {
    return std::string(sheet_->jobValues.GetText(devmode::kJobOwnerName));
  }

  static inline std::unique_ptr<TestQueue> queue_;
  StoredDevMode stored_;
};

TEST_F(SetupTest, TakesUserDataFromTheStoredSettings) {
  char logonName[257] = "";
  DWORD size = sizeof logonName;
  ASSERT_TRUE(::GetUserNameA(logonName, &size));
  struct Row {
    std::uint32_t method, source;
    const char* owner;
  };
  for (const Row& row :
       {Row{1, 0, logonName}, Row{0, 0, "stored owner"}, Row{1, 1, "stored owner"}}) {
    stored_.block.SetDWord(devmode::kManagementMethod, row.method);
    stored_.block.SetDWord(devmode::kOwnerNameSource, row.source);
    queue_->StoreDevMode(stored_.Bytes());
    SetUpSession();
    EXPECT_EQ(Owner(), row.owner) << row.method << ", " << row.source;
  }
  EXPECT_TRUE(sheet_->settingsRead);
  EXPECT_EQ(sheet_->jobValues.GetText(devmode::kJobOwnerPassword), "secret");
  EXPECT_EQ(sheet_->jobValues.GetText(devmode::kAccountId), "account");
  EXPECT_EQ(sheet_->jobValues.GetDWord(devmode::kManagementMethod), 1u);
  EXPECT_TRUE(sheet_->rawOnly) << "the queue lacks the attribute";
}

TEST_F(SetupTest, StoredSettingsAreFound) {
  const FakeSpooler fake;
  g_global = StoredBytes();
  g_user.reset();
  SetUpSession();
  EXPECT_EQ(Owner(), "");
  g_user.emplace();  // the user has none
  SetUpSession();
  EXPECT_EQ(Owner(), "stored owner");

  // By the driver's size or the stored one.
  g_user = StoredBytes();
  for (const LONG other : {g_driverSize + 1000, g_driverSize - 1000, LONG{1}}) {
    sheet_->jobValues = {};
    g_driverSize = other;
    SetUpSession();
    EXPECT_EQ(Owner(), "stored owner") << other;
  }
  g_driverSize = static_cast<LONG>(g_user->size());
  g_user->resize(g_user->size() + 16);  // something behind the block
  reinterpret_cast<DEVMODEA*>(g_user->data())->dmDriverExtra += 16;
  sheet_->jobValues = {};
  SetUpSession();
  EXPECT_EQ(Owner(), "stored owner");
}

TEST_F(SetupTest, UnusableStoredSettingsEndTheSetUp) {
  items_.AddKeyword(KW_STAPLE, 3);
  devMode_.block.SetText(devmode::kJobOwnerName, "own");
  devMode_.block.SetDWord(devmode::kCustomCmyk, 7);
  devMode_.block.SetDWord(9216, 5);
  const CDevMode before = devMode_.block;
  const auto damaged = [&](auto damage) {
    Bytes bytes = StoredBytes();
    damage(bytes, *reinterpret_cast<DEVMODEA*>(bytes.data()));
    return bytes;
  };
  const std::optional<Bytes> answers[] = {
      std::nullopt,
      Bytes(),
      Bytes(20),
      damaged([](Bytes& bytes, DEVMODEA&) { bytes.pop_back(); }),
      damaged([](Bytes& bytes, DEVMODEA&) { bytes.resize(sizeof(DEVMODEA)); }),
      damaged([](Bytes&, DEVMODEA& open) { open.dmDriverExtra += 1; }),
      damaged([](Bytes&, DEVMODEA& open) { open.dmDriverExtra = kDevModeSize - 1; }),
      damaged([](Bytes&, DEVMODEA& open) { open.dmDriverExtra = 0; }),
      damaged([](Bytes&, DEVMODEA& open) { open.dmSize = 0xFFFF; }),
      damaged([](Bytes&, DEVMODEA& open) { open.dmSize = 0; }),
      damaged(
          [](Bytes& bytes, DEVMODEA&) { bytes[bytes.size() - kDevModeSize + 4] ^= std::byte{1}; }),
  };
  const FakeSpooler fake;
  for (const std::optional<Bytes>& answer : answers) {
    SCOPED_TRACE(&answer - answers);
    g_user = answer;
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

TEST_F(SetupTest, FormNamesAreThePrintersPapers) {
  const auto form = [](std::uint32_t index) {
    const char* name = "no table";
    GetFormsInfo(index, &name);
    return std::string(name);
  };
  SetUpSession();
  EXPECT_EQ(GetFormsCount(), 3u);
  EXPECT_EQ(form(2), "B5");

  const ImportPatch papers(::GetModuleHandleA(nullptr), "DeviceCapabilitiesA",
                           &FakeDeviceCapabilities);
  SetUpSession();
  EXPECT_EQ(form(0), std::string(63, 'p'));
  EXPECT_EQ(form(1), "second");
  g_namesAnswer = -1;
  SetUpSession();
  EXPECT_EQ(GetFormsCount(), 0u);
  EXPECT_EQ(form(0), "no table");
}

TEST_F(SetupTest, JobValuesComeFromTheSheetsBlock) {
  queue_->StoreDevMode(stored_.Bytes());
  devMode_.block.SetDWord(devmode::kJobNameMode, 1);
  devMode_.block.SetText(devmode::kJobName, std::string(256, 'n'));
  devMode_.block.Bytes()[devmode::kJobName + 255] = std::byte{'n'};  // no terminator
  SetUpSession();
  EXPECT_EQ(JobNameModeOf(*sheet_), JobNameMode::Entered);
  EXPECT_EQ(JobNameOf(*sheet_), std::string(255, 'n'));
  EXPECT_EQ(DeviceProfileOf(*sheet_), queue_->DriverName()) << "no profile is named";
  devMode_.block.SetText(devmode::kDeviceProfile, "other");
  SetUpSession();
  EXPECT_EQ(DeviceProfileOf(*sheet_), "other");
}

TEST_F(SetupTest, DevicesOwnChoicesComeFromTheSheetsBlock) {
  queue_->StoreDevMode(stored_.Bytes());
  struct Row {
    std::size_t offset;
    std::uint32_t stored;
    KeywordId id;
    std::uint32_t selection;
  };
  constexpr Row kRows[] = {{9232, 1, 2, 15},    {9236, 100, 3, 107},  {9244, 500, 35, 500},
                           {9248, 1, 127, 1},   {9256, 17, 145, 17},  {9296, 499, 151, 499},
                           {9308, 29, 178, 29}, {9320, 100, 216, 99}, {9324, 31, 237, 31}};
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

  items_.AddKeyword(KW_CMYKSIMULATION, 3);
  for (const std::uint32_t number : {0u, 101u, 0xFFFFFFFFu}) {
    devMode_.block.SetDWord(devmode::kCustomCmyk, number);
    SetUpSession();
    EXPECT_EQ(sheet_->Current(KW_CMYKSIMULATION), 3u) << number << " is no custom colour";
  }
}

TEST_F(SetupTest, CoreDriversPartIsRead) {
  queue_->StoreDevMode(stored_.Bytes());
  devMode_.driver = kUsedDriverPart;
  devMode_.driver.flags = 0x4;
  devMode_.driver.customPaperHeight = 0;
  SetUpSession();
  EXPECT_EQ(sheet_->Current(KW_PSSENDERRORHANDLER), 0u);
  EXPECT_EQ(sheet_->Current(KW_MIRRORPRINT), 1u);
  EXPECT_EQ(sheet_->Current(KW_CUSTOMPAPERWIDTH), 100'000u);
  EXPECT_EQ(sheet_->Current(KW_CUSTOMPAPERHEIGHT), sheet_->Default(KW_CUSTOMPAPERHEIGHT));
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

TEST_F(SetupTest, BorderNeedsPagesAndNoRefusal) {
  queue_->StoreDevMode(stored_.Bytes());
  OPTITEM& pages = items_.AddStandard(DMPUB_NUP, 0);
  for (const auto& [count, noBorder, border] :
       {std::array{0u, 0u, 0u}, {0, 1, 0}, {2, 0, 1}, {2, 1, 0}}) {
    pages.Sel = static_cast<LONG>(count);
    devMode_.driver.noBorder = noBorder;
    SetUpSession();
    EXPECT_EQ(sheet_->Current(KW_NUPBORDER), border) << count << ", " << noBorder;
  }
}

}  // namespace
}  // namespace zn::test
