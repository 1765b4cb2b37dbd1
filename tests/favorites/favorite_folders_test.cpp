// The shared folders of the driver, and the favourite files in them.
#include "favorites/favorite_folders.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "iat_patch.h"
#include "platform/resources.h"
#include "tests/support/temp_folder.h"

namespace zn {
namespace {

std::string g_documents;
DWORD g_majorVersion;
int g_folderAsked;

BOOL WINAPI FakeSpecialFolder(HWND, LPSTR path, int folder, BOOL create) {
  g_folderAsked = create != FALSE ? folder : -1;
  std::strcpy(path, g_documents.c_str());
  return g_documents.empty() ? FALSE : TRUE;
}

BOOL WINAPI FakeVersion(LPOSVERSIONINFOA version) {
  version->dwPlatformId = VER_PLATFORM_WIN32_NT;
  version->dwMajorVersion = g_majorVersion;
  return TRUE;
}

UINT WINAPI FakeWindowsFolder(LPSTR path, UINT size) {
  std::strncpy(path, "W:\\windows", size);
  return 10;
}

class FavoriteFolders : public ::testing::Test {
 protected:
  FavoriteFolders() {
    g_documents = temp_.Path("documents");
    g_majorVersion = 6;
    SetModuleInstance(program_);
  }
  ~FavoriteFolders() override { SetModuleInstance(nullptr); }

  HMODULE program_ = ::GetModuleHandleA(nullptr);
  TempFolder temp_;
  test::ImportPatch folder_{program_, "SHGetSpecialFolderPathA", &FakeSpecialFolder};
  test::ImportPatch version_{program_, "GetVersionExA", &FakeVersion};
  test::ImportPatch windows_{program_, "GetWindowsDirectoryA", &FakeWindowsFolder};
};

TEST_F(FavoriteFolders, LieInTheCommonDocumentsAndAreMadeOnRequest) {
  const std::string base = g_documents + "\\Zentrik\\Quorra QR\\LM5050";
  const std::pair<SharedFolder, const char*> rows[] = {
      {SharedFolder::Base, ""},
      {SharedFolder::Favorite, "\\favorite"},
      {SharedFolder::SpotColor, "\\SpotColor"},
      {SharedFolder::SpotColorUser, "\\SpotColor\\User"},
      {SharedFolder::Profile, "\\profile"}};
  for (const auto& [folder, behindBase] : rows) {
    EXPECT_EQ(GetSharedFolder(folder), base + behindBase);
    EXPECT_EQ(g_folderAsked, 46);
    EXPECT_FALSE(FavoriteFileExists((base + behindBase).c_str()));
    EXPECT_TRUE(FavoriteFileExists(GetSharedFolder(folder, MissingFolder::Create).c_str()));
  }
  g_majorVersion = 5;
  EXPECT_EQ(GetSharedFolder(SharedFolder::Favorite),
            "W:\\windows\\Zentrik\\Quorra QR\\LM5050\\favorite");
}

TEST_F(FavoriteFolders, KeepWithinTheBuffer) {
  const std::string base = GetSharedFolder(SharedFolder::Base);
  const std::string whole = base + "\\favorite";
  const std::pair<std::size_t, std::string> rows[] = {
      {whole.size() + 1, whole}, {whole.size(), base}, {base.size() + 1, base}, {base.size(), ""}};
  for (const auto& [size, path] : rows) {
    EXPECT_EQ(GetSharedFolder(SharedFolder::Favorite, MissingFolder::Leave, size), path);
  }
  g_documents.clear();
  EXPECT_EQ(GetSharedFolder(SharedFolder::Favorite, MissingFolder::Create), "");
}

TEST_F(FavoriteFolders, KeysAndExtensionComeFromTheStringTable) {
  EXPECT_EQ(LoadFavoriteKeys().pageSize, "PageSize=");
  EXPECT_EQ(GetFavoritePath("C:\\f", "name"), "C:\\f\\name.pfj");
  SetModuleInstance(::GetModuleHandleA("kernel32.dll"));  // has none of these strings
  EXPECT_EQ(LoadFavoriteKeys().comment, "");
  EXPECT_EQ(GetFavoritePath("C:\\f", "name"), "C:\\f\\name.pfj");
}

TEST_F(FavoriteFolders, FilesAreDeletedOnlyWhereTheyMayAndNotWhileInUse) {
  SettingSource entry;
  entry.name = "\x83\x70\x81\x5B\x83\x67 1";
  entry.folder = GetSharedFolder(SharedFolder::Favorite, MissingFolder::Create);
  const std::string path = GetFavoritePath(entry.folder, entry.name);
  CFavoriteFileManager files;
  ASSERT_TRUE(files.SaveFavoriteFromPath(entry, path.c_str()));

  const HANDLE user = ::CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  EXPECT_FALSE(files.SaveFavoriteFromPath(entry, path.c_str()));
  EXPECT_FALSE(DeleteFavorite(entry, true));
  ::CloseHandle(user);

  SettingSource elsewhere = entry;
  elsewhere.folder[0] ^= 'a' ^ 'A';  // compared as bytes
  EXPECT_FALSE(DeleteFavorite(elsewhere, true));
  EXPECT_TRUE(files.LoadFavoriteFromPath(entry, path.c_str()));
  EXPECT_TRUE(DeleteFavorite(elsewhere, false));
  EXPECT_FALSE(FavoriteFileExists(path.c_str()));
}

}  // namespace
}  // namespace zn
