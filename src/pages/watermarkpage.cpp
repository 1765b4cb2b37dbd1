#include "pages/watermarkpage.h"

#include <array>

#include "pages/accessible_texts.h"
#include "pages/page_frame.h"
#include "pages/page_images.h"
#include "pages/pspage.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

constexpr std::uint32_t kOrders = CWatermarkPageDlg::kLimits.orderChoices;
constexpr std::uint32_t kLowest = CWatermarkPageDlg::kLimits.lowestNumber;
constexpr std::uint32_t kHighest = CWatermarkPageDlg::kLimits.highestNumber;
constexpr std::uint32_t kPositions = 5;
constexpr int kMaxLabel = 255;

// By position.
constexpr std::array<int, kPositions> kPositionRadios{
    IDC_WATERMARK_UPPER_LEFT, IDC_WATERMARK_UPPER_RIGHT, IDC_WATERMARK_LOWER_LEFT,
    IDC_WATERMARK_LOWER_RIGHT, IDC_WATERMARK_CENTER};

bool IsOn(const SheetContext& sheet) {
  return sheet.Current(KW_WATERMARK) == 1;
}

constexpr std::array kControls{
    // InitWaterMark, UpdateWaterMark, ApplyWaterMark, UpdateControls
    ControlRow{.keyword = KW_WATERMARK,
               .kind = ControlKind::CheckBox,
               .id = IDC_WATERMARK_ON,
               .governs = true},
    // InitWaterMarkNo, UpdateWaterMarkNo, ApplyWaterMarkNo. On purpose the entry is held against
    // the number's bounds, which count from 1: choosing the first entry keeps the stored number.
    ControlRow{.keyword = KW_WMSELECTION,
               .kind = ControlKind::List,
               .id = IDC_WATERMARK_NUMBER,
               .entries = kHighest,
               .coding = {.first = kLowest,
                          .lowest = kLowest,
                          .highest = kHighest,
                          .lowestEntry = kLowest,
                          .highestEntry = kHighest,
                          .misfit = Misfit::Unselected},
               .usable = &IsOn},
    // InitWaterMarkPosition, UpdateWaterMarkPosition, ApplyWaterMarkPosition: list and radios
    ControlRow{.keyword = KW_WMPOSITION,
               .kind = ControlKind::List,
               .id = IDC_WATERMARK_POSITION,
               .coding = {.highest = kPositions - 1,
                          .highestEntry = kPositions - 1,
                          .misfit = Misfit::Empty},
               .usable = &IsOn},
    ControlRow{.keyword = KW_WMPOSITION,
               .kind = ControlKind::Radios,
               .radios = kPositionRadios,
               .coding = {.highest = kPositions - 1},
               .click = RadioClick::Clicked,
               .usable = &IsOn},
    // InitWaterMarkOrder, UpdateWaterMarkOrder, ApplyWaterMarkOrder
    ControlRow{.keyword = KW_WMORDER,
               .kind = ControlKind::List,
               .id = IDC_WATERMARK_ORDER,
               .coding = {.highest = kOrders - 1, .highestEntry = kOrders - 1},
               .usable = &IsOn},
};

constexpr std::array<WORD, 4> kCommandCodes{BN_CLICKED, CBN_SELCHANGE, EN_KILLFOCUS, EN_CHANGE};
constexpr PageTable kTable{.controls = kControls,
                           .codes = kCommandCodes,
                           .answerToOtherCodes = 1,
                           .restoreButton = IDC_WATERMARK_RESTORE_DEFAULTS,
                           .restoringIsAChange = true};

}  // namespace

const PageTable& CWatermarkPageDlg::Table() noexcept {
  return kTable;
}

int CWatermarkPageDlg::OnInitDialog(WPARAM /*wParam*/, PROPSHEETPAGEA* page) {
  LoadWarningImage();
  const int result = Initialize(AttachSheet(page), false);
  // The radios have their place instead of a text: readers hear what the list calls the position.
  const AccessibleTexts texts;
  const HWND list = Control(IDC_WATERMARK_POSITION);
  for (std::uint32_t position = 0; position < kPositions; ++position) {
    texts.SetName(Control(kPositionRadios[position]), EntryText(list, position, false));
  }
  texts.SetName(list, ControlText(Control(IDC_WATERMARK_POSITION_GROUP), kMaxLabel));
  return result;
}

int CWatermarkPageDlg::OnCommand(WORD notifyCode, WORD controlId, HWND /*control*/) {
  return Command(kTable, notifyCode, controlId);
}

int CWatermarkPageDlg::OnSetActive() {
  return Activate(kTable);
}

int CWatermarkPageDlg::OnKillActive() {
  return Commit();
}

int CWatermarkPageDlg::Initialize(SheetContext* sheet, bool useDefault) {
  return Fill(kTable, sheet, useDefault);
}

}  // namespace zn
