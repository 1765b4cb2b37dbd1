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

// A list and the entry that is chosen, or a button that is pushed.
struct Step {
  int control;
  int entry = -1;
};

using Settings = std::vector<std::pair<KeywordId, std::uint32_t>>;
using Flags = std::vector<bool>;

class MediaDialog : public PageSheetTest {
 protected:
  MediaDialog() { FakeDriverPath::path = BesideProgram("driver.dll"); }

  [[nodiscard]] HWND Page() const override { return dialog_; }

  // Shows the dialog, does `use` in it and then closes its window, if it is still open.
  INT_PTR Run(bool isBypass, const std::function<void()>& use) {
    INT_PTR result = 0;
    Drive({[&](HWND dialog) {
            dialog_ = dialog;
            use();
            ::PostMessageA(dialog, WM_CLOSE, 0, 0);
          }},
          [&] {
            result = isBypass
                         ? CMediaTypeBypassTrayDlgMarzipan(*sheet_, &ThePlugInContext()).DoModal()
                         : CMediaTypeDlgAutoTrayMarzipan(*sheet_, &ThePlugInContext()).DoModal();
          });
    return result;
  }
  [[nodiscard]] std::string TypeName(WPARAM entry) const {
    char text[400] = "";
    ::SendMessageA(Control(IDC_MEDIA_TYPE), CB_GETLBTEXT, entry, reinterpret_cast<LPARAM>(text));
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
  HWND dialog_ = nullptr;
  MessageBoxes boxes_{::GetModuleHandleA(nullptr), 0};
};

struct Use {
  const char* name;
  bool isBypass;
  Settings now;
  std::vector<Step> steps;
  INT_PTR result;
  Settings changed;  // of all the selections
  Settings defaults = {};
  std::deque<int> answers = {};
};

TEST_F(MediaDialog, StoresOnOkOnly) {
  const Settings paper{{KW_ZNMEDIATYPE, 4}, {KW_MEDIATYPEWEIGHT, 5}, {KW_PAPERCOLOR, 3}};
  const Settings duplex{
      {KW_ZNMEDIATYPE, 4}, {KW_MEDIATYPEWEIGHT, 5}, {KW_DUPLEX, 1}, {KW_MEDIATYPEBYPASS, 1}};
  const std::vector<Step> conflict{{IDC_MEDIA_TYPE, 1}, {IDC_MEDIA_COLOR, 7}, {IDOK}};
  const Use rows[] = {
      Use("OK", false, paper,
          {{IDC_MEDIA_TYPE, 13}, {IDC_MEDIA_WEIGHT, 3}, {IDC_MEDIA_COLOR, 7}, {IDOK}}, IDOK,
          {{KW_ZNMEDIATYPE, 13}, {KW_MEDIATYPEWEIGHT, 6}, {KW_PAPERCOLOR, 7}}),
      Use("cancelled", false, paper, {{IDC_MEDIA_TYPE, 2}, {IDC_MEDIA_COLOR, 7}, {IDCANCEL}},
          IDCANCEL, {}),
      Use("window closed", false, paper, {{IDC_RESTORE_DEFAULTS}}, IDCANCEL, {}),
      Use("no weight", false, paper, {{IDC_MEDIA_TYPE, 6}, {IDOK}}, IDOK,
          {{KW_ZNMEDIATYPE, 6}, {KW_MEDIATYPEWEIGHT, 0}}),
      Use("no weight and back", false, paper, {{IDC_MEDIA_TYPE, 6}, {IDC_MEDIA_TYPE, 0}, {IDOK}},
          IDOK, {{KW_ZNMEDIATYPE, 0}}),
      Use("a type that the list does not have", false,
          {{KW_ZNMEDIATYPE, 300}, {KW_MEDIATYPEWEIGHT, 77}}, {{IDC_MEDIA_COLOR, 2}, {IDOK}}, IDOK,
          {{KW_PAPERCOLOR, 2}}),
      Use("the weight of the default type", false, paper, {{IDC_RESTORE_DEFAULTS}, {IDOK}}, IDOK,
          {{KW_ZNMEDIATYPE, 10}, {KW_MEDIATYPEWEIGHT, 4}, {KW_PAPERCOLOR, 0}},
          {{KW_ZNMEDIATYPE, 10}, {KW_MEDIATYPEWEIGHT, 5}}),
      Use("refused", false, duplex, conflict, IDOK, {{KW_PAPERCOLOR, 7}}, {}, {IDCANCEL, IDCANCEL}),
      Use("the others changed", false, duplex, conflict, IDOK,
          {{KW_ZNMEDIATYPE, 1}, {KW_PAPERCOLOR, 7}, {KW_MEDIATYPEBYPASS, 0}, {KW_DUPLEX, 0}}, {},
          {IDOK, IDOK}),
      Use("no answer to the second question", false, duplex, conflict, IDCANCEL, {}, {}, {IDOK, 0}),
      Use("taken over as it was", true,
          {{KW_MEDIATYPEBYPASS, 4}, {KW_MANUALFEEDDUPLEX, 2}, {KW_AUTOTRAYSETTINGTOBYPASS, 1}},
          {{IDOK}}, IDOK, {{KW_MEDIATYPEWEIGHTBYPASS, 3}}),
      Use("taken over no more", true, {{KW_AUTOTRAYSETTINGTOBYPASS, 1}},
          {{IDC_MEDIA_TAKE_OVER}, {IDC_MEDIA_MANUAL_DUPLEX, 4}, {IDOK}}, IDOK,
          {{KW_MANUALFEEDDUPLEX, 4}, {KW_AUTOTRAYSETTINGTOBYPASS, 0}}),
      Use("defaults of the manual feed", true, {{KW_MEDIATYPEBYPASS, 3}},
          {{IDC_RESTORE_DEFAULTS}, {IDOK}}, IDOK,
          {{KW_MEDIATYPEBYPASS, 0},
           {KW_MEDIATYPEWEIGHTBYPASS, 1},
           {KW_MANUALFEEDDUPLEX, 3},
           {KW_AUTOTRAYSETTINGTOBYPASS, 1}},
          {{KW_MANUALFEEDDUPLEX, 3}}),
      Use("taken over, yet asked about", true, {{KW_DUPLEX, 2}, {KW_AUTOTRAYSETTINGTOBYPASS, 1}},
          {{IDC_MEDIA_TYPE, 11}, {IDOK}}, IDOK,
          {{KW_DUPLEX, 0}, {KW_MEDIATYPEBYPASS, 11}, {KW_MEDIATYPEWEIGHTBYPASS, 3}}, {}, {IDOK}),
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    MessageBoxes::answers = row.answers;
    sheet_->options = {};
    for (const auto& [id, selection] : row.now) {
      sheet_->SetCurrent(id, selection);
    }
    for (const auto& [id, selection] : row.defaults) {
      sheet_->options[id].defaultSelection = selection;
    }
    OptionTable expected = sheet_->options;
    for (const auto& [id, selection] : row.changed) {
      expected[id].currentSelection = selection;
    }
    const auto use = [&] {
      for (const auto& [control, entry] : row.steps) {
        entry < 0 ? Click(control) : Choose(control, entry);
      }
    };
    EXPECT_EQ(Run(row.isBypass, use), row.result);
    EXPECT_TRUE(MessageBoxes::answers.empty());
    for (KeywordId id = 0; id < KW_MAX; ++id) {
      EXPECT_EQ(Current(id), expected[id].currentSelection) << id;
    }
  }
}

TEST_F(MediaDialog, EnablesWhatTheTypeAndTheBoxLeaveToChoose) {
  FakeDriverPath::path.clear();  // entries without names are entries, too
  sheet_->SetCurrent(KW_MEDIATYPEBYPASS, 6);
  sheet_->SetCurrent(KW_AUTOTRAYSETTINGTOBYPASS, 1);
  const INT_PTR result = Run(true, [this] {
    EXPECT_EQ(Enabled(), (Flags{false, false, false, false}));
    Click(IDC_MEDIA_TAKE_OVER);
    EXPECT_EQ(Enabled(), (Flags{true, false, false, true}));
    Choose(IDC_MEDIA_TYPE, 2);
    EXPECT_EQ(Enabled(), (Flags{true, true, true, true}));
    EXPECT_EQ(Count(IDC_MEDIA_WEIGHT), 3);
    Click(IDC_RESTORE_DEFAULTS);
    EXPECT_EQ(Enabled(), (Flags{false, true, false, false}));
    ::DestroyWindow(Control(IDC_MEDIA_MANUAL_DUPLEX));
    Click(IDOK);
  });
  EXPECT_EQ(result, IDCANCEL) << "closed with a control missing";
}

TEST_F(MediaDialog, CompanionAndDeviceNameThePaper) {
  const TempFolder folder;
  folder.Write("device.cps", "CustomPaperName1=Glossy\nCustomPaperName2=\nCustomPaperName20=x" +
                                 std::string(300, '\x83'));
  SetDeviceProfile(*sheet_, "device");
  FakeDriverPath::data = folder.Path("driver.ppd");
  const LONG loads = calls_[companion::Call::Load];
  Run(true, [&] {
    EXPECT_EQ(calls_[companion::Call::Load], loads + 1);
    EXPECT_EQ(Text(IDC_MEDIA_WEIGHT_LABEL), Japanese("用紙坪量:"));
    EXPECT_EQ(Count(IDC_MEDIA_TYPE), 35);
    EXPECT_EQ(TypeName(14), Japanese("封筒"));
    EXPECT_EQ(TypeName(15), "Glossy");
    EXPECT_EQ(TypeName(16), Japanese("ユーザー用紙2"));
    EXPECT_EQ(TypeName(34), "x" + std::string(254, '\x83'));
    EXPECT_EQ(Text(IDC_MEDIA_MANUAL_DUPLEX_LABEL), Japanese("手差し手動両面:"));
    EXPECT_EQ(Count(IDC_MEDIA_MANUAL_DUPLEX), 5);
  });
}

}  // namespace
}  // namespace zn::test
