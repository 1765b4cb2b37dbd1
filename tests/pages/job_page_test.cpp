// The job page, driven by messages as its user would.

#include <span>

#include "page_sheet.h"
#include "pages/pages.h"
#include "res/resource_ids.h"
#include "session/job_values.h"

namespace zn::test {
namespace {

class JobPage : public PageSheetTest {
 protected:
  JobPage() {
    SetSelections(KW_COLORMODEL, 0, 1);
    SetSelections(KW_PRINTERMODE, 1, 3);
    SetSelections(KW_SPOOLOPTION, 0, 2);
  }

  void EnterJobName(const char* name) {
    SetJobNameMode(*sheet_, JobNameMode::Entered);
    SetJobName(*sheet_, name);
  }
  void Type(char character) const {
    ::SendMessageA(Control(IDC_JOB_NAME), WM_CHAR, static_cast<WPARAM>(character), 0);
  }
  [[nodiscard]] std::vector<std::uint32_t> Selections() const {
    return {Current(KW_COLORMODEL), Current(KW_PRINTERMODE), Current(KW_SPOOLOPTION)};
  }
  [[nodiscard]] std::vector<int> Shown() const {
    int spool = -1;
    for (const int radio : {IDC_JOB_SPOOL_NONE, IDC_JOB_SPOOL_AFTER_PRINT, IDC_JOB_SPOOL_ONLY}) {
      if (IsChecked(radio)) {
        EXPECT_EQ(spool, -1) << "two radios are checked";
        spool = radio - IDC_JOB_SPOOL_NONE;
      }
    }
    return {Selected(IDC_JOB_COLOR_MODE), Selected(IDC_JOB_PRINTER_MODE), spool};
  }
};

using Values = std::vector<std::uint32_t>;
using Indexes = std::vector<int>;

TEST_F(JobPage, TextsComeFromTheCompanionModule) {
  Open(kBasicPage);
  const LONG loads = calls_[companion::Call::Load];
  ASSERT_TRUE(Activate(kJobPage));
  // One filling maps the module once.
  EXPECT_EQ(calls_[companion::Call::Load] - loads, 1);
  const struct {
    int id;
    const char* text;
  } rows[] = {
      {IDC_JOB_NAME_MODE_LABEL, "ジョブ名の指定:"}, {IDC_JOB_NAME_LABEL, "ジョブ名:"},
      {IDC_JOB_NAME_AUTOMATIC, "自動取得"},         {IDC_JOB_NAME_ENTERED, "ジョブ名を入力する"},
      {IDC_JOB_COLOR_MODE_LABEL, "カラーモード:"},  {IDC_JOB_PRINTER_MODE_LABEL, "プリンタモード:"},
      {IDC_JOB_SPOOL_GROUP, "スプールオプション"},  {IDC_JOB_SPOOL_ONLY, "プリントせずに保存する"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Text(row.id), Japanese(row.text));
  }
  COMBOBOXEXITEMA entry{};
  char text[64] = "";
  entry.mask = CBEIF_TEXT;
  entry.iItem = 1;
  entry.pszText = text;
  entry.cchTextMax = sizeof text;
  ::SendMessageA(Control(IDC_JOB_COLOR_MODE), CBEM_GETITEMA, 0, reinterpret_cast<LPARAM>(&entry));
  EXPECT_EQ(text, Japanese("白黒"));
  EXPECT_EQ(Count(IDC_JOB_PRINTER_MODE), 5);
}

TEST_F(JobPage, WithoutCompanionTheTemplateTextsStay) {
  Open(kJobPage, false);
  EXPECT_EQ(Text(IDC_JOB_NAME_LABEL), Japanese("ジョブ名："));
  EXPECT_EQ(Text(IDC_JOB_SPOOL_NONE), Japanese("保存しない"));
  EXPECT_EQ(Shown(), (Indexes{1, 3, 2}));
  Click(IDC_JOB_PRINT_OPTIONS);
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(Selections(), (Values{1, 3, 2}));
}

TEST_F(JobPage, NotificationCodes) {
  Open(kJobPage);
  const struct {
    int code;
    int id;
    int answer;
    bool changes;
  } rows[] = {
      {BN_CLICKED, IDC_JOB_NAME_AUTOMATIC, 1, true},
      {CBN_SELCHANGE, IDC_JOB_COLOR_MODE, 1, true},
      {BN_CLICKED, 9999, 1, true},
      {2, IDC_JOB_COLOR_MODE, 0, false},
      {6, IDC_JOB_NAME_ENTERED, 0, false},
      {CBN_DROPDOWN, IDC_JOB_COLOR_MODE, 1, false},
      {CBN_CLOSEUP, IDC_JOB_COLOR_MODE, 1, false},
      {CBN_SELENDOK, 9999, 1, false},
      {CBN_SELENDCANCEL, IDC_JOB_COLOR_MODE, 0, false},
      {EN_KILLFOCUS, IDC_JOB_NAME, 0, false},
      {EN_CHANGE, IDC_JOB_COLOR_MODE, 0, false},
      {EN_CHANGE, IDC_JOB_NAME, 1, false},  // the text is the one that the page set
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << "code " << row.code << " of control " << row.id);
    ::SendMessageA(::GetParent(Page()), PSM_UNCHANGED, reinterpret_cast<WPARAM>(Page()), 0);
    EXPECT_EQ(Ask(kJobPage, WM_COMMAND, MAKEWPARAM(row.id, row.code), 0), row.answer);
    EXPECT_EQ(CanApply(), row.changes);
  }
}

// --- Job name ---

TEST_F(JobPage, TheGuardHoldsTheNameAt255Bytes) {
  EnterJobName(std::string(254, 'a').c_str());
  Open(kJobPage);
  ::SendMessageA(Control(IDC_JOB_NAME), EM_SETSEL, 254, 254);
  Type('b');
  EXPECT_EQ(Text(IDC_JOB_NAME), std::string(254, 'a') + 'b');
  EXPECT_EQ(beeps, 0);
  EXPECT_TRUE(CanApply());
  ::SendMessageA(Control(IDC_JOB_NAME), EM_SETSEL, 100, 100);
  Type('c');
  EXPECT_EQ(Text(IDC_JOB_NAME), std::string(254, 'a') + 'b');
  EXPECT_EQ(beeps, 1);
  EXPECT_EQ(HIWORD(::SendMessageA(Control(IDC_JOB_NAME), EM_GETSEL, 0, 0)), 100);
  // Bytes count, not characters.
  std::string wide;
  while (wide.size() < 254) {
    wide += Japanese("印");
  }
  for (const std::string& text : {wide, wide + Japanese("刷")}) {
    ::SetWindowTextA(Control(IDC_JOB_NAME), text.c_str());
    EXPECT_EQ(Text(IDC_JOB_NAME), wide);
  }
  EXPECT_EQ(beeps, 2);
}

TEST_F(JobPage, APageIsOnlyLeftWithAValidJobName) {
  const struct {
    JobNameMode mode;
    int length;
    bool leaves;
  } rows[] = {{JobNameMode::Entered, 0, false},
              {JobNameMode::Entered, 1, true},
              {JobNameMode::Entered, 255, true},
              {JobNameMode::Automatic, 0, true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.length);
    messages.clear();
    EnterJobName("old name");
    Open(kJobPage);
    const std::string name(static_cast<std::size_t>(row.length), 'n');
    ::SetWindowTextA(Control(IDC_JOB_NAME), name.c_str());
    Click(row.mode == JobNameMode::Entered ? IDC_JOB_NAME_ENTERED : IDC_JOB_NAME_AUTOMATIC);
    const HWND before = Page();
    EXPECT_EQ(Activate(kBasicPage), row.leaves);
    EXPECT_EQ(Page() != before, row.leaves);
    EXPECT_EQ(JobNameModeOf(*sheet_), row.mode);
    EXPECT_EQ(JobNameOf(*sheet_),
              row.leaves && row.mode == JobNameMode::Entered ? name : "old name");
    if (row.leaves) {
      EXPECT_TRUE(messages.empty());
    } else {
      ASSERT_EQ(messages.size(), 1u);
      EXPECT_EQ(messages[0].text, Japanese("ジョブ名は1～255バイトの文字を入力してください。"));
      EXPECT_EQ(messages[0].caption, Japanese("警告"));
      EXPECT_EQ(messages[0].style, UINT{MB_ICONEXCLAMATION});
      EXPECT_TRUE(driver_.updates.empty());
    }
    Close();
  }
}

// --- Leaving, applying, restoring ---

TEST_F(JobPage, ReadsNoControlsWhileInactiveAndIsFilledWhenActivated) {
  Open(kJobPage);
  const HWND jobPage = Page();
  ASSERT_TRUE(Activate(kBasicPage));
  ::CheckRadioButton(jobPage, IDC_JOB_SPOOL_NONE, IDC_JOB_SPOOL_ONLY, IDC_JOB_SPOOL_NONE);
  ::SendDlgItemMessageA(jobPage, IDC_JOB_COLOR_MODE, CB_SETCURSEL, 0, 0);
  ::SendDlgItemMessageA(jobPage, IDC_JOB_PRINTER_MODE, CB_SETCURSEL, 0, 0);
  ::SendMessageA(jobPage, WM_COMMAND, MAKEWPARAM(IDC_JOB_SPOOL_NONE, BN_CLICKED), 0);
  ::SendMessageA(jobPage, WM_COMMAND, MAKEWPARAM(IDC_JOB_COLOR_MODE, CBN_SELCHANGE), 0);
  ::SendMessageA(jobPage, WM_COMMAND, MAKEWPARAM(IDC_JOB_PRINTER_MODE, CBN_SELCHANGE), 0);
  EXPECT_EQ(Selections(), (Values{1, 3, 2}));
  sheet_->SetCurrent(KW_COLORMODEL, 0);
  sheet_->SetCurrent(KW_SPOOLOPTION, 1);
  ASSERT_TRUE(Activate(kJobPage));
  EXPECT_EQ(Shown(), (Indexes{0, 3, 1})) << "what other pages changed";
}

TEST_F(JobPage, ApplyReportsSuccessToTheSheet) {
  Open(kJobPage);
  Choose(IDC_JOB_COLOR_MODE, 0);
  results.clear();
  Apply();
  ASSERT_EQ(results.size(), 1u) << "only this page was visited";
  EXPECT_EQ(results[0], (std::array<LPARAM, 3>{CPSFUNC_SET_RESULT, 0x1234, CPSUI_OK}));
  EXPECT_EQ(driver_.updates.size(), 1u);
  EXPECT_FALSE(CanApply());
  Click(IDC_JOB_NAME_ENTERED);
  ::SetWindowTextA(Control(IDC_JOB_NAME), "");
  Apply();
  EXPECT_EQ(messages.size(), 1u);
  EXPECT_EQ(results.size(), 1u) << "an invalid job name stops it";
}

TEST_F(JobPage, AFailedPrinterDefaultIsToldAndThePageLeft) {
  Open(kJobPage);
  ::CreateWindowA("BUTTON", "", WS_CHILD | BS_AUTOCHECKBOX, 0, 0, 10, 10, Page(),
                  reinterpret_cast<HMENU>(IDC_JOB_PRINTER_DEFAULT), nullptr, nullptr);
  ::CheckDlgButton(Page(), IDC_JOB_PRINTER_DEFAULT, BST_CHECKED);
  EXPECT_TRUE(Activate(kBasicPage));
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].text, Japanese("[プリンタのデフォルト]設定が保存できませんでした。\n"
                                       "プリンタのデフォルトは使用しません。"));
  EXPECT_EQ(messages[0].caption, "");
  EXPECT_EQ(messages[0].style, UINT{MB_ICONEXCLAMATION});
}

// --- The companion module's print option setting dialog ---

class PrintOptions : public JobPage {
 protected:
  void OpenAndAnswer(const char* answer) {
    SetSelections(KW_COLORMODEL, 0, 0);
    Open(kJobPage);
    // The controls are stored before the dialog opens, whether or not they notified the page.
    ::CheckRadioButton(Page(), IDC_JOB_SPOOL_NONE, IDC_JOB_SPOOL_ONLY, IDC_JOB_SPOOL_AFTER_PRINT);
    // The dialog may bring other colour modes along.
    ::SendMessageA(Control(IDC_JOB_COLOR_MODE), CBEM_DELETEITEM, 1, 0);
    ::SetEnvironmentVariableA("ZN_COMPANION_ANSWER", answer);
    Click(IDC_JOB_PRINT_OPTIONS);
    ::SetEnvironmentVariableA("ZN_COMPANION_ANSWER", nullptr);
    EXPECT_EQ(calls_[companion::Call::PrintOptionSetting], 1);
    EXPECT_EQ(sheet_->activePage, Page());
    EXPECT_FALSE(CanApply());
  }
};

TEST_F(PrintOptions, OkTakesSettingsAndProfileBack) {
  OpenAndAnswer("ok;CL_CMODE=0;CL_PMODE=5;SP_SPOPT=2;profile=ZN5050B");
  EXPECT_EQ(Selections(), (Values{1, 4, 2}));
  EXPECT_EQ(Shown(), (Indexes{1, 4, 2}));
  EXPECT_EQ(Count(IDC_JOB_COLOR_MODE), 2);
  EXPECT_EQ(DeviceProfileOf(*sheet_), "ZN5050B");
}

TEST_F(PrintOptions, CancelKeepsEverything) {
  OpenAndAnswer("cancel");
  EXPECT_EQ(Selections(), (Values{0, 3, 1}));
  EXPECT_EQ(Shown(), (Indexes{0, 3, 1}));
  EXPECT_EQ(DeviceProfileOf(*sheet_), "");
}

// --- The dispatcher ---

// Commands before the page is set up, notifications to a window that is none of a sheet.
TEST_F(JobPage, APageWithoutSheetDoesNothing) {
  for (const auto& page : std::span(DialogPages(), kDialogPageCount)) {
    SCOPED_TRACE(page.templateId);
    const HWND dialog =
        ::CreateDialogParamA(::GetModuleHandleA(nullptr), MAKEINTRESOURCEA(page.templateId),
                             ::GetDesktopWindow(), page.procedure, 0);
    ASSERT_NE(dialog, nullptr);
    PSHNOTIFY notification{};
    for (const UINT code : {PSN_SETACTIVE, PSN_KILLACTIVE, PSN_APPLY}) {
      notification.hdr.code = code;
      EXPECT_EQ(page.procedure(dialog, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification)), 0);
    }
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
      for (const int code : {BN_CLICKED, CBN_SELCHANGE, EN_KILLFOCUS, EN_CHANGE}) {
        EXPECT_EQ(page.procedure(dialog, WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(child), code), 0),
                  0);
      }
    }
    ::DestroyWindow(dialog);
  }
}

TEST_F(JobPage, ASecondInitializationChangesNothing) {
  Open(kJobPage);
  SheetContext stranger{};
  PROPSHEETPAGEA record{};
  record.lParam = reinterpret_cast<LPARAM>(&stranger);
  for (const LPARAM forged : {LPARAM{0}, LPARAM{64}, reinterpret_cast<LPARAM>(&record)}) {
    EXPECT_EQ(Ask(kJobPage, WM_INITDIALOG, 0, forged), 0);
  }
  Choose(IDC_JOB_PRINTER_MODE, 2);
  EXPECT_EQ(Current(KW_PRINTERMODE), 2u);
}

}  // namespace
}  // namespace zn::test
