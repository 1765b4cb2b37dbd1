#include "page_sheet.h"

#include <commctrl.h>

#include "host/base/dialog_driver.h"
#include "keywords/keyword_table.h"
#include "pages/pages.h"
#include "platform/resources.h"
#include "session/plugin_context.h"

namespace zn::test {
namespace {

constexpr int kApplyButton = 0x3021;
constexpr LONG_PTR kLastPageHandle = 0x1234;
HANDLE const kSheetHandle = reinterpret_cast<HANDLE>(0x5678);

int WINAPI RecordMessage(HWND, LPCSTR text, LPCSTR caption, UINT style) {
  PageSheetTest::messages.push_back({text, caption != nullptr ? caption : "(null)", style});
  return PageSheetTest::messageAnswer;
}

BOOL WINAPI RecordBeep(UINT) {
  ++PageSheetTest::beeps;
  return TRUE;
}

LONG_PTR CALLBACK RecordResult(HANDLE sheet, UINT function, LPARAM first, LPARAM second) {
  EXPECT_EQ(sheet, kSheetHandle);
  PageSheetTest::results.push_back({static_cast<LPARAM>(function), first, second});
  return 1;
}

// What the core driver's process does: the common controls are there, and the plug-in knows its
// module; here that is the test program, which carries the same resources.
class Process : public testing::Environment {
 public:
  void SetUp() override {
    const INITCOMMONCONTROLSEX classes{sizeof classes,
                                       ICC_USEREX_CLASSES | ICC_UPDOWN_CLASS | ICC_TAB_CLASSES};
    ASSERT_TRUE(::InitCommonControlsEx(&classes));
    SetModuleInstance(::GetModuleHandleA(nullptr));
  }
};

const auto* const g_process = testing::AddGlobalTestEnvironment(new Process);

}  // namespace

PageSheetTest::PageSheetTest()
    : box_(::GetModuleHandleA(nullptr), "MessageBoxA", &RecordMessage),
      beep_(::GetModuleHandleA(nullptr), "MessageBeep", &RecordBeep) {
  messages.clear();
  messageAnswer = IDOK;
  beeps = 0;
  results.clear();
  // An item with the real number of options for every keyword.
  types_.resize(KW_MAX);
  for (KeywordId id = 0; id < KW_MAX; ++id) {
    OPTITEM& item = items_.AddKeyword(id, id == KW_COPIES ? 1 : 0);
    types_[id].cbSize = sizeof(OPTTYPE);
    types_[id].Count = static_cast<WORD>(GetOptionCodeList(id).size());
    item.pOptType = &types_[id];
    sheet_->items[id] = &item;
  }
  TakeItems();
  SetSelections(KW_COPIES, 1, 1);
  sheet_->jobValues.SetDefaults();
  sheet_->hPrinter = reinterpret_cast<HANDLE>(0x77);
  sheet_->hComPropSheet = kSheetHandle;
  sheet_->pfnComPropSheet = &RecordResult;
  sheet_->hLastPage = kLastPageHandle;
  sheet_->mayChangeSettings = true;
  sheet_->treeReadOnlyFlag = true;
  ThePlugInContext().sheet = sheet_.get();
}

PageSheetTest::~PageSheetTest() {
  Close();
  FakeDriverPath::data.clear();
  ThePlugInContext().sheet = nullptr;
}

void PageSheetTest::Open(PageIndex page, bool withCompanion) {
  FakeDriverPath::path = withCompanion ? BesideProgram("driver.dll") : std::string();
  std::array<PROPSHEETPAGEA, kDialogPageCount> pages{};
  for (int index = 0; index < kDialogPageCount; ++index) {
    PROPSHEETPAGEA& entry = pages[static_cast<std::size_t>(index)];
    entry.dwSize = sizeof entry;
    entry.hInstance = ResourceInstance();
    entry.pszTemplate = MAKEINTRESOURCEA(DialogPages()[index].templateId);
    entry.pfnDlgProc = DialogPages()[index].procedure;
    entry.lParam = reinterpret_cast<LPARAM>(sheet_.get());
  }
  PROPSHEETHEADERA header{};
  header.dwSize = sizeof header;
  header.dwFlags = PSH_PROPSHEETPAGE | PSH_MODELESS;
  header.pszCaption = "test";
  header.nPages = static_cast<UINT>(pages.size());
  header.nStartPage = static_cast<UINT>(page);
  header.ppsp = pages.data();
  window_ = reinterpret_cast<HWND>(::PropertySheetA(&header));
  ASSERT_NE(window_, nullptr);
}

void PageSheetTest::Close() {
  if (window_ != nullptr) {
    ::DestroyWindow(window_);
    window_ = nullptr;
  }
}

bool PageSheetTest::Activate(PageIndex page) {
  return ::SendMessageA(window_, PSM_SETCURSEL, static_cast<WPARAM>(page), 0) != 0;
}

HWND PageSheetTest::Page() const {
  return reinterpret_cast<HWND>(::SendMessageA(window_, PSM_GETCURRENTPAGEHWND, 0, 0));
}

std::string PageSheetTest::Text(int id) const {
  char text[512] = "";
  ::GetWindowTextA(Control(id), text, sizeof text);
  return text;
}

void PageSheetTest::Click(int id) const {
  ::SendMessageA(Control(id), BM_CLICK, 0, 0);
}

void PageSheetTest::Choose(int listId, int index) const {
  const HWND list = Control(listId);
  ::SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  ::SendMessageA(Page(), WM_COMMAND, MAKEWPARAM(listId, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
}

int PageSheetTest::Selected(int listId) const {
  return static_cast<int>(::SendMessageA(Control(listId), CB_GETCURSEL, 0, 0));
}

bool PageSheetTest::IsChecked(int id) const {
  return ::IsDlgButtonChecked(Page(), id) == BST_CHECKED;
}

bool PageSheetTest::CanApply() const {
  return ::IsWindowEnabled(::GetDlgItem(window_, kApplyButton)) != FALSE;
}

void PageSheetTest::Apply() const {
  ::SendMessageA(window_, WM_COMMAND, MAKEWPARAM(kApplyButton, BN_CLICKED), 0);
}

void PageSheetTest::Drive(const std::vector<std::function<void(HWND)>>& steps,
                          const std::function<void()>& open) const {
  constexpr UINT kTick = 10;  // milliseconds
  std::size_t done = 0;
  host::DriveDialogs(
      window_, kTick,
      [&](HWND dialog) {
        if (done < steps.size()) {
          steps[done++](dialog);
        } else {
          ADD_FAILURE() << "one dialog too many";
          ::EndDialog(dialog, IDCANCEL);
        }
      },
      open);
  EXPECT_EQ(done, steps.size());
}

INT_PTR PageSheetTest::Ask(PageIndex page, UINT message, WPARAM wParam, LPARAM lParam) const {
  return DialogPages()[page].procedure(Page(), message, wParam, lParam);
}

void PageSheetTest::SetSelections(KeywordId id, std::uint32_t defaultIndex,
                                  std::uint32_t currentIndex) {
  sheet_->options[id] = {defaultIndex, currentIndex, currentIndex};
}

std::string Japanese(const char* utf8) {
  wchar_t wide[512];
  char text[1024];
  ::MultiByteToWideChar(CP_UTF8, 0, utf8, -1, wide, 512);
  ::WideCharToMultiByte(CP_ACP, 0, wide, -1, text, sizeof text, nullptr, nullptr);
  return text;
}

}  // namespace zn::test
