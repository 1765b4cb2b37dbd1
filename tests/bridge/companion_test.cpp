#include "bridge/companion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <fstream>

#include "ddb/print_option.h"
#include "fake_driver_path.h"
#include "platform/resources.h"
#include "test_companion.h"
#include "test_queue.h"

namespace zn::test {
namespace {

using companion_abi::StringRecord;

class CompanionTest : public testing::Test {
 protected:
  // The texts of the string table are those of the product.
  static void SetUpTestSuite() {
    plugIn_ = ::LoadLibraryA(BesideProgram("Zn55psu1.dll").c_str());
    ASSERT_NE(plugIn_, nullptr) << ::GetLastError();
  }
  static void TearDownTestSuite() { ::FreeLibrary(plugIn_); }

  CompanionTest() {
    char temp[MAX_PATH] = "";
    ::GetTempPathA(sizeof temp, temp);
    // The first character's second byte is a backslash.
    folder_ = std::string(temp) + "\x95\x5C\x8E\xA6" + std::to_string(::GetCurrentProcessId());
    ::CreateDirectoryA(folder_.c_str(), nullptr);
    folder_ += '\\';
    module_ = folder_ + "Zn55psu1UI.dll";
    FakeDriverPath::path = folder_ + "driver.drv";
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

  static inline HMODULE plugIn_ = nullptr;
  FakeDriverPath driverPath_;
  std::string folder_;
  std::string module_;
  UniqueModule held_;
};

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

  control.text = std::string(300, 'a');  // no terminator
  EXPECT_EQ(companion.GetKeywordTranslation(1), std::string(63, 'a'));
  EXPECT_EQ(companion.GetKeywordOptionString(1, 1)[0], std::string(255, 'a'));
  for (std::size_t at = 0; at < 64; at += 2) {
    control.text.replace(at, 2, "\x95\x5C");
  }
  EXPECT_EQ(companion.GetKeywordTranslation(1), control.text.substr(0, 62))
      << "not within a double-byte character";
  control.result = 0;
  EXPECT_EQ(companion.GetKeywordTranslation(355), "") << "whatever the buffer holds";
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

std::array<companion_abi::SummaryItem, companion_abi::kSummaryItemCount + 1> g_table;

void SendItems(std::size_t count) {
  g_table.fill({7, 7, {7, 7}});
  const std::vector<companion_abi::SummaryItem> items(count, {1, 99, {}});
  SendTreeItems(reinterpret_cast<LPARAM>(g_table.data()), items);
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

StringRecord Record(const char* text, std::uint64_t size, std::uint64_t capacity = 15) {
  StringRecord record;
  record.size = size;
  if (capacity > 15) {
    record.text = text;
    record.capacity = capacity;
  } else {
    std::memcpy(record.inlineText, text, std::min<std::size_t>(std::strlen(text), 16));
  }
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
      {Record("", 0), ""},
      {Record("fifteen letters", 15), "fifteen letters"},
      {Record("sixteen letters!", 16), "sixteen letters"},  // longer than its place
      {Record("abc", UINT64_MAX), "abc"},
      {Record("sixteen letters!", 16, 31), "sixteen letters!"},
      {Record(longText.c_str(), 400, 400), longText.substr(0, 259)},
      {Record("text", 100, 31), "text"},
      {Record(nullptr, 20, 31), ""},
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

TEST_F(CompanionTest, MissingModuleOrExports) {
  std::string folder = "before";
  const CompanionModule missing(nullptr, &folder);
  EXPECT_FALSE(missing);
  EXPECT_EQ(folder, folder_) << "the folder is known all the same";
  ExpectNoOp(missing);
  std::ofstream(module_) << "no module";
  ExpectNoOp(CompanionModule(nullptr));
  Install("bare_companion.dll");
  const CompanionModule companion(nullptr);
  EXPECT_TRUE(companion);
  ExpectNoOp(companion);
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
    FakeDriverPath::path = row.path;
    std::string folder = "before";
    const CompanionModule companion(nullptr, &folder);
    EXPECT_EQ(folder, row.folder) << row.path;
    EXPECT_TRUE(row.path == "driver.drv" || !companion) << row.path;
  }
}

TEST(CompanionFolderTest, IsThatOfTheQueuesDriver) {
  const TestQueue queue;
  std::string folder;
  const CompanionModule companion(queue.Handle(), &folder);
  EXPECT_EQ(folder, queue.DriverFolder());
}

}  // namespace
}  // namespace zn::test
