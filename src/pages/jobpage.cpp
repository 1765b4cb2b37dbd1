// The job page: job name, colour mode, printer mode, spool option, and the way to the companion
// module's print option setting dialog.
#include <algorithm>
#include <array>
#include <string>

#include "bridge/companion.h"
#include "pages/commondlg.h"
#include "pages/page_frame.h"
#include "pages/print_option_setting.h"
#include "pages/profile_source.h"
#include "pages/pspage.h"
#include "platform/format_text.h"
#include "platform/resources.h"
#include "res/resource_ids.h"
#include "session/job_values.h"
#include "session/session.h"

namespace zn {
namespace {

constexpr std::array kNameModeRadios{IDC_JOB_NAME_AUTOMATIC, IDC_JOB_NAME_ENTERED};
constexpr std::array kSpoolRadios{IDC_JOB_SPOOL_NONE, IDC_JOB_SPOOL_AFTER_PRINT,
                                  IDC_JOB_SPOOL_ONLY};
// InitColorModel, SetColorModel, GetColorModel, ApplyColorModel; InitPrinterMode, SetPrinterModel,
// GetPrinterModel; the spool option.
constexpr std::array kControls{
    ControlRow{.keyword = KW_COLORMODEL,
               .kind = ControlKind::ExtendedList,
               .label = IDC_JOB_COLOR_MODE_LABEL,
               .id = IDC_JOB_COLOR_MODE,
               .caption = Caption::CompanionColon,
               .coding = {.itemData = true}},
    ControlRow{.keyword = KW_PRINTERMODE,
               .kind = ControlKind::ExtendedList,
               .label = IDC_JOB_PRINTER_MODE_LABEL,
               .id = IDC_JOB_PRINTER_MODE,
               .caption = Caption::CompanionColon},
    ControlRow{.keyword = KW_SPOOLOPTION,
               .kind = ControlKind::Radios,
               .label = IDC_JOB_SPOOL_GROUP,
               .radios = kSpoolRadios,
               .caption = Caption::Companion,
               .tip = IDS_TIP_SPOOL},
};
// The companion module's dialog on the settings of all pages; LoadData is what shows them again.
void OpenPrintOptions(PageFrame& page) {
  SheetContext& sheet = page.Sheet();
  page.Store();
  const bool accepted = RunPrintOptionSetting(sheet, ::GetParent(page.Window()));
  page.Show();
  sheet.activePage = page.Window();
  if (accepted) {
    // Every filling of a page reads the profile itself; read now, its trace says whether it is
    // good.
    CProfileInfo profile;
    UpdateProfile(profile, sheet);
    page.Refill(KW_COLORMODEL);
  }
}

constexpr std::array kButtons{
    ButtonRow{.id = IDC_JOB_PRINT_OPTIONS, .press = &OpenPrintOptions, .isChange = false}};

constexpr std::array<WORD, 2> kCommandCodes{BN_CLICKED, CBN_SELCHANGE};
constexpr PageTable kTable{.controls = kControls,
                           .codes = kCommandCodes,
                           .answerToOtherCodes = 0,
                           .restoreButton = IDC_RESTORE_DEFAULTS,
                           .restoringIsAChange = false,
                           .buttons = kButtons,
                           .readsOnlyWhileActive = true};

constexpr int kMinJobName = 1;
constexpr int kJobNameReadLimit = 258;

// The last job name that the edit's guard accepted. One per process: page objects keep nothing
// from one message to the next.
char g_acceptedJobName[kMaxJobName + 2];

void RememberJobName(const char* text) {
  ::lstrcpynA(g_acceptedJobName, text, sizeof g_acceptedJobName);
}

}  // namespace

const PageTable& CCommonDlg::Table() noexcept {
  return kTable;
}

int CCommonDlg::OnInitDialog(WPARAM /*wParam*/, PROPSHEETPAGEA* page) {
  SheetContext* sheet = AttachSheet(page);
  if (sheet == nullptr) {
    return 0;
  }
  // Stays loaded until the page is filled.
  const CompanionModule companion(sheet->hPrinter);
  InitJobName(*sheet, companion);
  return Initialize(sheet, false);
}

int CCommonDlg::Initialize(SheetContext* sheet, bool useDefault) {
  return Fill(kTable, sheet, useDefault);
}

int CCommonDlg::OnCommand(WORD notifyCode, WORD controlId, HWND /*control*/) {
  SheetContext* sheet = Sheet();
  if (sheet == nullptr) {
    return 0;
  }
  if (notifyCode >= CBN_DROPDOWN && notifyCode <= CBN_SELENDOK) {
    return 1;
  }
  if (controlId == IDC_JOB_NAME && notifyCode == EN_CHANGE) {
    if (GuardJobName()) {  // else the page itself set the text: nothing to apply
      NotifyChanged();
    }
    return 1;
  }
  if (std::ranges::find(kCommandCodes, notifyCode) != kCommandCodes.end()) {
    switch (controlId) {
      case IDC_JOB_NAME_AUTOMATIC:
      case IDC_JOB_NAME_ENTERED:
        ::EnableWindow(Control(IDC_JOB_NAME), controlId == IDC_JOB_NAME_ENTERED);
        break;
      case IDC_JOB_NAME:
        GuardJobName();
        break;
      default:
        break;
    }
  }
  return Command(kTable, notifyCode, controlId);
}

int CCommonDlg::OnSetActive() {
  return Activate(kTable);
}

int CCommonDlg::OnKillActive() {
  SheetContext* sheet = Sheet();
  if (sheet == nullptr) {
    return 0;
  }
  if (!ApplyJobName(*sheet)) {
    SetResult(TRUE);
    return 1;
  }
  if (::IsDlgButtonChecked(window_, IDC_JOB_PRINTER_DEFAULT) == BST_CHECKED &&
      CSession(sheet).SavePrinterDefault() == -1) {
    ShowMessage(window_, IDS_PRINTER_DEFAULT_FAILED, 0, MB_ICONEXCLAMATION);
  }
  PageFrame(window_, *sheet, kTable).Store();
  Commit();
  CompanionModule(sheet->hPrinter).DeleteMember();
  return 1;
}

// --- Job name ---

void CCommonDlg::InitJobName(SheetContext& sheet, const CompanionModule& companion) const {
  SetLabelText(Control(IDC_JOB_NAME_MODE_LABEL),
               companion.GetKeywordTranslation(companion_label::kJobNameMode), true);
  SetLabelText(Control(IDC_JOB_NAME_LABEL),
               companion.GetKeywordTranslation(companion_label::kJobName), true);
  const auto modes =
      companion.GetKeywordOptionString(companion_label::kJobNameModes, kNameModeRadios.size());
  for (std::size_t mode = 0; mode < kNameModeRadios.size(); ++mode) {
    SetLabelText(Control(kNameModeRadios[mode]), modes[mode], false);
  }
  CheckRadio(window_, kNameModeRadios, static_cast<std::uint32_t>(JobNameModeOf(sheet)));

  const HWND edit = Control(IDC_JOB_NAME);
  const std::string name(JobNameOf(sheet));
  RememberJobName(name.c_str());
  ::SetWindowTextA(edit, name.c_str());
  ::EnableWindow(edit, JobNameModeOf(sheet) == JobNameMode::Entered);
}

bool CCommonDlg::GuardJobName() const {
  const HWND edit = Control(IDC_JOB_NAME);
  const std::string text = ControlText(edit, kJobNameReadLimit);
  if (text.size() <= kMaxJobName) {
    const bool changed = text != g_acceptedJobName;
    RememberJobName(text.c_str());
    return changed;
  }
  ::MessageBeep(MB_ICONASTERISK);
  DWORD start = 0;
  DWORD end = 0;
  ::SendMessageA(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  ::SetWindowTextA(edit, g_acceptedJobName);
  ::SendMessageA(edit, EM_SETSEL, start > 0 ? start - 1 : 0, end > 0 ? end - 1 : 0);
  return true;
}

bool CCommonDlg::ApplyJobName(SheetContext& sheet) const {
  const int mode = CheckedRadio(window_, kNameModeRadios);
  if (mode >= 0) {
    SetJobNameMode(sheet, static_cast<JobNameMode>(mode));
  }
  if (JobNameModeOf(sheet) == JobNameMode::Automatic) {
    return true;
  }
  const std::string name = ControlText(Control(IDC_JOB_NAME), kJobNameReadLimit);
  if (name.size() >= kMinJobName && name.size() <= kMaxJobName) {
    SetJobName(sheet, name);
    return true;
  }
  ShowMessage(window_,
              FillIn(LoadResourceString(IDS_JOB_NAME_LENGTH),
                     {std::to_string(kMinJobName), std::to_string(kMaxJobName)}),
              IDS_WARNING_CAPTION, MB_ICONEXCLAMATION);
  return false;
}

}  // namespace zn
