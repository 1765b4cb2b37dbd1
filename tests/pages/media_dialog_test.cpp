// The dialogs for the paper of a job, opened modally and driven by messages as their user would.

#include <functional>

#include "message_boxes.h"
#include "page_sheet.h"
#include "pages/mediatypedlg.h"
#include "res/resource_ids.h"
#include "session/job_values.h"
#include "tests/support/temp_folder.h"

namespace zn::test {
namespace {

constexpr int kPush = -1;

// A button that is pushed, or a list and the entry that is chosen.
struct Step {
  int control;
  int entry = kPush;
};

using Settings = std::vector<std::pair<KeywordId, std::uint32_t>>;
using Flags = std::vector<bool>;

class MediaDialog : public PageSheetTest {
 protected:
  MediaDialog() { FakeDriverPath::path = BesideProgram("driver.dll"); }

  [[nodiscard]] HWND Page() const override { return dialog_; }

  // Shows the dialog, does `use` in it and then closes its window, if it is still open.
  template <class Dialog>
  INT_PTR Run(std::function<void()> use) {
    use_ = std::move(use);
    running_ = this;
    ::SetTimer(nullptr, 0, USER_TIMER_MINIMUM, &UseDialog);
    return Dialog(*sheet_, &ThePlugInContext()).DoModal();
  }
  INT_PTR Run(bool isBypass, const std::function<void()>& use) {
    return isBypass ? Run<CMediaTypeBypassTrayDlgMarzipan>(use)
                    : Run<CMediaTypeDlgAutoTrayMarzipan>(use);
  }
  void Take(const std::vector<Step>& steps) const {
    for (const auto& [control, entry] : steps) {
      entry == kPush ? Click(control) : Choose(control, entry);
    }
  }
  void Set(const Settings& current, const Settings& defaults = {}) {
    sheet_->options = {};
    for (const auto& [id, selection] : current) {
      sheet_->SetCurrent(id, selection);
    }
    for (const auto& [id, selection] : defaults) {
      sheet_->options[id].defaultSelection = selection;
    }
  }
  [[nodiscard]] LRESULT Count(int listId) const {
    return ::SendMessageA(Control(listId), CB_GETCOUNT, 0, 0);
  }
  [[nodiscard]] std::string TypeName(int entry) const {
    char text[400] = "";
    COMBOBOXEXITEMA item{};
    item.mask = CBEIF_TEXT;
    item.iItem = entry;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    ::SendMessageA(Control(IDC_MEDIA_TYPE), CBEM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    return text;
  }
  [[nodiscard]] Flags Enabled() const {
    Flags flags;
    for (const int id :
         {IDC_MEDIA_TYPE, IDC_MEDIA_WEIGHT_LABEL, IDC_MEDIA_WEIGHT, IDC_MEDIA_COLOR}) {
      flags.push_back(::IsWindowEnabled(Control(id)) != FALSE);
    }
    return flags;
  }

 private:
  static BOOL CALLBACK FindDialog(HWND window, LPARAM) {
    running_->dialog_ = window;
    return ::GetDlgItem(window, IDC_MEDIA_TYPE) == nullptr;
  }
  static void CALLBACK UseDialog(HWND, UINT, UINT_PTR timer, DWORD) {
    ::KillTimer(nullptr, timer);
    ::EnumThreadWindows(::GetCurrentThreadId(), &FindDialog, 0);
    running_->use_();
    ::PostMessageA(running_->dialog_, WM_CLOSE, 0, 0);
  }

  static inline MediaDialog* running_;
  HWND dialog_ = nullptr;
  std::function<void()> use_;
  MessageBoxes boxes_{::GetModuleHandleA(nullptr), 0};
};

TEST_F(MediaDialog, StoresOnOkOnly) {
  const Settings paper{{KW_ZNMEDIATYPE, 4}, {KW_MEDIATYPEWEIGHT, 5}, {KW_PAPERCOLOR, 3}};
  Settings duplex = paper;
  duplex.insert(duplex.end(), {{KW_DUPLEX, 1}, {KW_MEDIATYPEBYPASS, 1}});
  const Settings bypass{{KW_MEDIATYPEBYPASS, 11},
                        {KW_MEDIATYPEWEIGHTBYPASS, 5},
                        {KW_PAPERCOLORBYPASS, 3},
                        {KW_MANUALFEEDDUPLEX, 0x00030002},
                        {KW_AUTOTRAYSETTINGTOBYPASS, 1}};
  const std::vector<Step> change{{IDC_MEDIA_TYPE, 13}, {IDC_MEDIA_WEIGHT, 2}, {IDC_MEDIA_COLOR, 7}};
  const auto changeAnd = [&](int button) {
    auto steps = change;
    steps.push_back({button});
    return steps;
  };
  const std::vector<Step> conflict{{IDC_MEDIA_TYPE, 1}, {IDC_MEDIA_COLOR, 7}, {IDOK}};
  const struct {
    const char* name;
    bool isBypass;
    Settings now;
    std::vector<Step> steps;
    INT_PTR result;
    Settings changed;  // of all the selections
    Settings defaults = {};
    std::deque<int> answers = {};
    bool hasCompanion = true;
  } rows[] = {
      {"nothing chosen", false, paper, {{IDOK}}, IDOK, {}},
      {"no companion module",
       false,
       paper,
       changeAnd(IDOK),
       IDOK,
       {{KW_ZNMEDIATYPE, 13}, {KW_MEDIATYPEWEIGHT, 5}, {KW_PAPERCOLOR, 7}},
       {},
       {},
       false},
      {"cancelled", false, paper, changeAnd(IDCANCEL), IDCANCEL, {}},
      {"window closed", false, paper, changeAnd(IDC_RESTORE_DEFAULTS), IDCANCEL, {}},
      {"no weight",
       false,
       paper,
       {{IDC_MEDIA_TYPE, 6}, {IDOK}},
       IDOK,
       {{KW_ZNMEDIATYPE, 6}, {KW_MEDIATYPEWEIGHT, 0}}},
      {"no weight and back",
       false,
       paper,
       {{IDC_MEDIA_TYPE, 6}, {IDC_MEDIA_TYPE, 0}, {IDOK}},
       IDOK,
       {{KW_ZNMEDIATYPE, 0}}},
      {"the stored weight does not fit",
       false,
       paper,
       {{IDC_MEDIA_TYPE, 2}, {IDOK}},
       IDOK,
       {{KW_ZNMEDIATYPE, 2}, {KW_MEDIATYPEWEIGHT, 1}}},
      {"a type that no list has",
       false,
       {{KW_ZNMEDIATYPE, 300}, {KW_MEDIATYPEWEIGHT, 77}},
       {{IDC_MEDIA_COLOR, 2}, {IDOK}},
       IDOK,
       {{KW_PAPERCOLOR, 2}}},
      {"defaults",
       false,
       paper,
       {{IDC_RESTORE_DEFAULTS}, {IDOK}},
       IDOK,
       {{KW_ZNMEDIATYPE, 10}, {KW_MEDIATYPEWEIGHT, 4}, {KW_PAPERCOLOR, 0}},
       {{KW_ZNMEDIATYPE, 10}, {KW_MEDIATYPEWEIGHT, 5}}},
      {"taken over as it was", true, bypass, {{IDOK}}, IDOK, {{KW_MANUALFEEDDUPLEX, 2}}},
      {"taken over no more",
       true,
       bypass,
       {{IDC_MEDIA_TAKE_OVER},
        {IDC_MEDIA_TYPE, 35},
        {IDC_MEDIA_TYPE, 13},
        {IDC_MEDIA_WEIGHT, 0},
        {IDC_MEDIA_MANUAL_DUPLEX, 4},
        {IDOK}},
       IDOK,
       {{KW_MEDIATYPEBYPASS, 13},
        {KW_MEDIATYPEWEIGHTBYPASS, 3},
        {KW_MANUALFEEDDUPLEX, 4},
        {KW_AUTOTRAYSETTINGTOBYPASS, 0}}},
      {"defaults of the manual feed",
       true,
       {{KW_MEDIATYPEBYPASS, 3}},
       {{IDC_RESTORE_DEFAULTS}, {IDOK}},
       IDOK,
       {{KW_MEDIATYPEBYPASS, 0},
        {KW_MEDIATYPEWEIGHTBYPASS, 1},
        {KW_MANUALFEEDDUPLEX, 3},
        {KW_AUTOTRAYSETTINGTOBYPASS, 1}},
       {{KW_MANUALFEEDDUPLEX, 3}}},
      {"refused", false, duplex, conflict, IDOK, {{KW_PAPERCOLOR, 7}}, {}, {IDCANCEL, IDCANCEL}},
      {"the others changed",
       false,
       duplex,
       conflict,
       IDOK,
       {{KW_ZNMEDIATYPE, 1}, {KW_PAPERCOLOR, 7}, {KW_MEDIATYPEBYPASS, 0}, {KW_DUPLEX, 0}},
       {},
       {IDOK, IDOK}},
      {"no answer to the second question", false, duplex, conflict, IDCANCEL, {}, {}, {IDOK, 0}},
      {"taken over, yet asked about",
       true,
       {{KW_DUPLEX, 2}, {KW_AUTOTRAYSETTINGTOBYPASS, 1}},
       {{IDC_MEDIA_TYPE, 11}, {IDOK}},
       IDOK,
       {{KW_DUPLEX, 0}, {KW_MEDIATYPEBYPASS, 11}, {KW_MEDIATYPEWEIGHTBYPASS, 3}},
       {},
       {IDOK}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    FakeDriverPath::path = row.hasCompanion ? BesideProgram("driver.dll") : "";
    MessageBoxes::answers = row.answers;
    MessageBoxes::shown.clear();
    Set(row.now, row.defaults);
    OptionTable expected = sheet_->options;
    for (const auto& [id, selection] : row.changed) {
      expected[id].currentSelection = selection;
    }
    EXPECT_EQ(Run(row.isBypass, [&] { Take(row.steps); }), row.result);
    EXPECT_EQ(MessageBoxes::shown.size(), row.answers.size());
    for (KeywordId id = 0; id < KW_MAX; ++id) {
      EXPECT_EQ(Current(id), expected[id].currentSelection) << id;
    }
  }
}

TEST_F(MediaDialog, EnablesWhatTheTypeAndTheBoxLeaveToChoose) {
  Set({{KW_MEDIATYPEBYPASS, 6}, {KW_AUTOTRAYSETTINGTOBYPASS, 1}});
  Run(true, [this] {
    EXPECT_EQ(Enabled(), (Flags{false, false, false, false}));
    Click(IDC_MEDIA_TAKE_OVER);
    EXPECT_EQ(Enabled(), (Flags{true, false, false, true}));
    Choose(IDC_MEDIA_TYPE, 2);
    EXPECT_EQ(Enabled(), (Flags{true, true, true, true}));
    EXPECT_EQ(Count(IDC_MEDIA_WEIGHT), 3);
    Click(IDC_RESTORE_DEFAULTS);
    EXPECT_TRUE(IsChecked(IDC_MEDIA_TAKE_OVER));
    EXPECT_EQ(Enabled(), (Flags{false, true, false, false}));
  });
}

TEST_F(MediaDialog, ShowsTheTextsOfCompanionAndDeviceReadOnce) {
  const TempFolder folder;
  folder.Write("device.cps", "CustomPaperName1=Glossy\nCustomPaperName2=\nCustomPaperName3=x" +
                                 std::string(300, '\x83') + "\nCustomPaperName20=Last\n");
  SetDeviceProfile(*sheet_, "device");
  FakeDriverPath::data = folder.Path("driver.ppd");
  Set({{KW_ZNMEDIATYPE, 34}});
  Run(false, [this] {
    EXPECT_EQ(Text(IDC_MEDIA_WEIGHT_LABEL), Japanese("用紙坪量:"));
    ASSERT_EQ(Count(IDC_MEDIA_TYPE), 35);
    EXPECT_EQ(Count(IDC_MEDIA_COLOR), 18);
    EXPECT_EQ(TypeName(14), Japanese("封筒"));
    EXPECT_EQ(TypeName(15), "Glossy");
    EXPECT_EQ(TypeName(16), Japanese("ユーザー用紙2"));
    EXPECT_EQ(TypeName(17), "x" + std::string(254, '\x83'));
    EXPECT_EQ(TypeName(34), "Last");
    EXPECT_EQ(Selected(IDC_MEDIA_TYPE), 34);
  });
  const LONG loads = calls_[companion::Call::Load];
  Run(true, [&] {
    EXPECT_EQ(calls_[companion::Call::Load], loads + 1);
    EXPECT_EQ(Text(IDC_MEDIA_MANUAL_DUPLEX_LABEL), Japanese("手差し手動両面:"));
    EXPECT_EQ(Count(IDC_MEDIA_MANUAL_DUPLEX), 5);
    EXPECT_EQ(TypeName(34), "Last");
  });
}

}  // namespace
}  // namespace zn::test
