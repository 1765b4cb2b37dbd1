#include "bridge/companion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "ddb/print_option.h"
#include "iat_patch.h"
#include "platform/resources.h"
#include "test_companion.h"
#include "test_queue.h"

namespace zn::test {
namespace {

using companion_abi::StringRecord;
using testing::Test;

std::string g_driverPath;  // what the spooler says; empty: it knows no driver

BOOL WINAPI FakeGetPrinterDriver(HANDLE, LPSTR, DWORD, LPBYTE memory, DWORD size, LPDWORD need) {
  *need = static_cast<DWORD>(sizeof(DRIVER_INFO_2A) + g_driverPath.size() + 1);
  if (g_driverPath.empty() || size < *need) {
    return FALSE;
  }
  DRIVER_INFO_2A info{};
  info.pDriverPath = reinterpret_cast<char*>(memory + sizeof info);
  std::memcpy(memory, &info, sizeof info);
  std::memcpy(info.pDriverPath, g_driverPath.c_str(), g_driverPath.size() + 1);
  return TRUE;
}

std::string BesideProgram(const char* file) {
  char path[MAX_PATH] = "";
  ::GetModuleFileNameA(nullptr, path, sizeof path);
  std::string text(path);
  return text.substr(0, text.rfind('\\') + 1) + file;
}

class CompanionTest : public Test {
 protected:
  // The texts of the string table are those of the product.
  static void SetUpTestSuite() {
    plugIn_ = ::LoadLibraryA(BesideProgram("Zn55psu1.dll").c_str());
    ASSERT_NE(plugIn_, nullptr) << ::GetLastError();
  }
  static void TearDownTestSuite() { ::FreeLibrary(plugIn_); }

  CompanionTest()
      : getPrinterDriver_(::GetModuleHandleA(nullptr), "GetPrinterDriverA", &FakeGetPrinterDriver) {
    char temp[MAX_PATH] = "";
    ::GetTempPathA(sizeof temp, temp);
    // The first character's second byte is a backslash.
    folder_ = std::string(temp) + "\x95\x5C\x8E\xA6" + std::to_string(::GetCurrentProcessId());
    ::CreateDirectoryA(folder_.c_str(), nullptr);
    folder_ += '\\';
    module_ = folder_ + "Zn55psu1UI.dll";
    g_driverPath = folder_ + "driver.drv";
    SetModuleInstance(plugIn_);
  }

  ~CompanionTest() override {
    held_.reset();
    EXPECT_EQ(::GetModuleHandleA(module_.c_str()), nullptr) << "the companion was not freed";
    ::DeleteFileA(module_.c_str());
    ::RemoveDirectoryA(folder_.substr(0, folder_.size() - 1).c_str());
    SetModuleInstance(nullptr);
  }

  // Puts a module beside the driver and holds it, so that its record outlives the calls.
  CompanionControl& Install(const char* file = "test_companion.dll") {
    EXPECT_TRUE(::CopyFileA(BesideProgram(file).c_str(), module_.c_str(), FALSE));
    held_.reset(::LoadLibraryA(module_.c_str()));
    auto* const control =
        reinterpret_cast<ControlFunction*>(::GetProcAddress(held_.get(), "Control"));
    return *control();
  }

  static HMODULE plugIn_;
  ImportPatch getPrinterDriver_;
  std::string folder_;
  std::string module_;
  UniqueModule held_;
};

HMODULE CompanionTest::plugIn_ = nullptr;

TEST_F(CompanionTest, TextsAreAskedForOneByOneInTheirSize) {
  CompanionControl& control = Install();
  const CompanionModule companion(nullptr);
  ASSERT_TRUE(companion);
  control.text = "text";
  control.options = 2;
  EXPECT_EQ(companion.GetKeywordTranslation(355), "text");
  EXPECT_EQ(control.size, 64u);
  EXPECT_EQ(companion.GetKeywordOptionString(63, 3),
            (std::vector<std::string>{"text", "text", ""}));
  EXPECT_EQ(control.size, 256u);
  EXPECT_EQ(control.ids, (std::vector<int>{355, 63, 63, 63}));
  EXPECT_EQ(control.indexes, (std::vector<int>{0, 1, 2}));
  EXPECT_TRUE(companion.GetKeywordOptionString(63, 0).empty());
  EXPECT_EQ(control.indexes.size(), 3u) << "nothing is called for a count of 0";

  std::string text = "before";
  EXPECT_FALSE(companion.GetKeywordOption(63, 2, text));
  EXPECT_EQ(text, "before");
  EXPECT_TRUE(companion.GetKeywordOption(63, 1, text));
  EXPECT_EQ(text, "text");
  EXPECT_EQ(companion.GetKeywordOptionCount(63), 2u);
  control.options = 0x7FFFFFFF;
  EXPECT_EQ(companion.GetKeywordOptionCount(63), 1000u) << "a module that answers for ever";
  control.result = 0;
  EXPECT_EQ(companion.GetKeywordTranslation(355), "") << "whatever the buffer holds";
}

TEST_F(CompanionTest, TextsWithoutTerminatorAreCut) {
  CompanionControl& control = Install();
  const CompanionModule companion(nullptr);
  control.text = std::string(300, 'a');
  control.options = 1;
  EXPECT_EQ(companion.GetKeywordTranslation(1), std::string(63, 'a'));
  EXPECT_EQ(companion.GetKeywordOptionString(1, 1)[0], std::string(255, 'a'));
  control.text.clear();
  for (int character = 0; character < 32; ++character) {
    control.text += "\x95\x5C";
  }
  EXPECT_EQ(companion.GetKeywordTranslation(1), control.text.substr(0, 62))
      << "not within a double-byte character";
}

TEST_F(CompanionTest, OptionSettingDialog) {
  CompanionControl& control = Install();
  std::string folder;
  const CompanionModule companion(nullptr, &folder);
  EXPECT_EQ(folder, folder_);
  ddb::CPrintOption working;
  ddb::CPrintOption reference;
  PrintOptionSettingTexts texts{"record", "favourites", "driver", "profile"};
  const auto owner = reinterpret_cast<HWND>(0x1234);
  control.text = std::string(300, 'p');
  EXPECT_TRUE(companion.PrintOptionSetting(working, reference, texts, owner));
  EXPECT_EQ(control.pointers, (std::vector<const void*>{&working, &reference, owner}));
  EXPECT_EQ(control.texts, (std::vector<std::string>{"record", "favourites", "driver", "profile"}));
  EXPECT_EQ(texts.profile, std::string(259, 'p'));
  control.result = 0;
  EXPECT_FALSE(companion.PrintOptionSetting(working, reference, texts, owner));
  companion.DeleteMember();
  EXPECT_EQ(control.releases, 1);
}

TEST_F(CompanionTest, FavoriteSummaryDialog) {
  CompanionControl& control = Install();
  std::array<ddb::CPrintOption, 4> records;
  const std::array<companion_abi::FavoriteSummaryEntry, 2> favorites = {
      {{"first", "comment", &records[0]}, {"second", "", &records[1]}}};
  FavoriteSummaryDialog dialog{.favorites = favorites,
                               .current = &records[2],
                               .defaults = &records[3],
                               .favoriteFolder = "favourites",
                               .profile = "profile",
                               .owner = reinterpret_cast<HWND>(0x10),
                               .page = reinterpret_cast<HWND>(0x20),
                               .selection = 0,
                               .name = "first",
                               .deleted = {}};
  control.result = 0;
  control.selection = 1;
  control.text = "other";
  EXPECT_FALSE(DoModalFavoriteSummaryUI(nullptr, dialog));
  EXPECT_EQ(control.pointers, (std::vector<const void*>{&records[2], &records[3], dialog.owner,
                                                        dialog.page, &records[0]}));
  EXPECT_EQ(control.texts, (std::vector<std::string>{"first", "favourites", folder_, "profile",
                                                     "first", "comment"}));
  EXPECT_EQ(control.numbers, (std::vector<int>{0, 2}));
  EXPECT_EQ(dialog.selection, 0) << "cancelled";
  EXPECT_EQ(dialog.name, "first");
  EXPECT_TRUE(dialog.deleted.empty());

  control.result = 1;
  control.deletedRow = 1;
  EXPECT_TRUE(DoModalFavoriteSummaryUI(nullptr, dialog));
  EXPECT_EQ(dialog.selection, 1);
  EXPECT_EQ(dialog.name, "other");
  EXPECT_EQ(dialog.deleted, (std::vector<std::uint8_t>{0, 1}));
  for (const int row : {-2, 2}) {
    control.selection = row;
    EXPECT_TRUE(DoModalFavoriteSummaryUI(nullptr, dialog));
    EXPECT_EQ(dialog.selection, 1) << "there is no row " << row;
  }
}

StringRecord LongText(const char* text, std::uint64_t size, std::uint64_t capacity) {
  StringRecord record;
  record.text = text;
  record.size = size;
  record.capacity = capacity;
  return record;
}

StringRecord ShortText(const char* text, std::uint64_t size) {
  StringRecord record;
  std::memcpy(record.inlineText, text, std::min<std::size_t>(std::strlen(text), 16));
  record.size = size;
  return record;
}

TEST_F(CompanionTest, ListOfPrintOptions) {
  CompanionControl& control = Install();
  const CompanionModule companion(nullptr);
  const std::string longText(400, 'n');
  struct Row {
    StringRecord record;
    std::string text;
  };
  const Row rows[] = {
      {ShortText("", 0), ""},
      {ShortText("fifteen letters", 15), "fifteen letters"},
      {ShortText("sixteen letters!", 16), "sixteen letters"},  // longer than its place
      {ShortText("abc", UINT64_MAX), "abc"},
      {LongText("sixteen letters!", 16, 31), "sixteen letters!"},
      {LongText(longText.c_str(), 400, 400), longText.substr(0, 259)},
      {LongText("text", 100, 31), "text"},
      {LongText(nullptr, 20, 31), ""},
  };
  std::vector<std::string> expected;
  for (const Row& row : rows) {
    control.names.push_back(row.record);
    expected.push_back(row.text);
  }
  control.nameCount = static_cast<int>(expected.size());
  EXPECT_EQ(companion.GetPrintOptionList("_def", 20), expected);
  EXPECT_EQ(control.texts, std::vector<std::string>{"_def"});
  EXPECT_EQ(control.numbers, (std::vector<int>{20, 0}));

  control.nameCount = 100;
  EXPECT_EQ(companion.GetPrintOptionList(nullptr, 3).size(), 3u);
  EXPECT_EQ(control.texts, std::vector<std::string>{""});
  EXPECT_TRUE(companion.GetPrintOptionList("", -1).empty());
  control.nameCount = -1;
  EXPECT_TRUE(companion.GetPrintOptionList("", 3).empty());
  control.nameCount = 3;
  control.result = 0;
  EXPECT_TRUE(companion.GetPrintOptionList("", 3).empty());
}

// Every call does nothing, and no message box appears.
void ExpectNoOp(const CompanionModule& companion) {
  EXPECT_EQ(companion.GetKeywordTranslation(1), "");
  EXPECT_EQ(companion.GetKeywordOptionCount(1), 0u);
  EXPECT_EQ(companion.GetKeywordOptionString(1, 2), std::vector<std::string>(2));
  EXPECT_TRUE(companion.GetPrintOptionList("", 5).empty());
  ddb::CPrintOption record;
  PrintOptionSettingTexts texts{};
  EXPECT_FALSE(companion.PrintOptionSetting(record, record, texts, nullptr));
  companion.DeleteMember();
  FavoriteSummaryDialog dialog{};
  EXPECT_FALSE(companion.FavoriteSummary(dialog, ""));
  EXPECT_FALSE(DoModalFavoriteSummaryUI(nullptr, dialog));
}

TEST_F(CompanionTest, MissingExports) {
  Install("bare_companion.dll");
  const CompanionModule companion(nullptr);
  EXPECT_TRUE(companion);
  ExpectNoOp(companion);
}

TEST_F(CompanionTest, ModuleThatCannotBeLoaded) {
  std::string folder = "before";
  const CompanionModule missing(nullptr, &folder);
  EXPECT_FALSE(missing);
  EXPECT_EQ(folder, folder_) << "the folder is known all the same";
  ExpectNoOp(missing);

  const HANDLE file = ::CreateFileA(module_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  DWORD written = 0;
  ::WriteFile(file, "no module", 9, &written, nullptr);
  ::CloseHandle(file);
  ExpectNoOp(CompanionModule(nullptr));
}

TEST_F(CompanionTest, DriverPaths) {
  struct Row {
    std::string path;
    std::string folder;
  };
  const std::string deep = "C:\\" + std::string(245, 'd') + "\\";
  const Row rows[] = {{"driver.drv", ""},
                      {"C:driver.drv", "C:"},
                      {"\\\\server\\share\\driver.drv", "\\\\server\\share\\"},
                      {deep + "driver.drv", deep},  // no room for the module's name
                      {"C:\\" + std::string(400, 'd') + "\\driver.drv", "before"},
                      {"", "before"}};
  for (const Row& row : rows) {
    g_driverPath = row.path;
    std::string folder = "before";
    const CompanionModule companion(nullptr, &folder);
    EXPECT_EQ(folder, row.folder) << row.path;
    EXPECT_TRUE(row.path == "driver.drv" || !companion) << row.path;
  }
}

int g_loads = 0;
HMODULE WINAPI CountLoad(LPCSTR) {
  ++g_loads;
  return nullptr;
}

TEST_F(CompanionTest, NoModuleNameLoadsNothing) {
  const ImportPatch load(::GetModuleHandleA(nullptr), "LoadLibraryA", &CountLoad);
  EXPECT_FALSE(CompanionModule(nullptr));
  EXPECT_EQ(g_loads, 1);
  SetModuleInstance(::GetModuleHandleA(nullptr));  // has no string table
  std::string folder;
  EXPECT_FALSE(CompanionModule(nullptr, &folder));
  EXPECT_EQ(g_loads, 1);
  EXPECT_EQ(folder, folder_);
}

TEST(CompanionFolderTest, IsThatOfTheQueuesDriver) {
  const TestQueue queue;
  std::string folder;
  const CompanionModule companion(queue.Handle(), &folder);
  EXPECT_EQ(folder, queue.DriverFolder());
}

using SummaryTable = std::array<companion_abi::SummaryItem, companion_abi::kSummaryItemCount + 1>;
SummaryTable g_table;

void SendItems(std::size_t count) {
  g_table.fill({7, 7, {7, 7}});
  const std::vector<companion_abi::SummaryItem> items(count, {1, 99, {}});
  SendTreeItems(reinterpret_cast<LPARAM>(g_table.data()), items);
}

TEST_F(CompanionTest, TreeItemsFillTheTableWhileTheDialogIsOpen) {
  CompanionControl& control = Install();
  ddb::CPrintOption record;
  const std::array<companion_abi::FavoriteSummaryEntry, 1> favorites = {{{"", "", &record}}};
  FavoriteSummaryDialog dialog{};
  dialog.favorites = favorites;
  control.whileSummaryIsOpen = [] {
    SendItems(49);
    EXPECT_EQ(g_table[48].id, 99u);
    EXPECT_EQ(g_table[49].level, 0);
    EXPECT_EQ(g_table[49].id, 0u);
    SendItems(60);
    EXPECT_EQ(g_table[49].id, 99u);
    EXPECT_EQ(g_table[50].id, 7u) << "not past the table";
    SendTreeItems(0, {});
  };
  EXPECT_TRUE(DoModalFavoriteSummaryUI(nullptr, dialog));
  SendItems(1);
  EXPECT_EQ(g_table[0].id, 7u) << "a message that the companion did not send";
}

}  // namespace
}  // namespace zn::test
