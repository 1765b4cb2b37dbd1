// CCommonDlg: the base of every page, and itself the job page. A page object lives for one window
// message; all lasting state is in the SheetContext that the window keeps in DWLP_USER.
#pragma once

#include "platform/driver_interfaces.h"

#include "pages/page_table.h"
#include "session/plugin_context.h"

namespace zn {

class CompanionModule;

class CCommonDlg {
 public:
  CCommonDlg(HWND window, PlugInContext* context) noexcept : window_(window), context_(context) {}

  // What stands on the page; each page has a table of its own.
  [[nodiscard]] static const PageTable& Table() noexcept;
  // To be called when the mouse is over the page.
  void OnMouse(const PageTable& table) const;

  // Hands a window message to the operation that handles it; the result is the dialog result.
  INT_PTR DlgProc(UINT message, WPARAM wParam, LPARAM lParam);

  // The operations, in slot order. No virtual destructor: it would shift the slots. Those that
  // work on the sheet do nothing and answer 0 before the window has its sheet.
  virtual int OnInitDialog(WPARAM wParam, PROPSHEETPAGEA* page);
  virtual int OnNotify(NMHDR* notification);
  virtual int OnCommand(WORD notifyCode, WORD controlId, HWND control);
  virtual int OnApply(bool applyButtonOnly);
  virtual int OnSetActive();
  virtual int OnKillActive();
  // Fills every control of the page, with the defaults or with the current selections; answers 0
  // at the first control that cannot be filled.
  virtual int Initialize(SheetContext* sheet, bool useDefault);
  virtual int OnDrawItem(UINT controlId, DRAWITEMSTRUCT* item);
  virtual int OnClose();
  virtual int OnUser(UINT message, WPARAM wParam, LPARAM lParam);

 protected:
  // Null before WM_INITDIALOG and for a page that got no sheet.
  [[nodiscard]] SheetContext* Sheet() const noexcept;
  // Stores the sheet of the PROPSHEETPAGE in the window; null when there is none, and when the
  // window has one already.
  SheetContext* AttachSheet(const PROPSHEETPAGEA* page) const noexcept;
  // What a page that is a table answers. Activate: the page becomes the active one and shows the
  // current selections. Commit: for pages that store every change at once, leaving them writes the
  // selections to the session. The command of the restore button fills the page by slot 6.
  int Fill(const PageTable& table, SheetContext* sheet, bool useDefault) const;
  int Activate(const PageTable& table) const;
  int Commit() const;
  int Command(const PageTable& table, WORD notifyCode, WORD controlId);
  int DrawIllustrationOf(const PageTable& table, UINT controlId, const DRAWITEMSTRUCT* item) const;
  void MakeActivePage(SheetContext& sheet) const noexcept { sheet.activePage = window_; }
  [[nodiscard]] HWND Control(int id) const noexcept { return ::GetDlgItem(window_, id); }
  // Tells the sheet that there is something to apply.
  void NotifyChanged() const noexcept;
  void Redraw() const noexcept { ::InvalidateRect(window_, nullptr, TRUE); }
  // What the sheet is told as the result of the current notification.
  void SetResult(LONG_PTR result) const noexcept {
    ::SetWindowLongPtrA(window_, DWLP_MSGRESULT, result);
  }

  HWND window_;
  PlugInContext* context_;
  void* reserved_[2] = {};  // null; they belong to the object's layout

 private:
  // The job page (jobpage.cpp) beyond its table.
  void InitJobName(SheetContext& sheet, const CompanionModule& companion) const;
  // Keeps the job name within its 255 bytes; false when the text is what was accepted last.
  bool GuardJobName() const;
  // Stores mode and name; false after telling the user that the name is too short or too long.
  bool ApplyJobName(SheetContext& sheet) const;
};

}  // namespace zn
