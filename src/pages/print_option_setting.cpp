#include "pages/print_option_setting.h"

#include <string>

#include "bridge/companion.h"
#include "ddb/password.h"
#include "favorites/sheet_favorites.h"

namespace zn {
namespace {

// A password that the dialog scrambled is marked.
template <class Password>
void Unscramble(Password& password) {
  if (password.set != 0) {
    ddb::UnscramblePassword(password.text);
    password.set = 0;
  }
}

void CopyPath(char (&buffer)[kCompanionPathSize], std::string_view path) {
  buffer[path.copy(buffer, sizeof buffer - 1)] = '\0';
}

}  // namespace

bool RunPrintOptionSetting(SheetContext& sheet, HWND owner) {
  std::string driverFolder;
  const CompanionModule companion(sheet.hPrinter, &driverFolder);
  if (!companion) {
    return false;
  }
  SheetFavorites& favorites = SheetFavorites::Of(sheet);
  SettingSource working = favorites.Current();
  SettingSource reference = favorites.Defaults();
  PrintOptionSettingTexts texts{};
  CopyPath(texts.recordName, sheet.jobValues.GetText(devmode::kFavoriteName));
  CopyPath(texts.favoriteFolder, favorites.List().Folder());
  CopyPath(texts.driverFolder, driverFolder);
  CopyPath(texts.profile, {sheet.deviceProfilePath,
                           ::strnlen(sheet.deviceProfilePath, sizeof sheet.deviceProfilePath)});
  if (!companion.PrintOptionSetting(working.option, reference.option, texts, owner)) {
    return false;
  }
  Unscramble(working.option.m_Body.SP_FMPAS);
  Unscramble(working.option.m_Body.USR_SCPS);
  working.pageSizeName.clear();  // the dialog knows papers by their codes only
  SheetSettings settings = SettingsOf(sheet);
  Apply(working, Reach::Record, settings);
  favorites.Current().option = working.option;
  CopyPath(sheet.deviceProfilePath, texts.profile);
  return true;
}

}  // namespace zn
