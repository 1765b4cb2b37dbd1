#include "host/driver/option_items.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "host/base/files.h"

namespace zn::host {
namespace {

// The core driver's own items. One that names a feature of the printer description shows that
// feature; the others keep their selection by DMPUB_ number.
struct StandardItem {
  BYTE publicItem;
  const char* keyword;
  const wchar_t* name;
  SHORT choices;  // 0: a number from `low` to `high`
  SHORT low, high;
  SHORT defaultSelection;
};

// clang-format off
constexpr StandardItem kStandardItems[] = {
    {DMPUB_FORMNAME,       "PageSize",         L"用紙サイズ",          0, 0, 0, 0},
    {DMPUB_COPIES_COLLATE, "%Copies",          L"部数",                0, 1, 9999, 1},
    {DMPUB_DEFSOURCE,      "InputSlot",        L"給紙方法",            0, 0, 0, 0},
    {DMPUB_MEDIATYPE,      "MediaType",        L"用紙の種類",          0, 0, 0, 0},
    {DMPUB_ORIENTATION,    "%Orientation",     L"印刷の向き",          3, 0, 0, 0},
    {DMPUB_DUPLEX,         "Duplex",           L"両面印刷",            0, 0, 0, 0},
    {DMPUB_NUP,            "%PagePerSheet",    L"シートごとのページ数", 7, 0, 0, 0},
    {DMPUB_PAGEORDER,      "%PageOrder",       L"ページの順序",        2, 0, 0, 0},
    {DMPUB_PRINTQUALITY,   "Resolution",       L"印刷品質",            0, 0, 0, 0},
    {DMPUB_SCALE,          "%Scaling",         L"拡大縮小",            0, 1, 1000, 100},
    {DMPUB_TTOPTION,       "%TTOption",        L"TrueTypeフォント",    2, 0, 0, 0},
    {DMPUB_ICMMETHOD,      "%ICMMethod",       L"ICMの方法",           4, 0, 0, 0},
    {DMPUB_ICMINTENT,      "%ICMIntent",       L"ICMの目的",           4, 0, 0, 0},
};

// The core driver's PostScript items below the document options; no plug-in binds them.
constexpr StandardItem kPostScriptItems[] = {
    {DMPUB_NONE, "%OutputFormat",     L"PostScript出力オプション",               4, 0, 0, 0},
    {DMPUB_NONE, "%TTDownloadFormat", L"TrueTypeフォントダウンロードオプション", 4, 0, 0, 0},
    {DMPUB_NONE, "%PSErrorHandler",   L"PostScriptエラーハンドラーを送信",       2, 0, 0, 0},
    {DMPUB_NONE, "%Mirroring",        L"左右反転印刷",                           2, 0, 0, 0},
};
// clang-format on

constexpr char kCollateKeyword[] = "Collate";
// The string resource id that names the root of the document options.
const auto kDocumentOptionsName = reinterpret_cast<const wchar_t*>(static_cast<ULONG_PTR>(418));

// Features that the core driver shows as its own items only.
constexpr const char* kHiddenFeatures[] = {"PageSize", "PageRegion", "InputSlot"};

bool IsKeywordFeature(const Feature& feature) {
  return std::ranges::find(kHiddenFeatures, feature.keyword) == std::end(kHiddenFeatures);
}

}  // namespace

OptionItems::OptionItems(const PrinterDescription& description, const QueueDevMode& devmode)
    : description_(description) {
  const ItemSelections& selections = devmode.Private().items;
  AddHeading(0, L"用紙/出力");
  for (std::size_t row = 0; row < std::size(kStandardItems); ++row) {
    if (kStandardItems[row].publicItem == DMPUB_PRINTQUALITY) {
      AddHeading(0, L"グラフィックス");
    }
    AddStandardItem(row, 1, selections);
  }
  AddHeading(0, kDocumentOptionsName);
  AddHeading(1, L"PostScript オプション");
  for (const StandardItem& item : kPostScriptItems) {
    AddChoices(AddItem({item.keyword, item.publicItem, kNoFeature}, 2, item.name),
               std::vector<std::wstring>(static_cast<std::size_t>(item.choices)));
  }
  AddHeading(1, L"プリンターの機能");
  const auto& features = description_.Features();
  for (std::size_t feature = 0; feature < features.size(); ++feature) {
    if (IsKeywordFeature(features[feature])) {
      AddFeatureItem(feature, selections);
    }
  }
  // The items stay where they are from here on.
  for (std::size_t i = 0; i < items_.size(); ++i) {
    userData_.push_back({});
    USERDATA& data = userData_.back();
    data.dwSize = sizeof data;
    data.dwItemID = i;
    data.pKeyWordName = const_cast<PSTR>(sources_[i].keyword);
    if (sources_[i].feature != kNoFeature) {
      data.dwReserved[0] = static_cast<DWORD>(features[sources_[i].feature].defaultOption);
    } else if (const auto row = std::ranges::find(kStandardItems, sources_[i].publicItem,
                                                  &StandardItem::publicItem);
               sources_[i].publicItem != DMPUB_NONE && row != std::end(kStandardItems)) {
      data.dwReserved[0] = static_cast<DWORD>(row->defaultSelection);
    }
    items_[i].UserData = reinterpret_cast<ULONG_PTR>(&data);
  }
}

void OptionItems::SetDefaults(const PrinterDescription& description, QueueDevMode& devmode) {
  ItemSelections& selections = devmode.Private().items;
  const auto& features = description.Features();
  for (std::size_t i = 0; i < std::min(features.size(), ItemSelections::kMaxFeatures); ++i) {
    selections.features[i] = static_cast<std::uint16_t>(features[i].defaultOption);
  }
  for (const StandardItem& item : kStandardItems) {
    selections.publicItems[item.publicItem] = item.defaultSelection;
  }
  DriverPrivateDevMode& driver = devmode.Private().driver;
  driver.psLanguageLevel = 3;
  driver.customPaperWidth = 210'000;  // A4
  driver.customPaperHeight = 297'000;
}

void OptionItems::AddHeading(BYTE level, const wchar_t* name) {
  AddItem({"", DMPUB_NONE, kNoFeature}, level, name);
}

void OptionItems::AddStandardItem(std::size_t row, BYTE level, const ItemSelections& selections) {
  const StandardItem& standard = kStandardItems[row];
  const std::size_t feature = FeatureIndex(standard.keyword);
  OPTITEM& item = AddItem({standard.keyword, standard.publicItem, feature}, level, standard.name);
  if (feature != kNoFeature) {
    std::vector<std::wstring> names;
    for (const FeatureOption& option : description_.Features()[feature].options) {
      names.push_back(WideText(option.text));
    }
    AddChoices(item, names);
    item.Sel = selections.features[feature];
  } else {
    if (standard.choices > 0) {
      AddChoices(item, std::vector<std::wstring>(static_cast<std::size_t>(standard.choices)));
    } else {
      AddNumber(item, standard.low, standard.high);
    }
    item.Sel = selections.publicItems[standard.publicItem];
  }
  if (standard.publicItem == DMPUB_COPIES_COLLATE) {
    AddCollate(item, selections);
  }
}

void OptionItems::AddFeatureItem(std::size_t feature, const ItemSelections& selections) {
  const Feature& description = description_.Features()[feature];
  std::vector<std::wstring> names;
  for (const FeatureOption& option : description.options) {
    names.push_back(WideText(option.text));
  }
  OPTITEM& item = AddItem({description.keyword.c_str(), DMPUB_NONE, feature}, 2,
                          Keep(WideText(description.label)));
  AddChoices(item, names);
  item.Sel = selections.features[feature];
}

OPTITEM& OptionItems::AddItem(const Source& source, BYTE level, const wchar_t* name) {
  OPTITEM item{};
  item.cbSize = sizeof item;
  item.Level = level;
  item.DMPubID = source.publicItem;
  // The core driver's items are wide.
  item.pName = reinterpret_cast<LPTSTR>(const_cast<wchar_t*>(name));
  sources_.push_back(source);
  return items_.emplace_back(item);
}

void OptionItems::AddChoices(OPTITEM& item, const std::vector<std::wstring>& names) {
  auto& parameters = parameters_.emplace_back(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    parameters[i].cbSize = sizeof(OPTPARAM);
    parameters[i].pData = reinterpret_cast<LPTSTR>(const_cast<wchar_t*>(Keep(names[i])));
  }
  OPTTYPE& type = types_.emplace_back();
  type.cbSize = sizeof type;
  type.Type = TVOT_LISTBOX;
  type.Count = static_cast<WORD>(names.size());
  type.pOptParam = parameters.data();
  item.pOptType = &type;
}

void OptionItems::AddNumber(OPTITEM& item, SHORT low, SHORT high) {
  AddChoices(item, std::vector<std::wstring>(2));
  item.pOptType->Type = TVOT_UDARROW;
  item.pOptType->pOptParam[1].IconID = static_cast<ULONG_PTR>(low);
  item.pOptType->pOptParam[1].lParam = high;
}

void OptionItems::AddCollate(OPTITEM& item, const ItemSelections& selections) {
  const std::size_t collate = FeatureIndex(kCollateKeyword);
  collate_.cbSize = sizeof collate_;
  item.pExtChkBox = &collate_;
  if (collate != kNoFeature && selections.features[collate] != 0) {
    item.Flags |= OPTIF_ECB_CHECKED;
  }
}

std::size_t OptionItems::FeatureIndex(const char* keyword) const {
  const auto& features = description_.Features();
  const auto feature = std::ranges::find(features, keyword, &Feature::keyword);
  return feature != features.end() ? static_cast<std::size_t>(feature - features.begin())
                                   : kNoFeature;
}

const wchar_t* OptionItems::Keep(std::wstring text) {
  return texts_.emplace_back(std::move(text)).c_str();
}

OPTITEM* OptionItems::Find(const char* keyword) {
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (std::strcmp(sources_[i].keyword, keyword) == 0) {
      return &items_[i];
    }
  }
  return nullptr;
}

std::string OptionItems::KeywordOf(const OPTITEM* item) const {
  const bool inside = item >= items_.data() && item < items_.data() + items_.size();
  return inside ? sources_[static_cast<std::size_t>(item - items_.data())].keyword : "?";
}

std::string OptionItems::SelectionName(const OPTITEM& item, std::int32_t selection) const {
  const Source& source = sources_[static_cast<std::size_t>(&item - items_.data())];
  if (source.feature != kNoFeature && selection >= 0) {
    const auto& options = description_.Features()[source.feature].options;
    if (static_cast<std::size_t>(selection) < options.size()) {
      return options[static_cast<std::size_t>(selection)].name;
    }
  }
  return std::to_string(selection);
}

void OptionItems::StoreTo(QueueDevMode& devmode) const {
  ItemSelections& selections = devmode.Private().items;
  // From the end to the start: a standard item stands for its keyword and has the last word.
  for (std::size_t i = items_.size(); i-- > 0;) {
    const Source& source = sources_[i];
    if (source.feature != kNoFeature) {
      selections.features[source.feature] = static_cast<std::uint16_t>(items_[i].Sel);
    } else if (source.publicItem != DMPUB_NONE) {
      selections.publicItems[source.publicItem] = items_[i].Sel;
    }
    const std::size_t collate = FeatureIndex(kCollateKeyword);
    if (source.publicItem == DMPUB_COPIES_COLLATE && collate != kNoFeature) {
      selections.features[collate] = (items_[i].Flags & OPTIF_ECB_CHECKED) != 0;
    }
  }
  DEVMODEW& documented = devmode.Public();
  documented.dmFields = DM_ORIENTATION | DM_COPIES | DM_SCALE | DM_COLLATE;
  documented.dmOrientation =
      selections.publicItems[DMPUB_ORIENTATION] == 0 ? DMORIENT_PORTRAIT : DMORIENT_LANDSCAPE;
  documented.dmCopies = static_cast<short>(selections.publicItems[DMPUB_COPIES_COLLATE]);
  documented.dmScale = static_cast<short>(selections.publicItems[DMPUB_SCALE]);
  const std::size_t collate = FeatureIndex(kCollateKeyword);
  documented.dmCollate =
      collate != kNoFeature ? static_cast<short>(selections.features[collate]) : short{0};
}

std::vector<OptionChange> OptionItems::ChangesSince(const QueueDevMode& before) const {
  QueueDevMode now = before;
  StoreTo(now);
  const ItemSelections& then = before.Private().items;
  const ItemSelections& after = now.Private().items;
  std::vector<OptionChange> changes;
  for (const StandardItem& item : kStandardItems) {
    const std::int32_t a = then.publicItems[item.publicItem];
    const std::int32_t b = after.publicItems[item.publicItem];
    if (a != b) {
      changes.push_back({item.keyword, std::to_string(a), std::to_string(b)});
    }
  }
  const auto& features = description_.Features();
  for (std::size_t i = 0; i < features.size(); ++i) {
    const auto name = [&](std::uint16_t selection) {
      return selection < features[i].options.size() ? features[i].options[selection].name
                                                    : std::to_string(selection);
    };
    if (then.features[i] != after.features[i]) {
      changes.push_back({features[i].keyword, name(then.features[i]), name(after.features[i])});
    }
  }
  return changes;
}

}  // namespace zn::host
