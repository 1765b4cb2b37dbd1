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
  HMODULE program = ::GetModuleHandleA(nullptr);
  ImportPatch getPrinter{program, "GetPrinterA", &FakeGetPrinter};
  ImportPatch documentProperties{program, "DocumentPropertiesA", &FakeDocumentProperties};
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

// Found by the driver's size or the stored one; where they cannot be used, the set-up ends.
TEST_F(SetupTest, StoredSettingsAreUsedAsFarAsTheyCanBeTrusted) {
  struct Row {
    std::optional<Bytes> user;
    bool isFound;
    LONG moreToDriver = 0;
  };
  const auto changed = [&](auto change) {
    Bytes bytes = StoredBytes();
    change(bytes, *reinterpret_cast<DEVMODEA*>(bytes.data()));
    return bytes;
  };
  const auto behindBlock = [](Bytes& bytes, DEVMODEA& open) {
    open.dmDriverExtra += 16;
    bytes.resize(bytes.size() + 16);
  };
  const Row rows[] = {
      {Bytes(), true},  // the user has none, so all users' are taken
      {StoredBytes(), true, 1000},
      {changed(behindBlock), true},
      {std::nullopt, false},
      {Bytes(20), false},
      {changed([](Bytes& bytes, DEVMODEA&) { bytes.pop_back(); }), false},
      {changed([](Bytes&, DEVMODEA& open) { open.dmDriverExtra += 1; }), false},
      {changed([](Bytes&, DEVMODEA& open) { open.dmDriverExtra = kDevModeSize - 1; }), false},
      {changed([](Bytes&, DEVMODEA& open) { open.dmSize = 0; }), false},
      {changed([](Bytes& bytes, DEVMODEA&) {
         bytes[bytes.size() - kDevModeSize + devmode::kSignature] ^= std::byte{1};
       }),
       false},
  };
  items_.AddKeyword(KW_STAPLE, 3);
  devMode_.block.SetText(devmode::kJobOwnerName, "own");
  devMode_.block.SetDWord(devmode::kCustomCmyk, 7);
  devMode_.block.SetDWord(9216, 5);
  const CDevMode before = devMode_.block;
  const FakeSpooler fake;
  g_global = StoredBytes();
  for (const Row& row : rows) {
    SCOPED_TRACE(&row - rows);
    g_user = row.user;
    g_driverSize = static_cast<LONG>(StoredBytes().size()) + row.moreToDriver;
    sheet_->settingsRead = false;
    SetUpSession();
    EXPECT_EQ(sheet_->settingsRead, row.isFound);
    EXPECT_EQ(Owner(), row.isFound ? "stored owner" : "own");
    EXPECT_EQ(sheet_->Current(KW_STAPLE), 3u) << "what was found so far stands";
    EXPECT_EQ(sheet_->Current(KW_CMYKSIMULATION), row.isFound ? 21u : 0u);
    if (!row.isFound) {
      Session().CommitSession();
      EXPECT_TRUE(driver_.updates.empty());
      EXPECT_EQ(std::memcmp(&devMode_.block, &before, sizeof before), 0)
          << "commit must not clear what set-up never read";
    }
  }
}

// Two papers, the first with a name that fills its 64 bytes, and a size for each or for one only.
int g_sizes = 2;
int WINAPI FakeDeviceCapabilities(LPCSTR, LPCSTR, WORD what, LPSTR out, const DEVMODEA*) {
  if (what == DC_PAPERSIZE) {
    if (out != nullptr) {
      const POINT sizes[2] = {{1000, 1480}, {-1, 2970}};
      std::memcpy(out, sizes, static_cast<std::size_t>(g_sizes) * sizeof *sizes);
    }
    return g_sizes;
  }
  if (out != nullptr) {
    std::memset(out, 'p', 64);
    std::memcpy(out + 64, "second", sizeof "second");
  }
  return 2;
}

TEST_F(SetupTest, FormsAreThePrintersPapers) {
  const auto form = [](std::uint32_t index) {
    const char* name = "no table";
    GetFormsInfo(index, &name);
    return std::string(name);
  };
  SetUpSession();
  EXPECT_EQ(GetFormsCount(), 3u);
  EXPECT_EQ(form(2), "B5");
  EXPECT_NEAR(GetFormSize(2).height, 2570, 5);
  const ImportPatch papers(::GetModuleHandleA(nullptr), "DeviceCapabilitiesA",
                           &FakeDeviceCapabilities);
  SetUpSession();
  EXPECT_EQ(form(0), std::string(63, 'p'));
  EXPECT_EQ(form(1), "second");
  EXPECT_EQ(GetFormSize(0).height, 1480u);
  EXPECT_EQ(GetFormSize(1).height, 0u) << "negative";
  EXPECT_EQ(GetFormSize(2).height, 0u) << "no such form";
  g_sizes = 1;
  SetUpSession();
  EXPECT_EQ(GetFormSize(0).height, 0u) << "whose size it is, is open";
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
  items_.AddKeyword(KW_CMYKSIMULATION, 3);
  struct Row {
    std::size_t offset;
    std::uint32_t stored;
    KeywordId id;
    std::uint32_t selection;
  };
  constexpr Row kRows[] = {{9232, 1, 2, 15},     {9232, 101, 2, 3},    {9236, 100, 3, 107},
                           {9244, 500, 35, 500}, {9320, 100, 216, 99}, {9324, 31, 237, 31}};
  for (const auto& [offset, stored, id, selection] : kRows) {
    devMode_.block.SetDWord(offset, stored);
    SetUpSession();
    EXPECT_EQ(sheet_->Current(id), selection) << "id " << id;
    EXPECT_EQ(sheet_->options[id].lastWritten, selection) << "id " << id;
  }
  EXPECT_EQ(sheet_->Default(KW_FORMNO), 1u);
  EXPECT_EQ(sheet_->Default(KW_WMSELECTION), 1u);
}

}  // namespace
}  // namespace zn::test
