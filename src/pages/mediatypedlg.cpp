#include "pages/mediatypedlg.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pages/media_weight.h"
#include "pages/page_frame.h"
#include "pages/pspage.h"
#include "pages/restriction_question.h"
#include "platform/double_byte.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

struct LabelRow {
  int id;
  std::uint32_t label;  // of the companion module
};
constexpr std::array kLabels{
    LabelRow{IDC_MEDIA_TYPE_LABEL, companion_label::kPaperType},
    LabelRow{IDC_MEDIA_WEIGHT_LABEL, companion_label::kPaperWeight},
    LabelRow{IDC_MEDIA_COLOR_LABEL, companion_label::kPaperColor},
};
constexpr std::array kLists{IDC_MEDIA_TYPE, IDC_MEDIA_WEIGHT, IDC_MEDIA_COLOR};
constexpr std::array kBypassControls{IDC_MEDIA_TAKE_OVER, IDC_MEDIA_MANUAL_DUPLEX_LABEL,
                                     IDC_MEDIA_MANUAL_DUPLEX};

// The types that the device's own paper names stand for, from the first on.
constexpr std::size_t kFirstCustomType = 15;
constexpr std::size_t kMaxCustomName = 255;  // bytes

// The entries stand for the options from `first` on.
void FillOptions(HWND list, std::span<std::string> names, std::uint32_t first) {
  FillList(list, true, names, {}, first);
}

}  // namespace

INT_PTR CMediaTypeDlg::DoModal() {
  return RunModalDialog(templateId_, *this);
}

int CMediaTypeDlg::OnInitDialog() {
  PageSources sources(*sheet_);
  isFilled_ = FillLists(sources);
  return isFilled_;
}

int CMediaTypeDlg::OnCommand(WORD notifyCode, WORD controlId, HWND /*control*/) {
  if (notifyCode == BN_CLICKED) {
    OnButton(controlId);
  } else if (notifyCode == CBN_SELCHANGE) {
    OnSelChange(controlId);
  }
  return 1;
}

int CMediaTypeDlg::RestoreDefaults() {
  PageSources sources(*sheet_);
  ShowDefaults(sources);
  return 1;
}

int CMediaTypeDlg::ApplyValues() {
  if (!isFilled_ || !HasControls()) {
    return 0;
  }
  const std::array old{OldSelection{keywords_.type, sheet_->Current(keywords_.type)},
                       OldSelection{keywords_.weight, sheet_->Current(keywords_.weight)}};
  const auto type = SelectedItemData(Control(IDC_MEDIA_TYPE));
  if (type) {
    sheet_->SetCurrent(keywords_.type, *type);
    sheet_->SetCurrent(
        keywords_.weight,
        SelectedItemData(Control(IDC_MEDIA_WEIGHT)).value_or(WeightsOf(*type).standard));
  }
  if (keywords_.takeOver != 0) {
    // On purpose not what the box says: the type is checked although it may be taken over.
    sheet_->SetCurrent(keywords_.takeOver, type ? 0 : 1);
  }
  if (const auto color = SelectedItemData(Control(IDC_MEDIA_COLOR))) {
    sheet_->SetCurrent(keywords_.color, *color);
  }
  const auto showOld = [this] {
    PageSources sources(*sheet_);
    SelectCurrentType(sources);
  };
  return ResolveRestrictions(
      *sheet_,
      {.window = window_,
       .group = keywords_.takeOver != 0 ? restriction::kMediaTypeBypass : restriction::kMediaType,
       .old = old,
       .showOld = showOld,
       .showDefault = nullptr});
}

int CMediaTypeDlg::OnButton(WORD id) {
  switch (id) {
    case IDOK: {
      const OptionTable before = sheet_->options;
      if (ApplyValues() == 0) {
        sheet_->options = before;  // the dialog stays open and may still be cancelled
        return 0;
      }
      ::EndDialog(window_, IDOK);
      return 1;
    }
    case IDCANCEL:
      ::EndDialog(window_, IDCANCEL);
      return 1;
    case IDC_RESTORE_DEFAULTS:
      return RestoreDefaults();
    default:
      return 0;
  }
}

int CMediaTypeDlg::OnSelChange(WORD id) {
  if (id == IDC_MEDIA_TYPE) {
    PageSources sources(*sheet_);
    UpdateMediaTypeWeight(sources, false);
  }
  return 1;
}

// --- The lists ---

bool CMediaTypeDlg::HasControls() const noexcept {
  const auto isThere = [this](int id) { return Control(id) != nullptr; };
  return std::ranges::all_of(kLabels, isThere, &LabelRow::id) &&
         std::ranges::all_of(kLists, isThere) &&
         (keywords_.takeOver == 0 || std::ranges::all_of(kBypassControls, isThere));
}

bool CMediaTypeDlg::FillLists(PageSources& sources) const {
  if (!HasControls()) {
    return false;
  }
  const CompanionModule& companion = sources.Companion();
  for (const LabelRow& row : kLabels) {
    SetLabelText(Control(row.id), companion.GetKeywordTranslation(row.label), true);
  }
  auto types = TypeNames(sources);
  FillOptions(Control(IDC_MEDIA_TYPE), types, 0);
  SelectCurrentType(sources);

  const HWND colorList = Control(IDC_MEDIA_COLOR);
  auto colors =
      companion.GetKeywordOptionString(keywords_.color, OptionCount(*sheet_, keywords_.color));
  FillOptions(colorList, colors, 0);
  SelectItemData(colorList, LOWORD(sheet_->Current(keywords_.color)));
  return true;
}

std::vector<std::string> CMediaTypeDlg::TypeNames(PageSources& sources) const {
  auto names = sources.Companion().GetKeywordOptionString(keywords_.type,
                                                          OptionCount(*sheet_, keywords_.type));
  std::string custom;
  for (std::uint32_t index = 0; index < maxCustomNames_ && kFirstCustomType + index < names.size();
       ++index) {
    sources.Profile().GetCustomPaperNameConfig(&custom, static_cast<int>(index));
    // As a list shows it: up to a zero byte, if it has one.
    const std::string_view shown = CutText(custom.c_str(), kMaxCustomName);
    if (!shown.empty()) {
      names[kFirstCustomType + index] = shown;
    }
  }
  return names;
}

void CMediaTypeDlg::SelectCurrentType(PageSources& sources) const {
  SelectItemData(Control(IDC_MEDIA_TYPE), LOWORD(sheet_->Current(keywords_.type)));
  UpdateMediaTypeWeight(sources, false);
}

void CMediaTypeDlg::ShowDefaults(PageSources& sources) const {
  SelectItemData(Control(IDC_MEDIA_TYPE), LOWORD(sheet_->Default(keywords_.type)));
  UpdateMediaTypeWeight(sources, true);
  SelectItemData(Control(IDC_MEDIA_COLOR), LOWORD(sheet_->Default(keywords_.color)));
}

void CMediaTypeDlg::UpdateMediaTypeWeight(PageSources& sources, bool useDefault) const {
  const auto type = SelectedItemData(Control(IDC_MEDIA_TYPE));
  if (!type) {
    return;
  }
  const WeightRange range = WeightsOf(*type);
  const HWND list = Control(IDC_MEDIA_WEIGHT);
  auto names = sources.Companion().GetKeywordOptionString(keywords_.weight, range.end);
  FillOptions(list, std::span(names).subspan(range.first), range.first);
  // The default is that of the type, not that of the keyword.
  SelectItemData(list, useDefault
                           ? range.standard
                           : range.KeepOrStandard(LOWORD(sheet_->Current(keywords_.weight))));
  EnableLists();
}

void CMediaTypeDlg::EnableLists() const {
  // Only the manual feed's dialog has the box.
  const bool isTakenOver = ::IsDlgButtonChecked(window_, IDC_MEDIA_TAKE_OVER) == BST_CHECKED;
  const bool hasWeights = ::SendMessageA(Control(IDC_MEDIA_WEIGHT), CB_GETCOUNT, 0, 0) > 0;
  ::EnableWindow(Control(IDC_MEDIA_TYPE), !isTakenOver);
  ::EnableWindow(Control(IDC_MEDIA_WEIGHT_LABEL), hasWeights);
  ::EnableWindow(Control(IDC_MEDIA_WEIGHT), hasWeights && !isTakenOver);
  ::EnableWindow(Control(IDC_MEDIA_COLOR), !isTakenOver);
}

// --- The automatic tray ---

CMediaTypeDlgAutoTrayMarzipan::CMediaTypeDlgAutoTrayMarzipan(SheetContext& sheet,
                                                             PlugInContext* context) noexcept
    : CMediaTypeDlg(sheet, context,
                    {.type = KW_ZNMEDIATYPE,
                     .weight = KW_MEDIATYPEWEIGHT,
                     .takeOver = 0,
                     .color = KW_PAPERCOLOR},
                    IDD_MEDIA_TYPE_AUTO) {}

// --- The manual feed ---

CMediaTypeBypassTrayDlgMarzipan::CMediaTypeBypassTrayDlgMarzipan(SheetContext& sheet,
                                                                 PlugInContext* context) noexcept
    : CMediaTypeDlg(sheet, context,
                    {.type = KW_MEDIATYPEBYPASS,
                     .weight = KW_MEDIATYPEWEIGHTBYPASS,
                     .takeOver = KW_AUTOTRAYSETTINGTOBYPASS,
                     .color = KW_PAPERCOLORBYPASS},
                    IDD_MEDIA_TYPE_BYPASS) {}

int CMediaTypeBypassTrayDlgMarzipan::OnInitDialog() {
  PageSources sources(*sheet_);
  if (!FillLists(sources)) {
    return 0;
  }
  InitManualFeedDuplex(sources, false);
  SetLabelText(Control(IDC_MEDIA_TAKE_OVER),
               sources.Companion().GetKeywordTranslation(KW_AUTOTRAYSETTINGTOBYPASS), false);
  isFilled_ = CheckTakeOver(LOWORD(sheet_->Current(KW_AUTOTRAYSETTINGTOBYPASS)) != 0);
  return 1;
}

int CMediaTypeBypassTrayDlgMarzipan::RestoreDefaults() {
  PageSources sources(*sheet_);
  ShowDefaults(sources);
  InitManualFeedDuplex(sources, true);
  CheckTakeOver(true);  // on purpose, whatever the keyword's default
  return 1;
}

int CMediaTypeBypassTrayDlgMarzipan::ApplyValues() {
  if (CMediaTypeDlg::ApplyValues() == 0) {
    return 0;
  }
  if (const auto duplex = SelectedIndex(Control(IDC_MEDIA_MANUAL_DUPLEX))) {
    sheet_->SetCurrent(KW_MANUALFEEDDUPLEX, *duplex);
  }
  sheet_->SetCurrent(KW_AUTOTRAYSETTINGTOBYPASS,
                     ::IsDlgButtonChecked(window_, IDC_MEDIA_TAKE_OVER) == BST_CHECKED ? 1 : 0);
  return 1;
}

int CMediaTypeBypassTrayDlgMarzipan::OnButton(WORD id) {
  if (id == IDC_MEDIA_TAKE_OVER) {
    EnableLists();
    return 1;
  }
  return CMediaTypeDlg::OnButton(id);
}

void CMediaTypeBypassTrayDlgMarzipan::InitManualFeedDuplex(PageSources& sources,
                                                           bool useDefault) const {
  const CompanionModule& companion = sources.Companion();
  SetLabelText(Control(IDC_MEDIA_MANUAL_DUPLEX_LABEL),
               companion.GetKeywordTranslation(KW_MANUALFEEDDUPLEX), true);
  const HWND list = Control(IDC_MEDIA_MANUAL_DUPLEX);
  auto names = companion.GetKeywordOptionString(KW_MANUALFEEDDUPLEX,
                                                OptionCount(*sheet_, KW_MANUALFEEDDUPLEX));
  FillList(list, false, names, {});
  const std::uint32_t selection =
      useDefault ? sheet_->Default(KW_MANUALFEEDDUPLEX) : sheet_->Current(KW_MANUALFEEDDUPLEX);
  SelectEntry(list, LOWORD(selection));
}

bool CMediaTypeBypassTrayDlgMarzipan::CheckTakeOver(bool isChecked) const {
  const UINT state = isChecked ? BST_CHECKED : BST_UNCHECKED;
  const bool isDone = ::CheckDlgButton(window_, IDC_MEDIA_TAKE_OVER, state) != FALSE;
  EnableLists();
  return isDone;
}

}  // namespace zn
