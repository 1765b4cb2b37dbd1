#include "pages/traypage.h"

#include <array>

#include "pages/job_picture.h"
#include "pages/mediatypedlg.h"
#include "pages/page_frame.h"
#include "pages/page_images.h"
#include "pages/pspage.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

constexpr std::uint32_t kAutomaticSource = 0;
constexpr std::uint32_t kBypassSource = 6;

constexpr std::array kPageOrderRadios{IDC_TRAY_FORWARD_ORDER, IDC_TRAY_REVERSE_ORDER};

// By option; the lists' images end with the warning icon.
constexpr std::array<std::uint8_t, 22> kStapleImages{0, 1,  2,  3,  4,  5,  6,  7,  8,  9, 9,
                                                     9, 10, 11, 12, 13, 14, 15, 16, 17, 1, 7};
constexpr std::array<std::uint8_t, 16> kPunchImages{0, 1, 2, 3, 4,  1,  5,  6,
                                                    7, 8, 5, 9, 10, 11, 12, 9};

// On purpose the stored long edge is not shown again, but option 5 is.
std::optional<std::uint32_t> ShownPunch(SelectionPair punch) {
  return punch.first != kLongEdgeStored ? PunchEntry(punch) : std::nullopt;
}
constexpr PairCoding kPunchPairing{KW_PUNCHHOLES, kPunchEntries, &ShownPunch};

bool HasPageOrder(const SheetContext& sheet) {
  return sheet.hasPageOrder;
}

constexpr std::array kControls{
    // InitSource
    ControlRow{.keyword = KW_SOURCE,
               .kind = ControlKind::ExtendedList,
               .label = IDC_TRAY_SOURCE_LABEL,
               .id = IDC_TRAY_SOURCE,
               .caption = Caption::CompanionColon,
               .installed = Installed::Trays,
               .redraws = true},
    // InitOutputTray
    ControlRow{.keyword = KW_OUTPUTTRAY,
               .kind = ControlKind::ExtendedList,
               .label = IDC_TRAY_OUTPUT_LABEL,
               .id = IDC_TRAY_OUTPUT,
               .caption = Caption::CompanionColon,
               .installed = Installed::Outputs,
               .redraws = true},
    // InitJog
    ControlRow{.keyword = KW_JOG,
               .kind = ControlKind::ExtendedList,
               .label = IDC_TRAY_JOG_LABEL,
               .id = IDC_TRAY_JOG,
               .caption = Caption::CompanionColon,
               .redraws = true,
               .tip = IDS_TIP_JOG},
    // UpdateSort
    ControlRow{.keyword = KW_COLLATE,
               .kind = ControlKind::CheckBox,
               .id = IDC_TRAY_COLLATE,
               .caption = Caption::CompanionColon,
               .redraws = true,
               .tip = IDS_TIP_COLLATE},
    // InitStaple, UpdateStaple, ApplyStaple
    ControlRow{.keyword = KW_STAPLE,
               .kind = ControlKind::ExtendedList,
               .label = IDC_TRAY_STAPLE_LABEL,
               .id = IDC_TRAY_STAPLE,
               .caption = Caption::CompanionColon,
               .images = {IDB_STAPLE, kStapleImages},
               .installed = Installed::Staples,
               .restriction = restriction::kStaple,
               .redraws = true},
    // InitPunch, ApplyPunch
    ControlRow{.keyword = KW_PUNCH,
               .kind = ControlKind::ExtendedList,
               .label = IDC_TRAY_PUNCH_LABEL,
               .id = IDC_TRAY_PUNCH,
               .caption = Caption::CompanionColon,
               .images = {IDB_PUNCH, kPunchImages},
               .installed = Installed::Punches,
               .pairing = &kPunchPairing,
               .restriction = restriction::kPunch,
               .redraws = true,
               .tip = IDS_TIP_PUNCH},
    // ApplyPageOrder
    ControlRow{.keyword = KW_PAGEORDER,
               .kind = ControlKind::Radios,
               .label = IDC_TRAY_PAGE_ORDER_GROUP,
               .radios = kPageOrderRadios,
               .caption = Caption::Companion,
               .click = RadioClick::ClickedIfChecked,
               .present = &HasPageOrder,
               .redraws = true},
};

constexpr std::array<KeywordId, 7> kShowOrder{KW_SOURCE,  KW_OUTPUTTRAY, KW_JOG,  KW_PAGEORDER,
                                              KW_COLLATE, KW_STAPLE,     KW_PUNCH};

constexpr std::array<KeywordId, 8> kPaperSettings{
    KW_AUTOTRAYSETTINGTOBYPASS, KW_MEDIATYPEBYPASS, KW_MEDIATYPEWEIGHTBYPASS, KW_PAPERCOLORBYPASS,
    KW_MANUALFEEDDUPLEX,        KW_ZNMEDIATYPE,     KW_MEDIATYPEWEIGHT,       KW_PAPERCOLOR};

// Settings of a source that is not the chosen one: asks whether it shall be. They can be made all
// the same.
template <class Dialog>
void EditPaperSettings(PageFrame& page, std::uint32_t source, UINT question) {
  SheetContext& sheet = page.Sheet();
  if (sheet.Current(KW_SOURCE) != source &&
      ShowMessage(page.Window(), question, IDS_WARNING_CAPTION, MB_YESNO | MB_ICONINFORMATION) ==
          IDYES) {
    sheet.SetCurrent(KW_SOURCE, source);
    page.Show(KW_SOURCE);
  }
  if (Dialog(sheet, &ThePlugInContext()).DoModal() == IDOK) {
    page.Show(KW_SOURCE);
  }
}

void OnMediaTypeBypass(PageFrame& page) {
  EditPaperSettings<CMediaTypeBypassTrayDlgMarzipan>(page, kBypassSource, IDS_QUESTION_USE_BYPASS);
}

void OnMediaType(PageFrame& page) {
  EditPaperSettings<CMediaTypeDlgAutoTrayMarzipan>(page, kAutomaticSource,
                                                   IDS_QUESTION_USE_AUTO_TRAY);
}

constexpr std::array kButtons{
    ButtonRow{.id = IDC_TRAY_BYPASS_SETTINGS, .press = &OnMediaTypeBypass},
    ButtonRow{.id = IDC_TRAY_AUTO_SETTINGS, .press = &OnMediaType},
};

constexpr std::array<WORD, 3> kCommandCodes{BN_CLICKED, CBN_SELCHANGE, EN_CHANGE};
constexpr PageTable kTable{.controls = kControls,
                           .codes = kCommandCodes,
                           .answerToOtherCodes = 0,
                           .restoreButton = IDC_RESTORE_DEFAULTS,
                           .restoringIsAChange = false,
                           .buttons = kButtons,
                           .illustration = IllustrationKind::Output,
                           .showOrder = kShowOrder,
                           .alsoRestored = kPaperSettings};

}  // namespace

const PageTable& CTrayPageDlg::Table() noexcept {
  return kTable;
}

int CTrayPageDlg::OnInitDialog(WPARAM /*wParam*/, PROPSHEETPAGEA* page) {
  SheetContext* sheet = AttachSheet(page);
  if (sheet == nullptr) {
    return 0;
  }
  return Initialize(sheet, false);
}

int CTrayPageDlg::OnCommand(WORD notifyCode, WORD controlId, HWND /*control*/) {
  return Command(kTable, notifyCode, controlId);
}

int CTrayPageDlg::OnSetActive() {
  return Activate(kTable);
}

int CTrayPageDlg::OnKillActive() {
  return Commit();
}

int CTrayPageDlg::Initialize(SheetContext* sheet, bool useDefault) {
  LoadWarningImage();
  return Fill(kTable, sheet, useDefault);
}

int CTrayPageDlg::OnDrawItem(UINT controlId, DRAWITEMSTRUCT* item) {
  return DrawIllustrationOf(kTable, controlId, item);
}

}  // namespace zn
