// The loops over a page's table: filling, showing, storing and restoring its controls. Selections
// are those of the sheet's option selection table; the low 16 bits are the option index.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bridge/companion.h"
#include "pages/page_table.h"
#include "profile/profile_info.h"

namespace zn {

// Where one filling takes its texts and the device's options from: each is loaded once, when it is
// first asked for.
class PageSources {
 public:
  explicit PageSources(const SheetContext& sheet) noexcept : sheet_(sheet) {}

  [[nodiscard]] const CompanionModule& Companion();
  [[nodiscard]] const CProfileInfo& Profile();

 private:
  const SheetContext& sheet_;
  std::optional<CompanionModule> companion_;
  std::unique_ptr<CProfileInfo> profile_;
};

class PageFrame {
 public:
  PageFrame(HWND page, SheetContext& sheet, const PageTable& table) noexcept
      : page_(page), sheet_(sheet), table_(table) {}

  [[nodiscard]] HWND Window() const noexcept { return page_; }
  [[nodiscard]] SheetContext& Sheet() const noexcept { return sheet_; }

  // Fills every control in the order of the rows and selects the current selection; with
  // `useDefault` the default one, which becomes the current one. False at the first control that
  // cannot be filled: those behind it keep their entries and show the current selections.
  bool Fill(bool useDefault);
  // Shows the current selections, availability marks included, and what can be used.
  void Show();
  void Show(KeywordId keyword) { Show(keyword, nullptr); }
  // Stores every control, without what a change brings along.
  void Store();
  // Stores the control that a command came from, and does what follows. False for a control that is
  // in no row, and when there is nothing to store.
  bool Command(WORD code, WORD id);
  // What no row has goes back to its default with the page.
  void RestoreOthers();

 private:
  bool Fill(const Control& row, PageSources& sources, bool useDefault);
  bool InitComboBox(const Control& row, PageSources& sources, std::uint32_t selection);
  bool InitRadioGroup(const Control& row, PageSources& sources, std::uint32_t selection);
  bool InitUpDown(const Control& row, std::uint32_t selection);
  // One image per entry, or none at all; nothing when the device cannot be asked.
  [[nodiscard]] std::optional<std::vector<int>> ImagesOf(const Control& row, PageSources& sources,
                                                         std::size_t count);
  [[nodiscard]] std::vector<std::string> NamesOf(const Control& row, PageSources& sources);
  void SetCaption(const Control& row, PageSources& sources, HWND label);
  // Selects what stands for the selection, if the row shows it.
  void Select(const Control& row, std::uint32_t selection);
  void Show(KeywordId keyword, const Control* except);
  bool Store(const Control& row, WORD code, WORD id);
  // The selection that the control shows now; nothing when it shows none that is stored.
  [[nodiscard]] std::optional<std::uint32_t> Read(const Control& row, WORD code, WORD id);
  void ResolveRestrictions(const Control& row, std::uint32_t before);
  void EnableControls();
  [[nodiscard]] HWND ControlOf(const Control& row) const noexcept;
  [[nodiscard]] const Control* RowOf(int id) const noexcept;
  [[nodiscard]] HWND Item(int id) const noexcept { return ::GetDlgItem(page_, id); }

  HWND page_;
  SheetContext& sheet_;
  const PageTable& table_;
};

}  // namespace zn
