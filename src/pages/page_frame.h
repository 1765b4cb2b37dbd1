// The loops over a page's table: filling, showing, storing and restoring its controls. Selections
// are those of the sheet's option selection table; the low 16 bits are the option index.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "pages/page_sources.h"
#include "pages/page_table.h"

namespace zn {

class PageFrame {
 public:
  PageFrame(HWND page, SheetContext& sheet, const PageTable& table) noexcept
      : page_(page), sheet_(sheet), table_(table) {}

  [[nodiscard]] HWND Window() const noexcept { return page_; }
  [[nodiscard]] SheetContext& Sheet() const noexcept { return sheet_; }

  // Fills every control in the order of the rows and selects the current selection; with
  // `useDefault` the default one, which becomes the current one, and in the end what else the page
  // restores. False at the first control that cannot be filled; those behind it stay as they are.
  bool Fill(bool useDefault);
  // Fills the controls of one keyword anew.
  void Refill(KeywordId keyword);
  // Shows the current selections, the images and marks that depend on others, and what can be used.
  void Show();
  void Show(KeywordId keyword) { Show(keyword, nullptr); }
  // Stores every control, without what a change brings along.
  void Store();
  // Stores the control that a command came from and does what follows, or presses the button. False
  // when nothing has changed: the page itself set the control, or the button changes nothing.
  bool Command(WORD code, WORD id);
  // Explains the controls that need it.
  void ShowTips();
  // Does what follows a change of the settings.
  void Changed() {
    if (table_.changed != nullptr) {
      table_.changed(*this);
    }
  }

 private:
  bool Fill(const ControlRow& row, PageSources& sources, bool useDefault);
  bool InitComboBox(const ControlRow& row, PageSources& sources, std::uint32_t selection);
  bool InitRadioGroup(const ControlRow& row, PageSources& sources, std::uint32_t selection);
  bool InitUpDown(const ControlRow& row);
  // One image per entry, or none at all; nothing when the device cannot be asked.
  [[nodiscard]] std::optional<std::vector<int>> ImagesOf(const ControlRow& row,
                                                         PageSources& sources, std::size_t count);
  // Gives the entries their images of now.
  void ShowImages(const ControlRow& row, PageSources& sources);
  [[nodiscard]] std::vector<std::string> NamesOf(const ControlRow& row, PageSources& sources);
  void SetCaption(const ControlRow& row, PageSources& sources, HWND label);
  [[nodiscard]] bool IsPresent(const ControlRow& row) const {
    return row.present == nullptr || row.present(sheet_);
  }
  // Selects what stands for the selection, if the row shows it.
  void Select(const ControlRow& row, std::uint32_t selection);
  void Show(KeywordId keyword, const ControlRow* except);
  // The current selections of the row's keyword and of the one that it is paired with.
  [[nodiscard]] SelectionPair PairOf(const ControlRow& row) const;
  void SelectPair(const ControlRow& row);
  // The command that a control's reading answers; nothing when all are read.
  struct Event {
    WORD code;
    WORD id;
  };
  bool Store(const ControlRow& row, const Event* event);
  // The selection that the control shows now; nothing when it shows none that is stored.
  [[nodiscard]] std::optional<std::uint32_t> Read(const ControlRow& row, const Event* event);
  void ResolveRestrictions(const ControlRow& row, SelectionPair before);
  void ShowSelections();
  void EnableControls();
  void RedrawIllustration();
  [[nodiscard]] bool HasWindows(const ControlRow& row) const noexcept;
  [[nodiscard]] HWND ControlOf(const ControlRow& row) const noexcept;
  [[nodiscard]] const ControlRow* RowOf(int id) const noexcept;
  [[nodiscard]] HWND Item(int id) const noexcept;

  HWND page_;
  SheetContext& sheet_;
  const PageTable& table_;
  // In their order; asked for at the first use.
  mutable std::vector<HWND> controls_;
};

}  // namespace zn
