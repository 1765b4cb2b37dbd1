// The host's own common property-sheet UI: takes the pages that a plug-in adds through the
// published callback and shows them in a property sheet of the common controls.
#pragma once

#include "platform/driver_interfaces.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/window/tree_page.h"

namespace zn::host {

class PropertySheet {
 public:
  PropertySheet();
  ~PropertySheet();
  PropertySheet(const PropertySheet&) = delete;
  PropertySheet& operator=(const PropertySheet&) = delete;

  // What a page function is told: the sheet's handle and callback, with `reason` 0.
  [[nodiscard]] PROPSHEETUI_INFO Info(LPARAM lParamInit);

  // Adds a page as a page function would.
  void AddPage(const PROPSHEETPAGEA& record);

  // Called after an Apply or OK that every page accepted.
  void SetApplied(std::function<void()> applied) { applied_ = std::move(applied); }

  [[nodiscard]] int PageCount() const { return static_cast<int>(pages_.size()); }

  // Shows the sheet and its first page. Throws HostError without pages or window.
  void Open(const std::string& title);
  [[nodiscard]] HWND Window() const { return window_; }
  [[nodiscard]] bool IsOpen() const;
  // Whether the user ended it with OK. For a sheet that is not open any longer.
  [[nodiscard]] bool EndedWithOk() const { return endedWithOk_; }
  // The latest result that the pages reported; CPSUI_CANCEL before the first.
  [[nodiscard]] DWORD Result() const { return result_; }
  // How many times pages reported a result.
  [[nodiscard]] int ResultReports() const { return resultReports_; }

  // Handles the messages that are waiting. Ends the sheet's window when the user closed it.
  void Pump();
  // Pumps until the user closes the sheet.
  void Run();
  // Ends an open sheet as Cancel does.
  void Close();

  // Shows a page and answers its window; null when the current page refuses to be left.
  HWND ShowPage(int index);
  [[nodiscard]] HWND CurrentPage() const;
  [[nodiscard]] std::string PageTitle(int index) const;
  // As the user would: the sheet may stay open when a page refuses.
  void PressOk();
  void PressApply();
  void PressCancel();

 private:
  struct Page {
    std::string title;              // empty: the template's
    std::vector<std::byte> record;  // of a dialog page: the PROPSHEETPAGEA as it was handed over
    std::unique_ptr<TreePage> tree;
    HPROPSHEETPAGE created = nullptr;  // of a page that came as a handle
  };

  static LONG_PTR CALLBACK ComPropSheet(HANDLE sheet, UINT function, LPARAM lParam1,
                                        LPARAM lParam2);
  static LRESULT CALLBACK SheetProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                         UINT_PTR id, DWORD_PTR self);

  LONG_PTR OnFunction(UINT function, LPARAM lParam1, LPARAM lParam2);
  LONG_PTR Insert(Page page, std::size_t position);
  LONG_PTR AddDialogPage(const PROPSHEETPAGEA* record, std::size_t position);
  LONG_PTR AddTreePage(const COMPROPSHEETUI* record, std::size_t position);
  LONG_PTR InsertPage(LONG_PTR beside, INSERTPSUIPAGE_INFO* insert);
  LONG_PTR SetResult(LPARAM page, DWORD result);
  [[nodiscard]] std::size_t PositionOf(LONG_PTR page) const;
  void PressButton(int button);
  void Applied();
  void Destroy();

  std::vector<std::unique_ptr<Page>> pages_;  // a page's handle is its address
  std::function<void()> applied_;
  HWND window_ = nullptr;
  DWORD result_ = CPSUI_CANCEL;
  int resultReports_ = 0;
  bool endedWithOk_ = false;
};

}  // namespace zn::host
