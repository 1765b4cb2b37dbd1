// The job page: job name, colour mode, printer mode, spool option, and the way to the companion
// module's print option setting dialog.
#include <array>
#include <string>
#include <utility>

#include "bridge/companion.h"
#include "pages/commondlg.h"
#include "pages/print_option_setting.h"
#include "pages/profile_source.h"
#include "pages/pspage.h"
#include "platform/resources.h"
#include "res/resource_ids.h"
#include "session/job_values.h"
#include "session/session.h"

namespace zn {
namespace {

constexpr std::array kNameModeRadios{IDC_JOB_NAME_AUTOMATIC, IDC_JOB_NAME_ENTERED};
constexpr std::array kSpoolRadios{IDC_JOB_SPOOL_NONE, IDC_JOB_SPOOL_AFTER_PRINT,
                                  IDC_JOB_SPOOL_ONLY};
constexpr std::array kPageKeywords{KW_COLORMODEL, KW_PRINTERMODE, KW_SPOOLOPTION};

constexpr int kMinJobName = 1;
constexpr int kMaxJobName = 255;
constexpr int kJobNameReadLimit = 258;

// The last job name that the edit's guard accepted. One per process: page objects keep nothing
// from one message to the next.
char g_acceptedJobName[kMaxJobName + 2];

void RememberJobName(const char* text) {
  ::lstrcpynA(g_acceptedJobName, text, sizeof g_acceptedJobName);
}

}  // namespace

int CCommonDlg::OnInitDialog(WPARAM /*wParam*/, PROPSHEETPAGEA* page) {
  SheetContext* sheet = AttachSheet(page);
  if (sheet == nullptr) {
    return 0;
  }
  InitJobName(*sheet);
  return Initialize(sheet, false);
}

int CCommonDlg::Initialize(SheetContext* sheet, bool useDefault) {
  return sheet != nullptr && InitColorModel(*sheet, useDefault) != 0 &&
         InitPrinterMode(*sheet, useDefault) != 0 && InitSpoolOption(*sheet, useDefault) != 0;
}

int CCommonDlg::OnCommand(WORD notifyCode, WORD controlId, HWND /*control*/) {
  SheetContext* sheet = Sheet();
  if (sheet == nullptr) {
    return 0;
  }
  if (notifyCode >= CBN_DROPDOWN && notifyCode <= CBN_SELENDOK) {
    return 1;
  }
  const bool editing = notifyCode == EN_CHANGE && controlId == IDC_JOB_NAME;
  if (notifyCode != BN_CLICKED && notifyCode != CBN_SELCHANGE && !editing) {
    return 0;
  }
  switch (controlId) {
    case IDC_JOB_NAME_AUTOMATIC:
    case IDC_JOB_NAME_ENTERED:
      ::EnableWindow(Control(IDC_JOB_NAME), controlId == IDC_JOB_NAME_ENTERED);
      break;
    case IDC_JOB_NAME:
      if (!GuardJobName() && editing) {
        return 1;  // set by the page itself: nothing to apply
      }
      break;
    case IDC_JOB_PRINTER_MODE:
      ApplyPrinterMode(*sheet);
      break;
    case IDC_JOB_COLOR_MODE:
      ApplyColorModel(*sheet);
      break;
    case IDC_JOB_SPOOL_NONE:
    case IDC_JOB_SPOOL_AFTER_PRINT:
    case IDC_JOB_SPOOL_ONLY:
      ApplySpoolOption(*sheet);
      break;
    case IDC_RESTORE_DEFAULTS:
      return RestoreDefaults(*sheet);
    case IDC_JOB_PRINT_OPTIONS:
      OpenPrintOptions(*sheet);
      return 1;
    default:
      break;
  }
  NotifyChanged();
  return 1;
}

int CCommonDlg::OnSetActive() {
  SheetContext* sheet = Sheet();
  if (sheet == nullptr) {
    return 0;
  }
  MakeActivePage(*sheet);
  // The lists keep their entries while the sheet is open; only the selections can be stale.
  for (const auto& [list, id] : {std::pair{IDC_JOB_COLOR_MODE, KW_COLORMODEL},
                                 std::pair{IDC_JOB_PRINTER_MODE, KW_PRINTERMODE}}) {
    ::SendMessageA(Control(list), CB_SETCURSEL, OptionIndex(*sheet, id, false), 0);
  }
  SetSpoolOption(OptionIndex(*sheet, KW_SPOOLOPTION, false));
  return 1;
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
  CSession session(sheet);
  if (::IsDlgButtonChecked(window_, IDC_JOB_PRINTER_DEFAULT) == BST_CHECKED &&
      session.SavePrinterDefault() == -1) {
    ShowMessage(window_, IDS_PRINTER_DEFAULT_FAILED, 0, MB_ICONEXCLAMATION);
  }
  ApplyColorModel(*sheet);
  ApplyPrinterMode(*sheet);
  ApplySpoolOption(*sheet);
  session.CommitSession();
  CompanionModule(sheet->hPrinter).DeleteMember();
  return 1;
}

int CCommonDlg::RestoreDefaults(SheetContext& sheet) {
  for (const KeywordId id : kPageKeywords) {
    sheet.RestoreDefault(id);
  }
  const int result = Initialize(&sheet, true);
  Redraw();
  MakeActivePage(sheet);
  return result;
}

void CCommonDlg::OpenPrintOptions(SheetContext& sheet) {
  ApplySpoolOption(sheet);
  ApplyColorModel(sheet);
  ApplyPrinterMode(sheet);
  const bool accepted = RunPrintOptionSetting(sheet, ::GetParent(window_));
  LoadData(sheet);
  MakeActivePage(sheet);
  if (accepted) {
    CProfileInfo profile;
    UpdateProfile(profile, sheet);
    InitColorModel(sheet, false);
  }
}

// --- Job name ---

void CCommonDlg::InitJobName(SheetContext& sheet) const {
  const CompanionModule companion(sheet.hPrinter);
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
  char text[1025];  // wsprintf writes at most 1,024 characters
  ::wsprintfA(text, LoadResourceString(IDS_JOB_NAME_LENGTH).c_str(), kMinJobName, kMaxJobName);
  ShowMessage(window_, text, IDS_WARNING_CAPTION, MB_ICONEXCLAMATION);
  return false;
}

// --- Colour mode, printer mode, spool option ---

int CCommonDlg::InitColorModel(SheetContext& sheet, bool useDefault) const {
  if (!InitComboBox(window_, sheet, KW_COLORMODEL, IDC_JOB_COLOR_MODE_LABEL, useDefault)) {
    return 0;
  }
  const HWND list = Control(IDC_JOB_COLOR_MODE);
  const std::uint32_t count = OptionCount(sheet, KW_COLORMODEL);
  for (std::uint32_t index = 0; index < count; ++index) {
    ::SendMessageA(list, CB_SETITEMDATA, index, static_cast<LPARAM>(index));
  }
  return 1;
}

int CCommonDlg::InitPrinterMode(SheetContext& sheet, bool useDefault) const {
  return InitComboBox(window_, sheet, KW_PRINTERMODE, IDC_JOB_PRINTER_MODE_LABEL, useDefault);
}

int CCommonDlg::InitSpoolOption(SheetContext& sheet, bool useDefault) const {
  return InitRadioGroup(window_, sheet, KW_SPOOLOPTION, IDC_JOB_SPOOL_GROUP, kSpoolRadios,
                        useDefault);
}

void CCommonDlg::LoadData(SheetContext& sheet) const {
  SetSpoolOption(OptionIndex(sheet, KW_SPOOLOPTION, false));
  SetColorModel(sheet, OptionIndex(sheet, KW_COLORMODEL, false));
  SetPrinterModel(OptionIndex(sheet, KW_PRINTERMODE, false));
}

void CCommonDlg::SetColorModel(SheetContext& sheet, std::uint32_t value) const {
  const HWND list = Control(IDC_JOB_COLOR_MODE);
  const std::uint32_t count = OptionCount(sheet, KW_COLORMODEL);
  for (std::uint32_t index = 0; index < count; ++index) {
    if (::SendMessageA(list, CB_GETITEMDATA, index, 0) == static_cast<LRESULT>(value)) {
      ::SendMessageA(list, CB_SETCURSEL, index, 0);
      return;
    }
  }
}

std::optional<std::uint32_t> CCommonDlg::GetColorModel(const SheetContext& sheet) const {
  if (!IsActivePage(sheet)) {
    return sheet.Current(KW_COLORMODEL);
  }
  const HWND list = Control(IDC_JOB_COLOR_MODE);
  const auto index = SelectedIndex(list);
  if (!index) {
    return std::nullopt;
  }
  return static_cast<std::uint32_t>(::SendMessageA(list, CB_GETITEMDATA, *index, 0));
}

void CCommonDlg::ApplyColorModel(SheetContext& sheet) const {
  if (const auto value = GetColorModel(sheet)) {
    sheet.SetCurrent(KW_COLORMODEL, *value);
  }
}

void CCommonDlg::SetPrinterModel(std::uint32_t index) const {
  ::SendMessageA(Control(IDC_JOB_PRINTER_MODE), CB_SETCURSEL, index, 0);
}

std::optional<std::uint32_t> CCommonDlg::GetPrinterModel(const SheetContext& sheet) const {
  return IsActivePage(sheet) ? SelectedIndex(Control(IDC_JOB_PRINTER_MODE))
                             : sheet.Current(KW_PRINTERMODE);
}

void CCommonDlg::ApplyPrinterMode(SheetContext& sheet) const {
  if (const auto index = GetPrinterModel(sheet)) {
    sheet.SetCurrent(KW_PRINTERMODE, *index);
  }
}

void CCommonDlg::SetSpoolOption(std::uint32_t index) const {
  CheckRadio(window_, kSpoolRadios, index);
}

int CCommonDlg::GetSpoolOption(const SheetContext& sheet) const {
  return IsActivePage(sheet) ? CheckedRadio(window_, kSpoolRadios)
                             : static_cast<int>(sheet.Current(KW_SPOOLOPTION));
}

void CCommonDlg::ApplySpoolOption(SheetContext& sheet) const {
  const int index = GetSpoolOption(sheet);
  if (index >= 0) {
    sheet.SetCurrent(KW_SPOOLOPTION, static_cast<std::uint32_t>(index));
  }
}

}  // namespace zn
