#include "pages/summary_items.h"

#include <array>

#include "keywords/keyword_ids.h"

namespace zn {
namespace {

using companion_abi::SummaryItem;

// Level and id; ids from 338 on are headings that the companion module words itself. The last one
// closes the list.
constexpr std::array kItems{
    SummaryItem{0, 338},
    SummaryItem{1, KW_PAGESIZE},
    SummaryItem{1, KW_OUTPUTPAPERSIZE},
    SummaryItem{1, KW_ORIENTATION},
    SummaryItem{1, KW_PAGEFITSIZE},
    SummaryItem{1, KW_PAGEPRINTONCENTER},
    SummaryItem{1, KW_COPIES},
    SummaryItem{1, KW_DUPLEX},
    SummaryItem{1, KW_NUP},
    SummaryItem{1, KW_NUPBORDER},
    SummaryItem{1, KW_COLORMODEL},
    SummaryItem{0, 339},
    SummaryItem{1, KW_SOURCE},
    SummaryItem{1, 340},
    SummaryItem{2, KW_AUTOTRAYSETTINGTOBYPASS},
    SummaryItem{2, KW_MEDIATYPEBYPASS},
    SummaryItem{2, KW_MEDIATYPEWEIGHTBYPASS},
    SummaryItem{2, KW_PAPERCOLORBYPASS},
    SummaryItem{2, KW_MANUALFEEDDUPLEX},
    SummaryItem{1, 341},
    SummaryItem{2, KW_ZNMEDIATYPE},
    SummaryItem{2, KW_MEDIATYPEWEIGHT},
    SummaryItem{2, KW_PAPERCOLOR},
    SummaryItem{1, KW_OUTPUTTRAY},
    SummaryItem{1, KW_JOG},
    SummaryItem{1, KW_PAGEORDER},
    SummaryItem{1, KW_COLLATE},
    SummaryItem{1, KW_STAPLE},
    SummaryItem{1, KW_PUNCH},
    SummaryItem{0, 342},
    SummaryItem{1, KW_WATERMARK},
    SummaryItem{1, KW_WMSELECTION},
    SummaryItem{1, KW_WMPOSITION},
    SummaryItem{1, KW_WMORDER},
    SummaryItem{0, 347},
    SummaryItem{1, 349},
    SummaryItem{2, KW_RESOLUTION},
    SummaryItem{2, 350},
    SummaryItem{3, KW_ICMMETHOD},
    SummaryItem{3, KW_ICMINTENT},
    SummaryItem{2, KW_SCALE},
    SummaryItem{2, KW_TTOPTION},
    SummaryItem{1, 351},
    SummaryItem{2, 352},
    SummaryItem{3, KW_PSOUTPUTOPTION},
    SummaryItem{3, KW_TRUETYPEFONTDOWNLOAD},
    SummaryItem{3, KW_PSLANGUAGELEVEL},
    SummaryItem{3, KW_PSSENDERRORHANDLER},
    SummaryItem{3, KW_MIRRORPRINT},
    SummaryItem{0, 348},
};
static_assert(kItems.size() <= companion_abi::kSummaryItemCount);

}  // namespace

std::vector<SummaryItem> SummaryItems(bool hasPageOrder) {
  std::vector<SummaryItem> items(kItems.begin(), kItems.end());
  if (!hasPageOrder) {
    std::erase_if(items, [](const SummaryItem& item) { return item.id == KW_PAGEORDER; });
  }
  return items;
}

}  // namespace zn
