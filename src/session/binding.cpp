#include "session/binding.h"

#include <cstddef>
#include <cstring>
#include <string_view>

#include "keywords/keyword_table.h"

namespace zn {
namespace {

constexpr int kKeywordItemLevel = 2;
constexpr std::size_t kMaxKeyword = 64;  // longer names are in no table

// The keyword id of a standard item, by its DMPUB_ number. Colour, dither type, output bin and
// quality (6, 13, 14, 15) are reached through their printer keywords instead.
constexpr std::array<KeywordId, DMPUB_PAGEORDER + 1> kStandardIds = [] {
  std::array<KeywordId, DMPUB_PAGEORDER + 1> ids{};
  ids.fill(kNoKeyword);
  ids[DMPUB_ORIENTATION] = KW_ORIENTATION;
  ids[DMPUB_SCALE] = KW_SCALE;
  ids[DMPUB_COPIES_COLLATE] = KW_COPIES;  // and KW_COLLATE, its check box
  ids[DMPUB_DEFSOURCE] = KW_SOURCE;
  ids[DMPUB_PRINTQUALITY] = KW_RESOLUTION;
  ids[DMPUB_DUPLEX] = KW_DUPLEX;
  ids[DMPUB_TTOPTION] = KW_TTOPTION;
  ids[DMPUB_FORMNAME] = KW_PAGESIZE;
  ids[DMPUB_ICMMETHOD] = KW_ICMMETHOD;
  ids[DMPUB_ICMINTENT] = KW_ICMINTENT;
  ids[DMPUB_MEDIATYPE] = KW_MEDIATYPE;
  ids[DMPUB_NUP] = KW_NUP;
  ids[DMPUB_PAGEORDER] = KW_PAGEORDER;
  return ids;
}();

// Defaults that nobody tells; 0 would be no usable setting.
constexpr std::uint32_t kDefaultCustomWidth = 210'000;  // A4, in thousandths of a millimetre
constexpr std::uint32_t kDefaultCustomHeight = 297'000;
struct KnownDefault {
  KeywordId id;
  std::uint32_t value;
};
constexpr auto kKnownDefaults = std::to_array<KnownDefault>({
    {KW_COPIES, 1},
    {KW_SCALE, 100},
    {KW_PSLANGUAGELEVEL, 3},
    {KW_CUSTOMPAPERWIDTH, kDefaultCustomWidth},
    {KW_CUSTOMPAPERHEIGHT, kDefaultCustomHeight},
});

// The core driver's record of the feature behind an item, when it reaches to `leastSize` bytes.
const USERDATA* FeatureRecord(const OPTITEM& item, std::size_t leastSize) noexcept {
  const auto* record = reinterpret_cast<const USERDATA*>(item.UserData);
  return record != nullptr && record->dwSize >= leastSize ? record : nullptr;
}

KeywordId KeywordOf(const OPTITEM& item) noexcept {
  const USERDATA* const record = FeatureRecord(item, offsetof(USERDATA, dwReserved));
  if (record == nullptr || record->pKeyWordName == nullptr) {
    return kNoKeyword;
  }
  return GetKeywordId({record->pKeyWordName, ::strnlen(record->pKeyWordName, kMaxKeyword)});
}

// The feature's default option index is its record's first reserved value.
void TakeDefault(const OPTITEM& item, OptionSelection& option) noexcept {
  constexpr std::size_t kLeastSize = offsetof(USERDATA, dwReserved) + sizeof(DWORD);
  if (const USERDATA* const record = FeatureRecord(item, kLeastSize)) {
    option.defaultSelection = record->dwReserved[0];
  }
}

void TakeItem(SheetContext& sheet, KeywordId id, OPTITEM& item) noexcept {
  sheet.items[id] = &item;
  TakeDefault(item, sheet.options[id]);
  sheet.options[id].currentSelection = static_cast<std::uint32_t>(item.Sel);
}

// Copies or a scale of 0 is no default, whatever the record says.
void ApplyKnownDefaults(SheetContext& sheet) noexcept {
  for (const auto& [id, value] : kKnownDefaults) {
    OptionSelection& option = sheet.options[id];
    if (option.defaultSelection == 0) {
      option.defaultSelection = value;
    }
    if (sheet.items[id] == nullptr) {
      option.currentSelection = option.defaultSelection;
    }
  }
}

// The printer's keyword items stand at the end of the array, without a gap.
DWORD BindKeywordItems(SheetContext& sheet) noexcept {
  DWORD first = sheet.cDrvOptItems;
  for (; first > 0 && sheet.pDrvOptItems[first - 1].Level == kKeywordItemLevel; --first) {
    OPTITEM& item = sheet.pDrvOptItems[first - 1];
    const KeywordId id = KeywordOf(item);
    if (id != kNoKeyword) {
      TakeItem(sheet, id, item);
      item.DMPubID = static_cast<BYTE>(id + kKeywordItemMark);
    }
  }
  return first;
}

void BindStandardItem(SheetContext& sheet, OPTITEM& item) noexcept {
  const KeywordId id = item.DMPubID < kStandardIds.size() ? kStandardIds[item.DMPubID] : kNoKeyword;
  if (id == kNoKeyword) {
    return;
  }
  TakeItem(sheet, id, item);
  if (id == KW_COPIES) {
    sheet.items[KW_COLLATE] = &item;
    sheet.options[KW_COLLATE].currentSelection = (item.Flags & OPTIF_ECB_CHECKED) != 0 ? 1 : 0;
  }
}

}  // namespace

void BindKeywords(SheetContext& sheet) noexcept {
  sheet.items = {};
  sheet.options = {};
  if (sheet.pDrvOptItems == nullptr) {
    sheet.cDrvOptItems = 0;
  }
  const DWORD firstKeywordItem = BindKeywordItems(sheet);
  for (DWORD index = sheet.cDrvOptItems; index > 0; --index) {
    OPTITEM& item = sheet.pDrvOptItems[index - 1];
    // The mark is one byte: ids 157 to 173 would look like standard items here.
    if (index <= firstKeywordItem || KeywordOf(item) == kNoKeyword) {
      BindStandardItem(sheet, item);
    }
  }
  ApplyKnownDefaults(sheet);
  for (OptionSelection& option : sheet.options) {
    option.lastWritten = option.currentSelection;
  }
}

}  // namespace zn
