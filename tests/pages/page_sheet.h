// A property sheet of the plug-in's four dialog pages over a sheet's data. The companion module is
// the stand-in beside the test program; message boxes, beeps and results are recorded.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "companion/call_counter.h"
#include "fake_driver_path.h"
#include "tests/session/sheet_fixture.h"

namespace zn::test {

enum PageIndex { kBasicPage, kTrayPage, kWatermarkPage, kJobPage };

struct ShownMessage {
  std::string text;
  std::string caption;
  UINT style;
};

class PageSheetTest : public SheetTest {
 public:
  // What happened since the test began.
  static inline std::vector<ShownMessage> messages;
  static inline int messageAnswer = IDOK;  // of the next ones
  static inline int beeps = 0;
  static inline std::vector<std::array<LPARAM, 3>> results;  // function, page handle, result

 protected:
  PageSheetTest();
  ~PageSheetTest() override;

  // Opens the sheet on a page; `withCompanion` false hides the companion module.
  void Open(PageIndex page, bool withCompanion = true);
  void Close();

  // Turns to a page as the user does; false when the page shown refuses to be left.
  bool Activate(PageIndex page);
  [[nodiscard]] virtual HWND Page() const;  // the page shown
  [[nodiscard]] HWND Control(int id) const { return ::GetDlgItem(Page(), id); }
  [[nodiscard]] std::string Text(int id) const;

  void Click(int id) const;
  void Choose(int listId, int index) const;  // selects an entry as the user does
  [[nodiscard]] int Selected(int listId) const;
  [[nodiscard]] LRESULT Count(int listId) const {
    return ::SendMessageA(Control(listId), CB_GETCOUNT, 0, 0);
  }
  [[nodiscard]] bool IsChecked(int id) const;
  [[nodiscard]] bool CanApply() const;  // the sheet knows of a change
  void Apply() const;
  // Does `open` and hands each dialog that it shows to the next of the steps, as soon as it is up;
  // a step has to close its dialog. All of them must have come up.
  void Drive(const std::vector<std::function<void(HWND dialog)>>& steps,
             const std::function<void()>& open) const;

  // What the page procedure answers to a message.
  [[nodiscard]] INT_PTR Ask(PageIndex page, UINT message, WPARAM wParam, LPARAM lParam) const;

  [[nodiscard]] std::uint32_t Current(KeywordId id) const { return sheet_->Current(id); }
  void SetSelections(KeywordId id, std::uint32_t defaultIndex, std::uint32_t currentIndex);

  companion::CallCounter calls_;
  std::vector<OPTTYPE> types_;  // by keyword

 private:
  HWND window_ = nullptr;
  FakeDriverPath driverPath_;
  ImportPatch box_, beep_;
};

// A text of the string table's encoding from a UTF-8 literal.
std::string Japanese(const char* utf8);

}  // namespace zn::test
