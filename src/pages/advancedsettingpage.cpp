#include "pages/advancedsettingpage.h"

#include <algorithm>
#include <array>
#include <string>

#include "bridge/companion.h"
#include "pages/pages.h"
#include "platform/boundary.h"
#include "platform/resources.h"
#include "platform/trace.h"
#include "res/resource_ids.h"
#include "session/plugin_context.h"
#include "session/session.h"

namespace zn {
namespace {

constexpr const char* kSource = "pages\\advancedsettingpage";

enum class Kind : std::uint8_t {
  Heading,   // `from` is its icon
  List,      // names from the companion module
  TrueType,  // list of the two standard names
  YesNo,     // two states with standard names
  Number,    // from `from` to `to`
};

struct TreeItem {
  BYTE level;
  BYTE id;
  KeywordId keyword;    // kNoKeyword: a heading
  std::uint32_t label;  // a standard text, or below those a label of the companion module
  Kind kind;
  WORD options;
  WORD from, to;
  UINT unit;  // string id of a number's unit; 0: none
};

constexpr std::uint32_t kFirstStandardText = 0xFC00;
constexpr std::uint32_t kDocumentOptions = 351;  // companion labels of the lower two headings
constexpr std::uint32_t kPostScriptOptions = 352;

// clang-format off
constexpr std::array kTreeItems{
    TreeItem{0, 212, kNoKeyword,              IDS_CPSUI_GRAPHIC,       Kind::Heading,  0, IDI_CPSUI_PRINTER, 0, 0},
    TreeItem{2, 201, KW_RESOLUTION,           IDS_CPSUI_PRINTQUALITY,  Kind::List,     2, 0, 0, 0},
    TreeItem{1, 213, kNoKeyword,              IDS_CPSUI_ICM,           Kind::Heading,  0, IDI_CPSUI_ICM_OPTION, 0, 0},
    TreeItem{3, 202, KW_ICMMETHOD,            IDS_CPSUI_ICMMETHOD,     Kind::List,     4, 0, 0, 0},
    TreeItem{3, 203, KW_ICMINTENT,            IDS_CPSUI_ICMINTENT,     Kind::List,     4, 0, 0, 0},
    TreeItem{1, 204, KW_SCALE,                IDS_CPSUI_SCALING,       Kind::Number,   2, 1, 1000, IDS_TREE_PERCENT},
    TreeItem{1, 205, KW_TTOPTION,             IDS_CPSUI_TTOPTION,      Kind::TrueType, 2, 0, 0, 0},
    TreeItem{0, 214, kNoKeyword,              kDocumentOptions,        Kind::Heading,  0, IDI_CPSUI_OPTION, 0, 0},
    TreeItem{1, 215, kNoKeyword,              kPostScriptOptions,      Kind::Heading,  0, IDI_CPSUI_POSTSCRIPT, 0, 0},
    TreeItem{3, 206, KW_PSOUTPUTOPTION,       KW_PSOUTPUTOPTION,       Kind::List,     4, 0, 0, 0},
    TreeItem{3, 207, KW_TRUETYPEFONTDOWNLOAD, KW_TRUETYPEFONTDOWNLOAD, Kind::List,     4, 0, 0, 0},
    TreeItem{3, 208, KW_PSLANGUAGELEVEL,      KW_PSLANGUAGELEVEL,      Kind::Number,   2, 1, 3, 0},
    TreeItem{3, 209, KW_PSSENDERRORHANDLER,   KW_PSSENDERRORHANDLER,   Kind::YesNo,    2, 0, 0, 0},
    TreeItem{3, 211, KW_MIRRORPRINT,          KW_MIRRORPRINT,          Kind::YesNo,    2, 0, 0, 0},
};
// clang-format on

constexpr std::size_t kItemCount = kTreeItems.size();
constexpr std::size_t kMaxOptions = 4;
constexpr WORD kCallerVersion = 0x100;
constexpr WORD kItemVersion = 0x400;

// Everything that the published records point to.
struct TreeRecords {
  COMPROPSHEETUI sheet;
  DLGPAGE page;
  std::array<OPTITEM, kItemCount> items;
  std::array<OPTTYPE, kItemCount> types;
  std::array<std::array<OPTPARAM, kMaxOptions>, kItemCount> options;
  std::array<std::string, kItemCount> labels;
  std::array<std::array<std::string, kMaxOptions>, kItemCount> names;
  std::string model, tab, unit;
};

TreeRecords& Records() {
  static TreeRecords records{};
  return records;
}

// The common property sheet UI takes a text or the number of one of its own.
LPSTR StandardText(std::uint32_t id) {
  return reinterpret_cast<LPSTR>(static_cast<ULONG_PTR>(id));
}

const TreeItem* RowOf(const OPTITEM& item) {
  const auto row =
      std::find_if(kTreeItems.begin(), kTreeItems.end(), [&](const TreeItem& candidate) {
        return candidate.id == item.DMPubID && candidate.keyword != kNoKeyword;
      });
  return row != kTreeItems.end() ? row : nullptr;
}

void FillOptions(TreeRecords& records, std::size_t index, const CompanionModule& companion) {
  const TreeItem& row = kTreeItems[index];
  auto& options = records.options[index];
  for (OPTPARAM& option : options) {
    option = OPTPARAM{};
    option.cbSize = sizeof(OPTPARAM);
  }
  switch (row.kind) {
    case Kind::List: {
      auto names = companion.GetKeywordOptionString(row.keyword, row.options);
      for (std::size_t option = 0; option < names.size(); ++option) {
        records.names[index][option] = std::move(names[option]);
        options[option].pData = records.names[index][option].data();
      }
      break;
    }
    case Kind::TrueType:
      options[0].pData = StandardText(IDS_CPSUI_TT_SUBDEV);
      options[1].pData = StandardText(IDS_CPSUI_TT_DOWNLOADSOFT);
      break;
    case Kind::YesNo:
      options[0].pData = StandardText(IDS_CPSUI_NO);
      options[1].pData = StandardText(IDS_CPSUI_YES);
      break;
    case Kind::Number:
      options[0].pData = row.unit != 0 ? records.unit.data() : nullptr;
      options[1].IconID = row.from;
      options[1].lParam = row.to;
      break;
    case Kind::Heading:
      break;
  }
}

BYTE OptionTypeOf(Kind kind) {
  switch (kind) {
    case Kind::Number:
      return TVOT_UDARROW;
    case Kind::YesNo:
      return TVOT_2STATES;
    default:
      return TVOT_LISTBOX;
  }
}

void FillItem(TreeRecords& records, std::size_t index, const CompanionModule& companion) {
  const TreeItem& row = kTreeItems[index];
  OPTITEM& item = records.items[index];
  item = OPTITEM{};
  item.cbSize = sizeof(OPTITEM);
  item.Level = row.level;
  item.DMPubID = row.id;
  item.UserItemID = row.id;
  if (row.label >= kFirstStandardText) {
    item.pName = StandardText(row.label);
  } else {
    records.labels[index] = companion.GetKeywordTranslation(row.label);
    item.pName = records.labels[index].data();
  }
  if (row.kind == Kind::Heading) {
    item.Sel = row.from;
    return;
  }
  FillOptions(records, index, companion);
  OPTTYPE& type = records.types[index];
  type = OPTTYPE{};
  type.cbSize = sizeof(OPTTYPE);
  type.Type = OptionTypeOf(row.kind);
  type.Count = row.options;
  type.pOptParam = records.options[index].data();
  item.pOptType = &type;
}

}  // namespace

COMPROPSHEETUI* CAdvancedSettingPageDlg::Prepare(SheetContext& sheet) {
  TreeRecords& records = Records();
  records.model = LoadResourceString(IDS_MODEL_NAME);
  records.tab = LoadResourceString(IDS_TREE_TAB);
  records.unit = LoadResourceString(IDS_TREE_PERCENT);
  const CompanionModule companion(sheet.hPrinter);
  for (std::size_t index = 0; index < kItemCount; ++index) {
    FillItem(records, index, companion);
  }
  InitSel(sheet, records.items.data(), false);

  static char empty[] = "";
  records.page = DLGPAGE{};
  records.page.cbSize = sizeof(DLGPAGE);
  records.page.pTabName = records.tab.data();
  records.page.DlgTemplateID = DP_STD_TREEVIEWPAGE;

  COMPROPSHEETUI& ui = records.sheet;
  ui = COMPROPSHEETUI{};
  ui.cbSize = sizeof(COMPROPSHEETUI);
  ui.Flags = static_cast<WORD>((sheet.mayChangeSettings ? CPSUIF_UPDATE_PERMISSION : 0) |
                               (sheet.treeReadOnlyFlag ? 0 : CPSUIF_ABOUT_CALLBACK));
  ui.pCallerName = empty;
  ui.pHelpFile = empty;
  ui.pfnCallBack = &TreeViewProc;
  ui.pOptItem = records.items.data();
  ui.pDlgPage = &records.page;
  ui.cOptItem = static_cast<WORD>(kItemCount);
  ui.cDlgPage = 1;
  ui.pOptItemName = records.model.data();
  ui.CallerVersion = kCallerVersion;
  ui.OptItemVersion = kItemVersion;
  return &ui;
}

void CAdvancedSettingPageDlg::InitSel(const SheetContext& sheet, OPTITEM* items, bool reload) {
  for (std::size_t index = 0; index < kItemCount; ++index) {
    const TreeItem& row = kTreeItems[index];
    if (row.keyword == kNoKeyword) {
      continue;
    }
    OPTITEM& item = items[index];
    item.Sel = static_cast<LONG>(sheet.Current(row.keyword));
    // An item without the callback flag would never report a change again.
    item.Flags |= OPTIF_CALLBACK | (reload ? OPTIF_CHANGED : 0);
    ZN_TRACE_TEXT(kSource, "CAdvancedSettingPageDlg::InitSel",
                  "CAdvancedSettingPageDlg::InitSel() TreeViewOptItems[%d].Sel=%d kw = %d\n",
                  static_cast<int>(index), static_cast<int>(item.Sel),
                  static_cast<int>(row.keyword));
  }
}

void CAdvancedSettingPageDlg::StoreSelection(SheetContext& sheet, const OPTITEM& item) {
  if (const TreeItem* row = RowOf(item)) {
    sheet.SetCurrent(row->keyword, static_cast<std::uint32_t>(item.Sel));
  }
}

LONG CALLBACK CAdvancedSettingPageDlg::TreeViewProc(CPSUICBPARAM* parameters) noexcept {
  SheetContext* sheet = ThePlugInContext().sheet;
  if (sheet == nullptr || parameters == nullptr) {
    return CPSUICB_ACTION_NONE;
  }
  // The property sheet UI may work on its own copies of the records.
  const bool hasItems = parameters->pOptItem != nullptr && parameters->cOptItem == kItemCount;
  OPTITEM* const items = hasItems ? parameters->pOptItem : Records().items.data();
  switch (parameters->Reason) {
    case CPSUICB_REASON_SEL_CHANGED:
      if (parameters->pCurItem != nullptr) {
        StoreSelection(*sheet, *parameters->pCurItem);
      }
      return CPSUICB_ACTION_NONE;
    case CPSUICB_REASON_APPLYNOW:
      // The core driver relies on this answer: the items are applied.
      return CPSUICB_ACTION_ITEMS_APPLIED;
    case CPSUICB_REASON_SETACTIVE:
      InitSel(*sheet, items, true);
      return CPSUICB_ACTION_OPTIF_CHANGED;
    case CPSUICB_REASON_KILLACTIVE:
      for (std::size_t index = 0; index < kItemCount; ++index) {
        StoreSelection(*sheet, items[index]);
      }
      CSession(sheet).CommitSession();
      return CPSUICB_ACTION_NONE;
    default:
      return CPSUICB_ACTION_NONE;
  }
}

COMPROPSHEETUI* PrepareAdvancedTree(SheetContext& sheet) noexcept {
  return GuardedOr<COMPROPSHEETUI*>(nullptr,
                                    [&] { return CAdvancedSettingPageDlg::Prepare(sheet); });
}

}  // namespace zn
