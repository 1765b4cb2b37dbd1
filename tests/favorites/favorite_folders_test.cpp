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

struct FolderRow {
  SharedFolder folder;
  const char* behindBase;
};
constexpr FolderRow kFolders[] = {{SharedFolder::Base, ""},
                                  {SharedFolder::Favorite, "\\favorite"},
                                  {SharedFolder::SpotColor, "\\SpotColor"},
                                  {SharedFolder::SpotColorUser, "\\SpotColor\\User"},
                                  {SharedFolder::Profile, "\\profile"}};

TEST_F(FavoriteFolders, LieInTheCommonDocuments) {
  const std::string base = g_documents + "\\Zentrik\\Quorra QR\\LM5050";
  for (const FolderRow& row : kFolders) {
    EXPECT_EQ(GetSharedFolder(row.folder), base + row.behindBase);
    EXPECT_EQ(g_folderAsked, 46);
    EXPECT_FALSE(FavoriteFileExists(base.c_str()));
  }
  for (const FolderRow& row : kFolders) {
    const std::string made = GetSharedFolder(row.folder, MissingFolder::Create);
    EXPECT_TRUE(FavoriteFileExists(made.c_str())) << made;
  }
}

TEST_F(FavoriteFolders, LieInTheWindowsFolderOfOlderSystems) {
  g_majorVersion = 5;
  EXPECT_EQ(GetSharedFolder(SharedFolder::Favorite),
            "W:\\windows\\Zentrik\\Quorra QR\\LM5050\\favorite");
}

TEST_F(FavoriteFolders, KeepWithinTheBuffer) {
  const std::string base = GetSharedFolder(SharedFolder::Base);
  const std::size_t whole = base.size() + std::strlen("\\favorite") + 1;
  EXPECT_EQ(GetSharedFolder(SharedFolder::Favorite, MissingFolder::Leave, whole),
            base + "\\favorite");
  EXPECT_EQ(GetSharedFolder(SharedFolder::Favorite, MissingFolder::Leave, whole - 1), base);
  EXPECT_EQ(GetSharedFolder(SharedFolder::Favorite, MissingFolder::Leave, base.size() + 1), base);
  EXPECT_EQ(GetSharedFolder(SharedFolder::Favorite, MissingFolder::Leave, base.size()), "");
  g_documents.clear();
  EXPECT_EQ(GetSharedFolder(SharedFolder::Favorite, MissingFolder::Create), "");
}

TEST_F(FavoriteFolders, KeysAndExtensionComeFromTheStringTable) {
  EXPECT_EQ(LoadFavoriteKeys().comment, "Comment=");
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
  SettingSource elsewhere = entry;
  elsewhere.folder = temp_.Path();
  CFavoriteFileManager files(LoadFavoriteKeys());
  for (const SettingSource* each : {&entry, &elsewhere}) {
    const std::string path = GetFavoritePath(each->folder, each->name);
    ASSERT_TRUE(files.SaveFavoriteFromPath(*each, path.c_str()));
  }
  EXPECT_FALSE(DeleteFavorite(elsewhere, true));
  EXPECT_TRUE(FavoriteFileExists(GetFavoritePath(elsewhere.folder, elsewhere.name).c_str()));
  EXPECT_TRUE(DeleteFavorite(elsewhere, false));

  const std::string path = GetFavoritePath(entry.folder, entry.name);
  const HANDLE user = ::CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  SettingSource changed = entry;
  changed.comment = "new";
  EXPECT_FALSE(files.SaveFavoriteFromPath(changed, path.c_str()));
  EXPECT_FALSE(DeleteFavorite(entry, true));
  ::CloseHandle(user);
  EXPECT_TRUE(files.LoadFavoriteFromPath(changed, path.c_str()));
  EXPECT_EQ(changed.comment, "");

  entry.folder[0] ^= 'a' ^ 'A';  // compared as bytes
  EXPECT_FALSE(DeleteFavorite(entry, true));
  entry.folder[0] ^= 'a' ^ 'A';
  EXPECT_TRUE(DeleteFavorite(entry, true));
  EXPECT_FALSE(FavoriteFileExists(path.c_str()));
}

}  // namespace
}  // namespace zn
