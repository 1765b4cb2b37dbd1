#include "favorites/favorite_folders.h"

#include <shlobj.h>

#include <array>

#include "platform/resources.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

constexpr std::string_view kModel = "LM5050";
constexpr std::string_view kFavorite = "favorite";
constexpr int kMaxKey = 9;                      // bytes
constexpr DWORD kFirstWithCommonDocuments = 6;  // major version

std::string_view SubFolder(SharedFolder folder) {
  switch (folder) {
    case SharedFolder::Favorite:
      return kFavorite;
    case SharedFolder::SpotColor:
      return "SpotColor";
    case SharedFolder::SpotColorUser:
      return "SpotColor\\User";
    case SharedFolder::Profile:
      return "profile";
    default:
      return {};
  }
}

bool HasCommonDocuments() {
  OSVERSIONINFOA version{};
  version.dwOSVersionInfoSize = sizeof version;
  return ::GetVersionExA(&version) != 0 && version.dwPlatformId == VER_PLATFORM_WIN32_NT &&
         version.dwMajorVersion >= kFirstWithCommonDocuments;
}

// Empty when Windows names no folder.
std::string MachineFolder() {
  std::array<char, MAX_PATH> path{};
  if (HasCommonDocuments()) {
    const BOOL found =
        ::SHGetSpecialFolderPathA(nullptr, path.data(), CSIDL_COMMON_DOCUMENTS, TRUE);
    return found != FALSE ? path.data() : "";
  }
  const UINT size = ::GetWindowsDirectoryA(path.data(), static_cast<UINT>(path.size()));
  return size < path.size() ? path.data() : "";
}

void AppendTo(std::string& path, std::string_view name) {
  path.append(1, '\\').append(name);
}

// An open search.
class FileSearch {
 public:
  explicit FileSearch(const char* path) : handle_(::FindFirstFileA(path, &found_)) {}
  ~FileSearch() {
    if (Found()) {
      ::FindClose(handle_);
    }
  }
  FileSearch(const FileSearch&) = delete;
  FileSearch& operator=(const FileSearch&) = delete;

  [[nodiscard]] bool Found() const { return handle_ != INVALID_HANDLE_VALUE; }
  // A plain one: a link would lead to what its maker chose.
  [[nodiscard]] bool IsFile() const {
    constexpr DWORD kOther = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE;
    const bool isLink = (found_.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
                        IsReparseTagNameSurrogate(found_.dwReserved0);
    return (found_.dwFileAttributes & kOther) == 0 && !isLink;
  }
  [[nodiscard]] std::string_view Name() const { return found_.cFileName; }
  bool Next() { return ::FindNextFileA(handle_, &found_) != FALSE; }

 private:
  WIN32_FIND_DATAA found_{};
  HANDLE handle_;
};

}  // namespace

std::string GetSharedFolder(SharedFolder folder, MissingFolder missing, std::size_t bufferSize) {
  std::string path = MachineFolder();
  if (path.empty()) {
    return {};
  }
  AppendTo(path, LoadResourceString(IDS_FAVORITE_FOLDER));
  AppendTo(path, kModel);
  if (path.size() >= bufferSize) {
    return {};
  }
  const std::string_view sub = SubFolder(folder);
  // All variants measure "favorite": their callers' buffers are sized by it.
  const bool hasRoom = bufferSize - kFavorite.size() > sub.size() + 1;
  if (!sub.empty() && hasRoom && path.size() + 1 + sub.size() < bufferSize) {
    AppendTo(path, sub);
  }
  if (missing == MissingFolder::Create) {
    ::SHCreateDirectoryExA(nullptr, path.c_str(), nullptr);
  }
  return path;
}

FavoriteKeys LoadFavoriteKeys() {
  return {LoadResourceString(IDS_FAVORITE_COMMENT_KEY, kMaxKey),
          LoadResourceString(IDS_FAVORITE_PAGE_SIZE_KEY, kMaxKey)};
}

std::string GetFavoriteExtension() {
  std::string extension = LoadResourceString(IDS_FAVORITE_EXTENSION);
  return extension.empty() ? ".pfj" : extension;
}

std::string GetFavoritePath(std::string_view folder, std::string_view name) {
  std::string path(folder);
  AppendTo(path, name);
  return path.append(GetFavoriteExtension());
}

bool DeleteFavorite(const SettingSource& entry, bool onlyInSharedFolder) {
  if (onlyInSharedFolder && entry.folder != GetSharedFolder(SharedFolder::Favorite)) {
    return false;
  }
  return ::DeleteFileA(GetFavoritePath(entry.folder, entry.name).c_str()) != FALSE;
}

std::vector<std::string> ListFavoriteFiles(std::string_view folder) {
  constexpr char kUnspelled = '?';  // also what stands for a character without a spelling
  std::vector<std::string> names;
  FileSearch search(GetFavoritePath(folder, "*").c_str());
  for (bool more = search.Found(); more; more = search.Next()) {
    if (search.IsFile() && search.Name().find(kUnspelled) == std::string_view::npos) {
      names.emplace_back(search.Name());
    }
  }
  return names;
}

bool FavoriteFileExists(const char* path) {
  return FileSearch(path).Found();
}

}  // namespace zn
