#include "pages/print_option_setting.h"

#include <string>

#include "bridge/companion.h"
#include "ddb/password.h"
#include "favorites/sheet_favorites.h"
#include "session/job_values.h"

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
  CopyText(texts.recordName, sheet.jobValues.GetText(devmode::kFavoriteName));
  CopyText(texts.favoriteFolder, favorites.List().Folder());
  CopyText(texts.driverFolder, driverFolder);
  CopyText(texts.profile, DeviceProfileOf(sheet));
  if (!companion.PrintOptionSetting(working.option, reference.option, texts, owner)) {
    return false;
  }
  Unscramble(working.option.m_Body.SP_FMPAS);
  Unscramble(working.option.m_Body.USR_SCPS);
  working.pageSizeName.clear();  // the dialog knows papers by their codes only
  Apply(working, Reach::Record, favorites.Settings());
  favorites.Current().option = working.option;
  SetDeviceProfile(sheet, TextOf(texts.profile));
  return true;
}

}  // namespace zn
