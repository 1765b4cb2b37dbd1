#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include "platform/resources.h"

namespace {

// What the core driver's process does: the common controls are there, and the plug-in knows its
// module; here that is the test program, which carries the same resources.
class Process : public testing::Environment {
 public:
  void SetUp() override {
    const INITCOMMONCONTROLSEX classes{sizeof classes,
                                       ICC_USEREX_CLASSES | ICC_UPDOWN_CLASS | ICC_TAB_CLASSES};
    ASSERT_TRUE(::InitCommonControlsEx(&classes));
    zn::SetModuleInstance(::GetModuleHandleA(nullptr));
  }
};

const auto* const g_process = testing::AddGlobalTestEnvironment(new Process);

}  // namespace
