#include "pages/standardpage.h"

#include <array>
#include <string>

#include "bridge/companion.h"
#include "pages/custompageeditdlg.h"
#include "pages/favorite_commands.h"
#include "pages/favorites_list.h"
#include "pages/job_picture.h"
#include "pages/page_frame.h"
#include "pages/page_images.h"
#include "pages/pspage.h"
#include "pages/summary_items.h"
#include "platform/resources.h"
#include "res/resource_ids.h"
#include "session/forms.h"
#include "session/job_values.h"

namespace zn {
namespace {

constexpr std::uint32_t kOneSided = 0;
constexpr std::uint32_t kLongEdge = 1;
constexpr std::uint32_t kOnePage = 0;
constexpr std::uint32_t kTwoPages = 1;
constexpr std::uint32_t kTwoSidedOnlyPages = 6;  // needs two sides, on purpose
constexpr std::uint32_t kSameAsDocument = 0;
constexpr std::uint32_t kPortrait = 0;

constexpr std::uint32_t kFewestCopies = 1;

constexpr std::array kOrientationRadios{IDC_BASIC_PORTRAIT, IDC_BASIC_LANDSCAPE, IDC_BASIC_ROTATED};

// By option.
constexpr std::array<std::uint8_t, 2> kColorModeImages{1, 2};
constexpr std::array<std::uint8_t, 3> kDuplexImages{0, 2, 4};
constexpr std::array<std::uint8_t, 7> kPortraitNUPImages{0, 1, 3, 5, 7, 9, 11};
constexpr std::array<std::uint8_t, 7> kLandscapeNUPImages{0, 2, 4, 6, 8, 10, 12};

std::span<const std::uint8_t> NUPImages(const SheetContext& sheet) {
  return sheet.Current(KW_ORIENTATION) == kPortrait ? kPortraitNUPImages : kLandscapeNUPImages;
}

bool HasOutputSize(const SheetContext& sheet) {
  return sheet.Current(KW_OUTPUTPAPERSIZE) != kSameAsDocument;
}

bool HasSeveralPages(const SheetContext& sheet) {
  return sheet.Current(KW_NUP) != kOnePage;
}

bool IsCustomSize(const SheetContext& sheet) {
  return IsCustomForm(LOWORD(sheet.Current(KW_PAGESIZE)));
}

void EditCustomSize(PageFrame& page) {
  CCustomPageEditDlg(&page.Sheet()).DoModal();
}

void EditChosenCustomSize(PageFrame& page, std::uint32_t /*before*/) {
  if (IsCustomSize(page.Sheet())) {
    ::ShowWindow(::GetDlgItem(page.Window(), IDC_BASIC_EDIT_SIZE), SW_SHOW);
    EditCustomSize(page);
  }
}

void ShowOrientation(PageFrame& page, std::uint32_t /*before*/) {
  page.Refill(KW_NUP);
  page.Show(KW_DUPLEX);
}

void LeaveTwoSidedPages(PageFrame& page, std::uint32_t /*before*/) {
  SheetContext& sheet = page.Sheet();
  if (sheet.Current(KW_DUPLEX) == kOneSided && sheet.Current(KW_NUP) == kTwoSidedOnlyPages) {
    sheet.SetCurrent(KW_NUP, kTwoPages);
    page.Show(KW_NUP);
  }
}

void TurnTwoSided(PageFrame& page, std::uint32_t /*before*/) {
  SheetContext& sheet = page.Sheet();
  if (sheet.Current(KW_NUP) == kTwoSidedOnlyPages && sheet.Current(KW_DUPLEX) == kOneSided) {
    sheet.SetCurrent(KW_DUPLEX, kLongEdge);
    page.Show(KW_DUPLEX);
  }
}

constexpr std::array kControls{
    // InitPageSize, UpdatePageSize, ApplyPageSize
    ControlRow{.keyword = KW_PAGESIZE,
               .kind = ControlKind::Forms,
               .label = IDC_BASIC_PAGE_SIZE_LABEL,
               .id = IDC_BASIC_PAGE_SIZE,
               .caption = Caption::CompanionColon,
               .coding = {.itemData = true},
               .follow = &EditChosenCustomSize,
               .redraws = true},
    // InitOutputPaperSize
    ControlRow{.keyword = KW_OUTPUTPAPERSIZE,
               .kind = ControlKind::List,
               .label = IDC_BASIC_OUTPUT_SIZE_LABEL,
               .id = IDC_BASIC_OUTPUT_SIZE,
               .caption = Caption::CompanionColon,
               .entries = kCompanionCount,
               .redraws = true},
    ControlRow{.keyword = KW_ORIENTATION,
               .kind = ControlKind::Radios,
               .label = IDC_BASIC_ORIENTATION_GROUP,
               .radios = kOrientationRadios,
               .caption = Caption::Companion,
               .click = RadioClick::ClickedIfChecked,
               .follow = &ShowOrientation,
               .redraws = true},
    // InitColorModel, UpdateColorModel, ApplyColorModel
    ControlRow{.keyword = KW_COLORMODEL,
               .kind = ControlKind::ExtendedList,
               .label = IDC_BASIC_COLOR_MODE_LABEL,
               .id = IDC_BASIC_COLOR_MODE,
               .caption = Caption::CompanionColon,
               .images = {IDB_COLOR_MODE, kColorModeImages},
               .redraws = true},
    // InitDuplex, UpdateDuplex, ApplyDuplex
    ControlRow{.keyword = KW_DUPLEX,
               .kind = ControlKind::ExtendedList,
               .label = IDC_BASIC_DUPLEX_LABEL,
               .id = IDC_BASIC_DUPLEX,
               .caption = Caption::CompanionColon,
               .images = {IDB_DUPLEX, kDuplexImages},
               .follow = &LeaveTwoSidedPages,
               .restriction = restriction::kDuplex,
               .redraws = true},
    // UpdateNUP, ApplyNUP
    ControlRow{.keyword = KW_NUP,
               .kind = ControlKind::ExtendedList,
               .label = IDC_BASIC_NUP_LABEL,
               .id = IDC_BASIC_NUP,
               .caption = Caption::CompanionColon,
               .entries = kCompanionCount,
               .images = {.strip = IDB_NUP, .of = &NUPImages},
               .follow = &TurnTwoSided,
               .redraws = true,
               .tip = IDS_TIP_NUP},
    ControlRow{.keyword = KW_COPIES,
               .kind = ControlKind::UpDown,
               .label = IDC_BASIC_COPIES_LABEL,
               .id = IDC_BASIC_COPIES,
               .arrows = IDC_BASIC_COPIES_SPIN,
               .caption = Caption::CompanionColon,
               .coding = {.lowest = kFewestCopies, .highest = kMostCopies},
               .redraws = true},
    // EnableOnCenter
    ControlRow{.keyword = KW_PAGEPRINTONCENTER,
               .kind = ControlKind::CheckBox,
               .id = IDC_BASIC_ON_CENTER,
               .caption = Caption::Companion,
               .usable = &HasOutputSize,
               .zeroWhileUnusable = true,
               .redraws = true},
    // InitFitSize, UpdateFitSize, ApplyFitSize
    ControlRow{.keyword = KW_PAGEFITSIZE,
               .kind = ControlKind::ExtendedList,
               .label = IDC_BASIC_FIT_SIZE_LABEL,
               .id = IDC_BASIC_FIT_SIZE,
               .caption = Caption::CompanionColon,
               .redraws = true,
               .tip = IDS_TIP_FIT_SIZE},
    // InitNupBorder, UpdateNupBorder, ApplyNupBorder, EnableNupBorder
    ControlRow{.keyword = KW_NUPBORDER,
               .kind = ControlKind::CheckBox,
               .id = IDC_BASIC_NUP_BORDER,
               .usable = &HasSeveralPages,
               .redraws = true},
};

constexpr std::array<KeywordId, 10> kShowOrder{
    KW_COLORMODEL,      KW_DUPLEX,      KW_NUP,
    KW_COPIES,          KW_ORIENTATION, KW_PAGESIZE,
    KW_OUTPUTPAPERSIZE, KW_PAGEFITSIZE, KW_PAGEPRINTONCENTER,
    KW_NUPBORDER};

constexpr std::array kButtons{
    ButtonRow{.id = IDC_BASIC_EDIT_SIZE, .press = &EditCustomSize, .present = &IsCustomSize},
    ButtonRow{.id = IDC_SAVE_FAVORITE, .press = &OnSavePreset},
    ButtonRow{.id = IDC_LIST_FAVORITES, .press = &OnSummaryPreset},
};

FavoritesList ListOf(HWND page, SheetContext& sheet) {
  return {::GetDlgItem(page, IDC_BASIC_FAVORITES), SheetFavorites::Of(sheet)};
}

void ShowChange(PageFrame& page) {
  ListOf(page.Window(), page.Sheet()).ShowChange();
}

constexpr std::array<WORD, 4> kCommandCodes{BN_CLICKED, CBN_SELCHANGE, EN_KILLFOCUS, EN_CHANGE};
constexpr PageTable kTable{.controls = kControls,
                           .codes = kCommandCodes,
                           .answerToOtherCodes = 0,
                           .restoreButton = IDC_RESTORE_DEFAULTS,
                           .restoringIsAChange = false,
                           .buttons = kButtons,
                           .skipsMissingControls = true,
                           .illustration = IllustrationKind::Layout,
                           .showOrder = kShowOrder,
                           .changed = &ShowChange};

// The companion module lists its stored print options now and keeps the list for its dialogs until
// the job page releases it; the page itself shows none of them.
void CreatePrintOptionList(const CompanionModule& companion) {
  constexpr int kMostStoredOptions = 100;
  (void)companion.GetPrintOptionList(LoadResourceString(IDS_PRINT_OPTION_DEFAULT_SUFFIX).c_str(),
                                     kMostStoredOptions);
}

// The favourite that the page shows, without its mark: what was selected when the list was dropped
// down or chosen last. One per process: page objects keep nothing from one message to the next.
char g_shownFavorite[MAX_PATH];

void RememberFavorite(const FavoritesList& list) {
  CopyText(g_shownFavorite, list.SelectedName());
}

// What the user is told about a favourite that was chosen; nothing when all is well.
std::string TroubleWith(std::optional<PaperMatch> paper) {
  if (!paper) {
    return LoadResourceString(IDS_FAVORITE_LOAD_FAILED);
  }
  switch (*paper) {
    case PaperMatch::Unnamed:
      return LoadResourceString(IDS_FAVORITE_OLD_FORMAT);
    case PaperMatch::Unknown:
      return LoadResourceString(IDS_FAVORITE_SIZE_UNKNOWN_USE_CURRENT) + "\n\n" +
             LoadResourceString(IDS_FAVORITE_SIZE_UNKNOWN_DETAIL);
    case PaperMatch::ByName:
      break;
  }
  return {};
}

}  // namespace

const PageTable& CStandardPageDlg::Table() noexcept {
  return kTable;
}

int CStandardPageDlg::OnInitDialog(WPARAM /*wParam*/, PROPSHEETPAGEA* page) {
  SheetContext* sheet = AttachSheet(page);
  if (sheet == nullptr) {
    return 0;
  }
  // Stays loaded until the page is filled.
  const CompanionModule companion(sheet->hPrinter);
  CreatePrintOptionList(companion);
  SetLabelText(Control(IDC_BASIC_FAVORITES_LABEL),
               companion.GetKeywordTranslation(companion_label::kFavorites), true);
  SetListImages(Control(IDC_BASIC_FAVORITES), SharedImages(IDB_FAVORITE));
  const FavoritesList list = ListOf(window_, *sheet);
  list.Fill();
  RememberFavorite(list);
  return Initialize(sheet, false);
}

int CStandardPageDlg::OnCommand(WORD notifyCode, WORD controlId, HWND /*control*/) {
  SheetContext* sheet = Sheet();
  if (sheet != nullptr && controlId == IDC_BASIC_FAVORITES) {
    switch (notifyCode) {
      case CBN_DROPDOWN:
        ListOf(window_, *sheet).FillAll();
        RememberFavorite(ListOf(window_, *sheet));
        return 1;
      case CBN_SELENDOK:
        // Chosen from the open list; its closing reports the choice once more.
        if (::SendMessageA(Control(controlId), CB_GETDROPPEDSTATE, 0, 0) != FALSE) {
          return 1;
        }
        [[fallthrough]];
      case CBN_CLOSEUP:
        OnPresetSelChange(*sheet);
        return 1;
      default:
        break;
    }
  }
  const int result = Command(kTable, notifyCode, controlId);
  if (sheet != nullptr && (controlId == IDC_SAVE_FAVORITE || controlId == IDC_LIST_FAVORITES)) {
    RememberFavorite(ListOf(window_, *sheet));
  }
  return result;
}

int CStandardPageDlg::OnSetActive() {
  const int result = Activate(kTable);
  if (SheetContext* sheet = Sheet()) {
    ListOf(window_, *sheet).ShowChange();
  }
  return result;
}

int CStandardPageDlg::OnKillActive() {
  return Commit();
}

int CStandardPageDlg::Initialize(SheetContext* sheet, bool useDefault) {
  return Fill(kTable, sheet, useDefault);
}

int CStandardPageDlg::OnDrawItem(UINT controlId, DRAWITEMSTRUCT* item) {
  return DrawIllustrationOf(kTable, controlId, item);
}

int CStandardPageDlg::OnUser(UINT message, WPARAM /*wParam*/, LPARAM lParam) {
  const SheetContext* sheet = Sheet();
  if (sheet != nullptr && message == companion_abi::kSendTreeItemsMessage) {
    SendTreeItems(lParam, SummaryItems(sheet->hasPageOrder));
  }
  return 1;
}

void CStandardPageDlg::OnPresetSelChange(SheetContext& sheet) const {
  SheetFavorites& favorites = SheetFavorites::Of(sheet);
  const FavoritesList list = ListOf(window_, sheet);
  if (!SelectedIndex(Control(IDC_BASIC_FAVORITES))) {
    return;
  }
  const SheetFavorites::Choice choice = list.Selected();
  // A list that closes without a choice reports what it showed before.
  if (list.IsMarkSelected() ||
      (list.SelectedName() == g_shownFavorite && !favorites.DiffersFrom(choice))) {
    list.ShowChange();
    return;
  }
  const auto paper = favorites.Select(choice);
  if (paper) {
    RememberFavorite(list);
    PageFrame(window_, sheet, kTable).Show();
  } else {
    favorites.Refresh();  // it may be gone
    list.Fill();
    list.Select(std::string_view(g_shownFavorite));
  }
  list.ShowChange();
  if (const std::string text = TroubleWith(paper); !text.empty()) {
    ShowMessage(window_, text, IDS_WARNING_CAPTION, MB_ICONEXCLAMATION);
  }
}

}  // namespace zn
