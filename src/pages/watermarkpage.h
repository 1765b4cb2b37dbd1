// The watermark page: which of the registered watermarks, where, and in which order.
#pragma once

#include "pages/commondlg.h"

namespace zn {

class CWatermarkPageDlg : public CCommonDlg {
 public:
  // What the page procedure sets each time it builds the object.
  struct WatermarkLimits {
    std::int32_t orderChoices;
    std::int32_t lowestNumber;
    std::int32_t highestNumber;
  };
  static constexpr WatermarkLimits kLimits{3, 1, 100};

  CWatermarkPageDlg(HWND window, PlugInContext* context, WatermarkLimits limits) noexcept
      : CCommonDlg(window, context), limits_(limits) {}
  [[nodiscard]] static const PageTable& Table() noexcept;

  int OnInitDialog(WPARAM wParam, PROPSHEETPAGEA* page) override;
  int OnCommand(WORD notifyCode, WORD controlId, HWND control) override;
  int OnSetActive() override;
  int OnKillActive() override;
  int Initialize(SheetContext* sheet, bool useDefault) override;

 private:
  WatermarkLimits limits_;  // belong to the object's layout; the table has them, too
};

}  // namespace zn
