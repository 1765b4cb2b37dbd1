// The dialog "PostScript カスタム ページ サイズの定義": the custom paper size and its feed
// direction.
#pragma once

#include <windows.h>

#include <cstdint>

#include "pages/custom_size.h"
#include "pages/modal_dialog.h"
#include "res/resource_ids.h"
#include "session/sheet_context.h"

namespace zn {

class CCustomPageEditDlg : public ModalDialog {
 public:
  explicit CCustomPageEditDlg(SheetContext* sheet) noexcept : sheet_(sheet) {}

  // Shows the dialog over the active window. IDC_CUSTOM_OK: size and direction are stored in the
  // option selection table; IDC_CUSTOM_CANCEL: nothing is.
  virtual int DoModal();
  // 0 when the direction list is missing.
  virtual int OnInitDialog();
  virtual int OnCommand(WORD notifyCode, WORD controlId, HWND control);

 private:
  bool InitPaperDirection();
  bool SelectDirection(bool useDefault) const;
  [[nodiscard]] bool IsTurned() const noexcept;
  [[nodiscard]] std::uint32_t Entered(Dimension dimension) const;
  void ShowSize() const;
  void UpdateMaxBorderValue();
  void UpdatePaperDirection() const;
  void OnEdit(Dimension dimension);
  void OnUnit(PaperUnit unit);
  void OnDefaults();
  // False when the dialog has to stay open.
  bool ApplyValues();

  SheetContext* sheet_;
  std::uint32_t templateId_ = IDD_CUSTOM_PAGE_SIZE;
  CustomSize size_;
};

}  // namespace zn
