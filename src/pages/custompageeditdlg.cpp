#include "pages/custompageeditdlg.h"

#include <algorithm>
#include <array>

#include "bridge/companion.h"
#include "pages/pspage.h"

namespace zn {
namespace {

constexpr std::uint32_t kDirections = 4;
constexpr std::array kUnitRadios{IDC_CUSTOM_INCH, IDC_CUSTOM_MILLIMETER, IDC_CUSTOM_POINT};

// By dimension.
struct DimensionRow {
  KeywordId keyword;
  int edit;
  int range;
};
constexpr std::array<DimensionRow, kDimensions.size()> kRows{
    {{KW_CUSTOMPAPERWIDTH, IDC_CUSTOM_WIDTH, IDC_CUSTOM_WIDTH_RANGE},
     {KW_CUSTOMPAPERHEIGHT, IDC_CUSTOM_HEIGHT, IDC_CUSTOM_HEIGHT_RANGE}}};

const DimensionRow& RowOf(Dimension dimension) noexcept {
  return kRows[static_cast<std::size_t>(dimension)];
}

}  // namespace

int CCustomPageEditDlg::DoModal() {
  return RunModalDialog(templateId_, *this) == IDC_CUSTOM_OK ? IDC_CUSTOM_OK : IDC_CUSTOM_CANCEL;
}

int CCustomPageEditDlg::OnInitDialog() {
  for (const Dimension dimension : kDimensions) {
    ::SendMessageA(Control(RowOf(dimension).edit), EM_LIMITTEXT, kMaxSizeText, 0);
    size_.Set(dimension, sheet_->Current(RowOf(dimension).keyword));
  }
  ShowSize();
  CheckRadio(window_, kUnitRadios, static_cast<std::uint32_t>(size_.Unit()));
  if (!InitPaperDirection()) {
    return 0;
  }
  UpdateMaxBorderValue();
  return 1;
}

int CCustomPageEditDlg::OnCommand(WORD notifyCode, WORD controlId, HWND /*control*/) {
  // EN_CHANGE is none of them: a number is not repaired while it is typed.
  if (notifyCode != BN_CLICKED && notifyCode != CBN_SELCHANGE && notifyCode != EN_KILLFOCUS) {
    return 1;
  }
  switch (controlId) {
    case IDC_CUSTOM_WIDTH:
      OnEdit(Dimension::Width);
      break;
    case IDC_CUSTOM_HEIGHT:
      OnEdit(Dimension::Height);
      break;
    case IDC_CUSTOM_INCH:
    case IDC_CUSTOM_MILLIMETER:
    case IDC_CUSTOM_POINT:
      OnUnit(static_cast<PaperUnit>(controlId - IDC_CUSTOM_INCH));
      break;
    case IDC_CUSTOM_DIRECTION:
      UpdateMaxBorderValue();
      break;
    case IDC_CUSTOM_DEFAULTS:
      OnDefaults();
      break;
    case IDC_CUSTOM_OK:
      if (ApplyValues()) {
        ::EndDialog(window_, IDC_CUSTOM_OK);
      }
      break;
    case IDC_CUSTOM_CANCEL:
    case IDCANCEL:  // the Escape key and the close button
      ::EndDialog(window_, IDC_CUSTOM_CANCEL);
      break;
    default:
      break;
  }
  return 1;
}

bool CCustomPageEditDlg::InitPaperDirection() {
  auto names = CompanionModule(sheet_->hPrinter)
                   .GetKeywordOptionString(KW_CUSTOMPAPERDIRECTION, kDirections);
  FillList(Control(IDC_CUSTOM_DIRECTION), false, names, {});
  return SelectDirection(false);
}

bool CCustomPageEditDlg::SelectDirection(bool useDefault) const {
  const HWND list = Control(IDC_CUSTOM_DIRECTION);
  const std::uint32_t direction = useDefault ? sheet_->Default(KW_CUSTOMPAPERDIRECTION)
                                             : sheet_->Current(KW_CUSTOMPAPERDIRECTION);
  SelectEntry(list, LOWORD(direction));
  return list != nullptr;
}

bool CCustomPageEditDlg::IsTurned() const noexcept {
  const std::uint32_t direction = SelectedIndex(Control(IDC_CUSTOM_DIRECTION)).value_or(0);
  return direction == 1 || direction == 3;
}

std::uint32_t CCustomPageEditDlg::Entered(Dimension dimension) const {
  return ParseThousandths(
      ControlText(Control(RowOf(dimension).edit), static_cast<int>(kMaxSizeText)));
}

void CCustomPageEditDlg::ShowSize() const {
  for (const Dimension dimension : kDimensions) {
    ::SetWindowTextA(Control(RowOf(dimension).edit), size_.Text(dimension).c_str());
  }
}

void CCustomPageEditDlg::UpdateMaxBorderValue() {
  size_.UpdateLargest(IsTurned());
  UpdatePaperDirection();
}

void CCustomPageEditDlg::UpdatePaperDirection() const {
  for (const Dimension dimension : kDimensions) {
    ::SetWindowTextA(Control(RowOf(dimension).range), RangeText(size_, dimension).c_str());
  }
}

// Only the number behind the edit is repaired, so that the question comes when a text that is out
// of range is left there until OK.
void CCustomPageEditDlg::OnEdit(Dimension dimension) {
  const std::uint32_t entered = Entered(dimension);
  if (entered == 0) {
    ::SetWindowTextA(Control(RowOf(dimension).edit), TwoDecimals(0).c_str());
  }
  size_.Set(dimension, entered);
  UpdateMaxBorderValue();
  size_.Repair();
}

void CCustomPageEditDlg::OnUnit(PaperUnit unit) {
  CheckRadio(window_, kUnitRadios, static_cast<std::uint32_t>(unit));
  size_.ChangeUnit(unit, IsTurned());
  ShowSize();
  UpdatePaperDirection();
}

void CCustomPageEditDlg::OnDefaults() {
  for (const Dimension dimension : kDimensions) {
    size_.SetMillimeters(dimension, sheet_->Default(RowOf(dimension).keyword));
  }
  ShowSize();
  SelectDirection(true);
  UpdateMaxBorderValue();
}

bool CCustomPageEditDlg::ApplyValues() {
  const HWND list = Control(IDC_CUSTOM_DIRECTION);
  if (list == nullptr) {
    return false;
  }
  // A copy: the question takes the focus from an edit, which then repairs the dialog's own size.
  // Its limits are found anew, since Enter leaves the edit without that.
  CustomSize entered = size_;
  for (const Dimension dimension : kDimensions) {
    entered.Set(dimension, Entered(dimension));
  }
  entered.UpdateLargest(IsTurned());
  const bool isInRange = std::ranges::all_of(
      kDimensions, [&](Dimension dimension) { return entered.IsInRange(dimension); });
  if (!isInRange && ShowMessage(window_, IDS_CUSTOM_SIZE_CONFLICT, IDS_CUSTOM_SIZE_CAPTION,
                                MB_OKCANCEL | MB_ICONSTOP) != IDOK) {
    return false;
  }
  // On purpose as entered, in range or not.
  for (const Dimension dimension : kDimensions) {
    sheet_->SetCurrent(RowOf(dimension).keyword, entered.InMillimeters(dimension));
  }
  if (const auto direction = SelectedIndex(list)) {
    sheet_->SetCurrent(KW_CUSTOMPAPERDIRECTION, *direction);
  }
  return true;
}

}  // namespace zn
