// The satellite resource module: which one is found, and how long it stays.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <string>

#include "iat_patch.h"
#include "plugin_client.h"

namespace zn::test {
namespace {

LANGID WINAPI UserLanguage() {
  return MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_UK);
}
LANGID WINAPI SystemLanguage() {
  return MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN_AUSTRIAN);
}
LANGID WINAPI EnglishLanguage() {
  return MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
}
UINT WINAPI KoreanCodePage() {
  return 949;
}

DWORD g_nameLength = 0;
DWORD WINAPI ModuleName(HMODULE, char* name, DWORD size) {
  std::fill_n(name, size, 'x');
  return g_nameLength;
}

int g_loads = 0;
HMODULE WINAPI CountLoad(const char*) {
  ++g_loads;
  return nullptr;
}

// The plug-in in a folder of its own, with satellites beside it.
class Satellite : public testing::Test {
 protected:
  Satellite() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
    std::filesystem::copy_file("Zn55psu1.dll", folder_ / "Zn55psu1.dll");
  }
  ~Satellite() override {
    std::error_code stillLoaded;
    std::filesystem::remove_all(folder_, stillLoaded);
  }

  void Install(const std::string& tag) {
    std::filesystem::copy_file(ZN_TEST_MODULE, SatellitePath(tag));
  }
  [[nodiscard]] std::filesystem::path SatellitePath(const std::string& tag) const {
    return folder_ / ("Zn55psu1" + tag + ".dll");
  }
  [[nodiscard]] std::string PlugInPath() const { return (folder_ / "Zn55psu1.dll").string(); }
  // The resource module that the pages of a sheet come from, by the end of its file name.
  static std::string ResourceModule(IPrintOemUI& object) {
    FakeSheet sheet(object, &IPrintOemUI::DevicePropertySheets);
    sheet.Send(PROPSHEETUI_REASON_INIT);
    char path[MAX_PATH] = "";
    ::GetModuleFileNameA(sheet.calls.at(0).page.hInstance, path, sizeof path);
    return std::filesystem::path(path).stem().string().substr(std::strlen("Zn55psu1"));
  }

 private:
  const std::filesystem::path folder_ = std::filesystem::temp_directory_path() /
                                        ("zn_oemps_" + std::to_string(::GetCurrentProcessId()));
};

TEST_F(Satellite, IsLoadedOnceAndFreedWithTheLastObject) {
  Install("JPN");
  const PlugIn plugIn(PlugInPath());
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(::GetModuleHandleA("Zn55psu1JPN.dll"), nullptr);
    auto first = plugIn.Object();
    EXPECT_EQ(ResourceModule(*first), "JPN");
    auto second = plugIn.Object();
    first.reset();
    EXPECT_EQ(ResourceModule(*second), "JPN");
    second.reset();
  }
  EXPECT_EQ(::GetModuleHandleA("Zn55psu1JPN.dll"), nullptr);
}

TEST_F(Satellite, LanguagesAreTriedInOrder) {
  // From the last choice to the first: each one installed is preferred to all before.
  for (const std::string tag : {"FRA", "KOR", "DEU", "DEA", "ENU", "ENG"}) {
    Install(tag);
    SCOPED_TRACE(tag);
    const PlugIn plugIn(PlugInPath());
    const ImportPatch user(plugIn.Module(), "GetUserDefaultUILanguage", &UserLanguage);
    const ImportPatch system(plugIn.Module(), "GetSystemDefaultUILanguage", &SystemLanguage);
    const ImportPatch codePage(plugIn.Module(), "GetACP", &KoreanCodePage);
    EXPECT_EQ(ResourceModule(*plugIn.Object()), tag == "FRA" ? "" : tag);
  }
}

TEST_F(Satellite, ShippedOneServesEnglishUsersButNoJapaneseOnes) {
  std::filesystem::copy_file("Zn55psu1ENU.dll", SatellitePath("ENU"));
  const PlugIn plugIn(PlugInPath());
  const ImportPatch system(plugIn.Module(), "GetSystemDefaultUILanguage", &EnglishLanguage);
  const ImportPatch codePage(plugIn.Module(), "GetACP", &KoreanCodePage);
  EXPECT_EQ(ResourceModule(*plugIn.Object()), "");
  const ImportPatch user(plugIn.Module(), "GetUserDefaultUILanguage", &UserLanguage);
  EXPECT_EQ(ResourceModule(*plugIn.Object()), "ENU");
}

TEST_F(Satellite, IsGivenUpWithoutAModulePath) {
  const PlugIn plugIn(PlugInPath());
  const ImportPatch name(plugIn.Module(), "GetModuleFileNameA", &ModuleName);
  const ImportPatch load(plugIn.Module(), "LoadLibraryA", &CountLoad);
  for (const DWORD length : {0U, 260U, 259U}) {
    g_nameLength = length;
    g_loads = 0;
    EXPECT_EQ(ResourceModule(*plugIn.Object()), "") << length;
    EXPECT_EQ(g_loads > 0, length == 259) << length;
  }
}

}  // namespace
}  // namespace zn::test
