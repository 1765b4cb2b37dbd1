// The stand-in's favourites summary, called through the bridge as the basic page calls it.
#include <array>
#include <memory>

#include "bridge/companion.h"
#include "companion/companion_ids.h"
#include "ddb/print_option.h"
#include "keywords/keyword_ids.h"
#include "platform/resources.h"
#include "tests/host/dialog_driver.h"
#include "tests/host/host_fixture.h"

namespace zn::test {
namespace {

using ::testing::ElementsAre;

constexpr companion_abi::SummaryItem kItems[] = {{0, 338, {}},
                                                 {1, KW_COPIES, {}},
                                                 {1, KW_COLORMODEL, {}},
                                                 {0, 342, {}},
                                                 {1, KW_WMSELECTION, {}}};

// A window in the place of the basic page: it fills the rows of the tree.
LRESULT CALLBACK PageProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == companion_abi::kSendTreeItemsMessage) {
    SendTreeItems(lParam, kItems);
    return 1;
  }
  return ::DefWindowProcA(window, message, wParam, lParam);
}

class FavoriteSummaryTest : public HostTest {
 protected:
  FavoriteSummaryTest()
      : page_(::CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr,
                              nullptr)) {
    SetModuleInstance(plugIn_->Module());
    ::SetWindowLongPtrA(page_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&PageProcedure));
    first_->m_Body.PG_NUMBR = 12;
    first_->m_Body.CL_CMODE = 0;
    first_->m_Body.OUT_WTNO = 2;
    dialog_.favorites = entries_;
    dialog_.defaults = dialog_.current = defaults_.get();
    dialog_.owner = dialog_.page = page_;
    dialog_.selection = 1;
    dialog_.name = "Second";
  }
  ~FavoriteSummaryTest() override { ::DestroyWindow(page_); }

  bool Run() { return DoModalFavoriteSummaryUI(queue_->Handle(), dialog_); }

  HWND page_;
  std::unique_ptr<ddb::CPrintOption> defaults_ = std::make_unique<ddb::CPrintOption>();
  std::unique_ptr<ddb::CPrintOption> first_ = std::make_unique<ddb::CPrintOption>();
  std::unique_ptr<ddb::CPrintOption> second_ = std::make_unique<ddb::CPrintOption>();
  std::array<companion_abi::FavoriteSummaryEntry, 2> entries_{
      {{"First", "for the board", first_.get()}, {"Second", "", second_.get()}}};
  FavoriteSummaryDialog dialog_{};
};

void SelectRow(HWND dialog, int row) {
  ::SendDlgItemMessageA(dialog, IDC_FAVORITES, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
  ::SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDC_FAVORITES, LBN_SELCHANGE), 0);
}

// The texts of a level of the tree, from `node` on.
std::vector<std::string> Texts(HWND tree, HTREEITEM node) {
  std::vector<std::string> texts;
  for (; node != nullptr; node = TreeView_GetNextSibling(tree, node)) {
    texts.push_back(TreeItemText(tree, node));
  }
  return texts;
}

TEST_F(FavoriteSummaryTest, ShowsWhatAFavoriteSets) {
  const CompanionModule companion(queue_->Handle());
  const auto line = [&companion](std::uint32_t id, const std::string& value) {
    return companion.GetKeywordTranslation(id) + (value.empty() ? "" : ": " + value);
  };
  // The watermark 2 of the favourite is the second name, too.
  const auto second = [&](KeywordId id) {
    std::string text;
    companion.GetKeywordOption(id, 1, text);
    return line(id, text);
  };
  const DialogDriver user([&](HWND dialog) {
    EXPECT_EQ(::SendDlgItemMessageA(dialog, IDC_FAVORITES, LB_GETCURSEL, 0, 0), 2);
    SelectRow(dialog, 1);
    EXPECT_EQ(TextOf(dialog, IDC_SUMMARY_COMMENT), "for the board");
    const HWND tree = ::GetDlgItem(dialog, IDC_SETTINGS);
    const HTREEITEM root = TreeView_GetRoot(tree);
    EXPECT_THAT(Texts(tree, root), ElementsAre(line(338, ""), line(342, "")));
    EXPECT_THAT(Texts(tree, TreeView_GetChild(tree, root)),
                ElementsAre(line(KW_COPIES, "12"), second(KW_COLORMODEL)));
    EXPECT_THAT(Texts(tree, TreeView_GetChild(tree, TreeView_GetNextSibling(tree, root))),
                ElementsAre(second(KW_WMSELECTION)));
    Click(dialog, IDCANCEL);
  });
  EXPECT_FALSE(Run());
  EXPECT_EQ(user.DialogCount(), 1);
  EXPECT_EQ(dialog_.selection, 1);
  EXPECT_EQ(dialog_.name, "Second");
}

TEST_F(FavoriteSummaryTest, HandsDeletionsAndSelectionBack) {
  const DialogDriver user([](HWND dialog) {
    SelectRow(dialog, 0);
    EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(dialog, IDC_DELETE_FAVORITE)));  // standard
    SelectRow(dialog, 2);
    Click(dialog, IDC_DELETE_FAVORITE);
    EXPECT_EQ(::SendDlgItemMessageA(dialog, IDC_FAVORITES, LB_GETCOUNT, 0, 0), 2);
    Click(dialog, IDOK);
  });
  EXPECT_TRUE(Run());
  EXPECT_THAT(dialog_.deleted, ElementsAre(0, 1));
  EXPECT_EQ(dialog_.selection, 0);  // the row above the deleted one
  EXPECT_EQ(dialog_.name, "First");
}

}  // namespace
}  // namespace zn::test
