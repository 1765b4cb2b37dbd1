// The two dialogs of the option companion, behind its exports of the same names.
#pragma once

#include <windows.h>

#include "bridge/companion_abi.h"
#include "ddb/print_option.h"

namespace zn::companion {

struct OptionSettingCall {
  ddb::CPrintOption* working;
  ddb::CPrintOption* reference;
  const char* recordName;
  char* profile;  // kPathSize bytes, in and out
  HWND owner;
};

// IDOK when `working` and the profile were changed, else IDCANCEL or 0.
[[nodiscard]] int RunOptionSettingDialog(const OptionSettingCall& call);

struct FavoriteSummaryCall {
  companion_abi::FavoriteSummaryEntry* favorites;  // `count` of them
  int count;
  int* selection;  // in and out; -1: the standard settings
  ddb::CPrintOption* defaults;
  char* name;             // kPathSize bytes, in and out
  std::uint8_t* deleted;  // 1 for each removed row
  HWND owner;
  HWND page;  // fills the rows of the settings tree
};

[[nodiscard]] int RunFavoriteSummaryDialog(const FavoriteSummaryCall& call);

}  // namespace zn::companion
