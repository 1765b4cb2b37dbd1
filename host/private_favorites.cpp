#include "host/private_favorites.h"

#include <filesystem>

#include "favorites/favorite_folders.h"
#include "host/base/dialog_driver.h"
#include "host/base/host_error.h"
#include "platform/resources.h"
#include "res/resource_ids.h"

namespace zn::host {
namespace {

constexpr UINT kTick = 10;  // milliseconds

std::string g_documents;  // what stands for the shared documents of the machine

BOOL WINAPI FindDocuments(HWND, LPSTR path, int, BOOL) {
  return ::lstrcpynA(path, g_documents.c_str(), MAX_PATH) != nullptr;
}

std::string PrivateFolder() {
  char folder[MAX_PATH] = "";
  ::GetTempPathA(MAX_PATH, folder);
  return folder + ("zn_favorites_" + std::to_string(::GetCurrentProcessId()));
}

}  // namespace

PrivateFavorites::PrivateFavorites(HMODULE plugIn)
    : own_(::GetModuleHandleA(nullptr), "SHGetSpecialFolderPathA", &FindDocuments),
      plugIn_(plugIn, "SHGetSpecialFolderPathA", &FindDocuments) {
  SetModuleInstance(plugIn);
  Enter("default");
}

PrivateFavorites::~PrivateFavorites() {
  std::error_code ignored;
  std::filesystem::remove_all(PrivateFolder(), ignored);
}

void PrivateFavorites::Enter(const std::string& set) {
  g_documents = PrivateFolder() + '\\' + set;
  folder_ = GetSharedFolder(SharedFolder::Favorite, MissingFolder::Create);
}

std::string PrivateFavorites::FileOf(const std::string& favorite) const {
  return GetFavoritePath(folder_, favorite);
}

void SaveFavorite(const PropertySheet& sheet, HWND page, const std::string& name) {
  bool isSaved = false;
  const auto save = [&](HWND dialog) {
    if (isSaved || ::GetDlgItem(dialog, IDC_FAVORITE_NAME) == nullptr) {
      RefuseDialog(dialog);  // a message: the favourite was not saved
      isSaved = false;
      return;
    }
    isSaved = true;
    ::SetDlgItemTextA(dialog, IDC_FAVORITE_NAME, name.c_str());
    ::SendDlgItemMessageA(dialog, IDOK, BM_CLICK, 0, 0);
  };
  DriveDialogs(sheet.Window(), kTick, save,
               [&] { ::SendDlgItemMessageA(page, IDC_SAVE_FAVORITE, BM_CLICK, 0, 0); });
  if (!isSaved) {
    throw HostError("the favourite " + name + " was not saved");
  }
}

}  // namespace zn::host
