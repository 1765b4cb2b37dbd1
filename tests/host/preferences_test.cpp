// The printing preferences from control to core driver and settings block, on the shipped DLL.
#include "devmode/devmode.h"
#include "host/base/host_ids.h"
#include "host/driver/report.h"
#include "keywords/keyword_ids.h"
#include "res/resource_ids.h"
#include "tests/host/host_fixture.h"

namespace zn::test {
namespace {

using host::DocumentSheet;
using host::QueueDevMode;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

constexpr char kJobNameText[] = "\x8C\x8E\x8E\x9F\x95\xF1\x8D\x90";  // "monthly report"
constexpr int kGray = 1;                                             // of the colour modes

class PreferencesTest : public HostTest {
 protected:
  std::string Report(DocumentSheet& sheet, const QueueDevMode& kept) {
    return host::SheetReport(sheet, plugIn_->Helper(), kept);
  }
};

TEST_F(PreferencesTest, ChangesAreHandedOn) {
  const auto sheet = Open(Defaults());
  ASSERT_EQ(sheet->Sheet().PageCount(), kPages);
  const HWND jobPage = sheet->Sheet().ShowPage(kJobPage);
  Choose(jobPage, IDC_JOB_COLOR_MODE, kGray);
  Choose(jobPage, IDC_JOB_PRINTER_MODE, 2);
  Click(jobPage, IDC_JOB_SPOOL_AFTER_PRINT);
  Click(jobPage, IDC_JOB_NAME_ENTERED);
  Enter(jobPage, IDC_JOB_NAME, kJobNameText);
  sheet->Sheet().PressOk();
  EXPECT_TRUE(sheet->Sheet().EndedWithOk());
  EXPECT_EQ(sheet->Sheet().Result(), static_cast<DWORD>(CPSUI_OK));
  QueueDevMode kept = sheet->Finish();
  const std::string report = Report(*sheet, kept);
  const auto options =
      UnorderedElementsAre("ColorModel: CMYK -> Gray", "ZNPrinterMode: Option0 -> Option2",
                           "ZNSpoolOption: Option0 -> Option1");
  EXPECT_THAT(Lines(report, "update"), options);
  EXPECT_THAT(Lines(report, "option"), options);
  EXPECT_THAT(Lines(report, "fault:"), IsEmpty());
  EXPECT_EQ(kept.Private().block.GetDWord(devmode::kJobNameMode), 1u);
  EXPECT_EQ(kept.Private().block.GetText(devmode::kJobName), kJobNameText);
}

TEST_F(PreferencesTest, DriverNoticesWhatItWasNotTold) {
  const auto sheet = Open(Defaults());
  sheet->Items().Find("ZNFold")->Sel = 1;
  sheet->Sheet().PressOk();
  EXPECT_THAT(Lines(Report(*sheet, sheet->Finish()), "fault:"),
              ElementsAre("ZNFold changed without DrvUpdateUISetting"));
}

// The tree item whose text begins with `label`.
HTREEITEM FindNode(HWND tree, HTREEITEM node, const std::string& label) {
  for (; node != nullptr; node = TreeView_GetNextSibling(tree, node)) {
    if (TreeItemText(tree, node).starts_with(label)) {
      return node;
    }
    if (const HTREEITEM found = FindNode(tree, TreeView_GetChild(tree, node), label)) {
      return found;
    }
  }
  return nullptr;
}

TEST_F(PreferencesTest, TreeEditsReachTheDriver) {
  const auto sheet = Open(Defaults());
  const HWND page = sheet->Sheet().ShowPage(kTreePage);
  const HWND tree = ::GetDlgItem(page, IDC_TREE);
  const HTREEITEM scale =
      FindNode(tree, TreeView_GetRoot(tree), "\x8A\x67\x91\xE5\x8F\x6B\x8F\xAC: 100");
  ASSERT_NE(scale, nullptr);
  TreeView_SelectItem(tree, scale);
  Enter(page, IDC_TREE_NUMBER, "1001");  // beyond the range: cannot be entered
  Enter(page, IDC_TREE_NUMBER, "150");
  ASSERT_NE(sheet->Sheet().ShowPage(kBasicPage), nullptr);
  sheet->Sheet().PressOk();
  const std::string report = Report(*sheet, sheet->Finish());
  EXPECT_THAT(Lines(report, "update"), ElementsAre("%Scaling: 100 -> 150"));
  EXPECT_THAT(Lines(report, "option"), ElementsAre("%Scaling: 100 -> 150"));
}

}  // namespace
}  // namespace zn::test
