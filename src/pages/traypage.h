// The tray and output page: paper source, output, sorting, staples and holes.
#pragma once

#include "pages/commondlg.h"

namespace zn {

class CTrayPageDlg : public CCommonDlg {
 public:
  using CCommonDlg::CCommonDlg;
  [[nodiscard]] static const PageTable& Table() noexcept;

  int OnInitDialog(WPARAM wParam, PROPSHEETPAGEA* page) override;
  int OnCommand(WORD notifyCode, WORD controlId, HWND control) override;
  int OnSetActive() override;
  int OnKillActive() override;
  int Initialize(SheetContext* sheet, bool useDefault) override;
  int OnDrawItem(UINT controlId, DRAWITEMSTRUCT* item) override;
};

}  // namespace zn
