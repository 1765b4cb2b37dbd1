// The basic page: favourites and the everyday layout settings.
#pragma once

#include "pages/commondlg.h"

namespace zn {

class CStandardPageDlg : public CCommonDlg {
 public:
  using CCommonDlg::CCommonDlg;
  [[nodiscard]] static const PageTable& Table() noexcept;

  int OnInitDialog(WPARAM wParam, PROPSHEETPAGEA* page) override;
  int OnCommand(WORD notifyCode, WORD controlId, HWND control) override;
  int OnSetActive() override;
  int OnKillActive() override;
  int Initialize(SheetContext* sheet, bool useDefault) override;
  int OnDrawItem(UINT controlId, DRAWITEMSTRUCT* item) override;
  int OnUser(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // The selected favourite's settings replace the current ones.
  void OnPresetSelChange(SheetContext& sheet) const;
};

}  // namespace zn
