// CAdvancedSettingPageDlg: the tree of advanced settings that the common property sheet UI draws.
// The published records are process-wide and belong to the sheet that was prepared last.
#pragma once

#include "platform/driver_interfaces.h"

#include "session/sheet_context.h"

namespace zn {

class CAdvancedSettingPageDlg {
 public:
  // Fills labels, option names, selections and the record that is handed to the core driver.
  static COMPROPSHEETUI* Prepare(SheetContext& sheet);

  // The tree's callback; answers a CPSUICB_ACTION_ value.
  static LONG CALLBACK TreeViewProc(CPSUICBPARAM* parameters) noexcept;

 private:
  static void InitSel(const SheetContext& sheet, OPTITEM* items, bool reload);
  static void StoreSelection(SheetContext& sheet, const OPTITEM& item);
};

}  // namespace zn
