// A queue of the tests' own with the sample printer's files, and hands for a sheet's controls.
#pragma once

#include <windows.h>
// This must come behind windows.h.
#include <commctrl.h>

#include <memory>
#include <string>

#include "gmock/gmock.h"
#include "host/driver/document_sheet.h"
#include "host/driver/plug_in.h"
#include "host/driver/queue.h"

namespace zn::test {

class HostTest : public ::testing::Test {
 protected:
  // Pages in the order of the sheet.
  enum Page { kBasicPage, kTrayPage, kWatermarkPage, kTreePage, kJobPage, kPages };

  static void SetUpTestSuite();
  static void TearDownTestSuite();

  HostTest();
  ~HostTest() override;

  [[nodiscard]] host::QueueDevMode Defaults() const;
  [[nodiscard]] std::unique_ptr<host::DocumentSheet> Open(const host::QueueDevMode& start) const;

  std::unique_ptr<host::Queue> queue_;
  std::unique_ptr<host::PlugIn> plugIn_;
};

// What a user does to a control; the page is told as the control would tell it.
void Choose(HWND page, int list, int index);
void Click(HWND page, int button);
void Enter(HWND page, int edit, const char* text);

[[nodiscard]] std::string TextOf(HWND page, int control);

}  // namespace zn::test
