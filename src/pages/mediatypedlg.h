// The dialogs for the paper of a job: its type, weight and colour, for the automatic tray and for
// the manual feed. They change the sheet's option selection table, and only on OK.
#pragma once

#include "platform/driver_interfaces.h"

#include <cstdint>
#include <string>
#include <vector>

#include "pages/modal_dialog.h"
#include "session/plugin_context.h"

namespace zn {

class PageSources;

// What both dialogs do.
class CMediaTypeDlg : public ModalDialog {
 public:
  // Shows the dialog over the active window until it is closed. IDOK: the selections are stored.
  // IDCANCEL, or -1 when the dialog cannot be shown: the sheet is as it was.
  INT_PTR DoModal();

  // The operations, in slot order. No virtual destructor: it would shift the slots. They answer 0
  // on failure: a control is missing or, for ApplyValues, a question has no answer.
  virtual int OnInitDialog();
  virtual int OnCommand(WORD notifyCode, WORD controlId, HWND control);
  virtual int RestoreDefaults();  // shows them
  virtual int ApplyValues();      // may leave the table changed on failure, too
  virtual int OnButton(WORD id);
  virtual int OnSelChange(WORD id);

 protected:
  struct Keywords {
    KeywordId type;
    KeywordId weight;
    KeywordId takeOver;  // of the automatic tray's settings; 0: the dialog does not offer it
    KeywordId color;
  };
  CMediaTypeDlg(SheetContext& sheet, PlugInContext* context, const Keywords& keywords,
                std::uint32_t templateId) noexcept
      : sheet_(&sheet), context_(context), keywords_(keywords), templateId_(templateId) {}

  // Both fill the three lists: with the current selections, with the defaults.
  bool FillLists(PageSources& sources) const;
  void ShowDefaults(PageSources& sources) const;
  // Fills the list of weights for the selected type; does nothing when none is selected.
  void UpdateMediaTypeWeight(PageSources& sources, bool useDefault) const;
  // Disables the list of weights while it is empty, and all lists while the automatic tray's
  // settings take their place.
  void EnableLists() const;

  SheetContext* sheet_;
  PlugInContext* context_;

 private:
  [[nodiscard]] bool HasControls() const noexcept;
  [[nodiscard]] std::vector<std::string> TypeNames(PageSources& sources) const;
  void SelectCurrentType(PageSources& sources) const;

  Keywords keywords_;
  std::uint32_t templateId_;
  std::uint32_t maxCustomNames_ = 20;

 protected:
  bool isFilled_ = false;  // else OK would take what no control shows
};

class CMediaTypeDlgAutoTrayMarzipan final : public CMediaTypeDlg {
 public:
  CMediaTypeDlgAutoTrayMarzipan(SheetContext& sheet, PlugInContext* context) noexcept;
};

// Has manual duplex besides, and can take over the automatic tray's settings.
class CMediaTypeBypassTrayDlgMarzipan final : public CMediaTypeDlg {
 public:
  CMediaTypeBypassTrayDlgMarzipan(SheetContext& sheet, PlugInContext* context) noexcept;

  int OnInitDialog() override;
  int RestoreDefaults() override;
  int ApplyValues() override;
  int OnButton(WORD id) override;

 private:
  void InitManualFeedDuplex(PageSources& sources, bool useDefault) const;
  // False when the box does not show it.
  bool CheckTakeOver(bool isChecked) const;
};

}  // namespace zn
