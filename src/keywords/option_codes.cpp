// Per keyword id the print-option codes behind the core driver's option indexes.
#include <algorithm>
#include <array>

#include "keywords/keyword_table.h"

namespace zn {
namespace {

// The codes from `first` to `last`, which may descend.
struct To {
  std::uint32_t first, last;

  constexpr To(std::uint32_t from, std::uint32_t to) : first(from), last(to) {}
  constexpr To(int code) : To(static_cast<std::uint32_t>(code), static_cast<std::uint32_t>(code)) {}

  [[nodiscard]] constexpr std::size_t Count() const {
    return (last >= first ? last - first : first - last) + std::size_t{1};
  }
};

template <To... kRuns>
constexpr auto kExpanded = [] {
  std::array<std::uint32_t, (kRuns.Count() + ...)> codes{};
  std::size_t at = 0;
  for (const To& run : {kRuns...}) {
    for (std::uint32_t i = 0; i < run.Count(); ++i) {
      codes[at++] = run.last >= run.first ? run.first + i : run.first - i;
    }
  }
  return codes;
}();

using CodeList = std::span<const std::uint32_t>;

template <To... kRuns>
constexpr CodeList Codes = kExpanded<kRuns...>;

struct CodeRow {
  KeywordId id;
  CodeList codes;
};

// The order is that in which the printer description offers the choices, so no list is sorted.
// Paper sizes share one order; booklet, imposition and output paper put code 0 in front of it.
constexpr CodeList kBookletPapers = Codes<0, 62, 53, 4, 2, 3, 1, 8, 6, 7, 5, To{10, 17}, 65, 18, 57,
                                          67, 19, To{22, 24}, 68, 78, 89, 88, 69, 70, 20>;
constexpr CodeList kImpositionPapers =
    Codes<0, 62, 53, 4, 2, 3, 1, 54, 8, 6, 7, 5, 55, To{10, 17}, 65, 18, 57, 66, 67, 91, 19,
          To{22, 24}, 68, 78, 89, 88, 69, 70, 20>;
constexpr CodeList kOutputPapers =
    Codes<0, 62, 53, 4, 2, 3, 1, 54, 8, 6, 7, 5, 55, To{10, 17}, 65, 18, 57, 66, 67, 91, 19,
          To{22, 24}, 68, 78, 89, 88, To{69, 71}, 51, 49, 72, 50, 52, 73>;

// The printer's media types; the standard keyword MediaType numbers some of them differently.
constexpr CodeList kMediaTypes =
    Codes<270, 271, 34, 43, 12, 37, To{3, 5}, 8, 272, 9, 41, 30, 11, To{20, 29}, To{333, 342}>;

constexpr auto kCodeRows = std::to_array<CodeRow>({
    {KW_RGBGAMMA, Codes<5, To{0, 4}>},
    {KW_RGBWHITEPOINT, Codes<To{0, 2}>},
    {KW_CMYKSIMULATION,
     Codes<179, To{160, 162}, 11, 13, 12, 10, 130, 131, 1, 178, To{172, 174}, To{20, 119}>},
    {KW_RGBCOLORCORRECT, Codes<0, 2, 1, To{3, 7}, To{11, 110}>},
    {KW_COLORMODEL, Codes<1, 0>},
    {KW_MEDIATYPE,
     Codes<270, 271, 34, 43, 12, 37, 4, 10, 11, 6, 272, 9, 41, 30, 8, To{20, 29}, To{333, 342}>},
    {KW_MANUALFEEDDUPLEX, Codes<To{0, 4}>},
    {KW_JOG, Codes<To{0, 2}>},
    {KW_OUTPUTBIN, Codes<2, 6, To{13, 15}>},
    {KW_STAPLE, Codes<To{0, 9}, 30, 31, To{10, 17}, 36, 37>},
    {KW_PRINTERMODE, Codes<3, 4, 7, 8, 5>},
    {KW_USERCURVE, Codes<To{0, 100}>},
    {KW_SPOOLOPTION, Codes<To{0, 2}>},
    {KW_PREFLIGHT, Codes<1, 2>},
    {KW_DOCUMENTTYPE, Codes<11, 0, 12, 1, 13, 14, 4>},
    {KW_PRINTQUALITY, Codes<0, 3>},
    {KW_UNSEPARATE, Codes<0, 1, 9, To{2, 8}>},
    {KW_HAIRLINEWARNING, Codes<To{0, 3}>},
    {KW_OVERPRINTWARNING, Codes<To{0, 2}>},
    {KW_RGBOUTPUTPROFILE, Codes<To{0, 100}>},
    {KW_RGBOUTPUTINTENT, Codes<To{0, 3}>},
    {KW_PRINTWITHFORM, Codes<To{0, 2}>},
    {KW_MEMO, Codes<To{1, 13}>},
    {KW_IMAGEENHANCEMENT, Codes<To{0, 2}>},
    {KW_BOOKLETBIND, Codes<1, 2>},
    {KW_BOOKLETAREA, Codes<To{0, 2}>},
    {KW_BOOKLETFACE, Codes<To{0, 2}>},
    {KW_BOOKLETPAPERSIZE, kBookletPapers},
    {KW_BOOKLETSEPARATE, Codes<To{0, 2}>},
    {KW_BRIGHTNESS, Codes<To{10, 0}>},
    {KW_SHARPNESS, Codes<6, 9, 5, 8, 4, 7, 3, 2, 1, 0>},
    {KW_PUNCH, Codes<To{0, 4}, 13>},
    {KW_USERCURVEIMAGE, Codes<To{0, 100}>},
    {KW_USERCURVECHARACTER, Codes<To{0, 100}>},
    {KW_TOTALTONER, Codes<0, 2, 4>},
    {KW_BRIGHTNESSSRGBAUTO, Codes<To{6, 0}>},
    {KW_VIVIDNESS, Codes<To{6, 0}>},
    {KW_CONTRASTS, Codes<To{6, 0}>},
    {KW_COLORREPRODUCTIONRGBFORCHAR, Codes<0, 3>},
    {KW_COLORREPRODUCTIONCMYKFORCHAR, Codes<0, 1, 3, 4>},
    {KW_OUTPUTTRAY, Codes<2, 6, To{13, 15}>},
    {KW_SEPARATORSTRAY, Codes<To{1, 3}, To{7, 9}, 5>},
    {KW_BLANKPAPERSFRONTTRAY, Codes<To{1, 3}, To{7, 9}, 5>},
    {KW_BLANKPAPERSBACKTRAY, Codes<To{1, 3}, To{7, 9}, 5>},
    {KW_BOOKLET1STTRAY, Codes<To{0, 3}, To{7, 9}, 5>},
    {KW_BOOKLETOTHERTRAY, Codes<24, To{0, 3}, 7, 8>},
    {KW_PSOVERPRINT, Codes<To{0, 4}>},
    {KW_SPOTCOLORPERMEABILITY, Codes<To{0, 2}>},
    {KW_MEMOCOLOR, Codes<To{0, 7}>},
    {KW_WMORDER, Codes<To{0, 2}>},
    {KW_WMPOSITION, Codes<To{1, 4}, 0>},
    {KW_REPEATPRINTPAPERSIZE, kBookletPapers.subspan(1)},
    {KW_AUTOTRAPPINGSETUPFILE, Codes<To{0, 99}>},
    {KW_STROKEADJUST, Codes<To{0, 2}>},
    {KW_IMAGESCREEN, Codes<To{0, 4}, 7, 5>},
    {KW_IMAGECALIBRATION, Codes<201, To{1, 100}>},
    {KW_CHARACTERSCREEN, Codes<To{0, 4}, 7, 5>},
    {KW_CHARACTERCALIBRATION, Codes<201, To{1, 100}>},
    {KW_IMPOSITIONTEMPLATEFILE, Codes<To{1, 500}>},
    {KW_IMPOSITIONPAGERANGE, Codes<0, 3>},
    {KW_IMPOSITIONOUTPUTPAPERSIZE, kImpositionPapers},
    {KW_IMPOSITIONADJUSTTOPAPERSIZE, Codes<0, 1, 4>},
    {KW_IMPOSITIONOUTPUTTRAY, Codes<To{0, 3}, 7, 8, 5>},
    {KW_IMPOSITIONOUTPUTRANGE, Codes<To{0, 2}>},
    {KW_IMPOSITION1STTRAY, Codes<To{0, 3}, To{7, 9}, 5>},
    {KW_IMPOSITIONOTHERTRAY, Codes<24, To{0, 3}, 7, 8>},
    {KW_PDFPREFLIGHT, Codes<To{1, 3}>},
    {KW_PROFILEFORPDFPREFLIGHT, Codes<To{0, 99}>},
    {KW_DFAFUNCTION, Codes<To{0, 3}>},
    {KW_DFASETTING, Codes<To{0, 6}>},
    {KW_FOLD, Codes<0, 11, To{1, 8}, 12>},
    {KW_BOOKLETFINISHING, Codes<To{0, 2}>},
    {KW_PAGINATIONTEMPLATEFILE, Codes<To{0, 99}>},
    {KW_IMPOSITIONFINISHING, Codes<To{0, 2}>},
    {KW_IMPOSITIONPAGINATIONTEMPFILE, Codes<To{0, 99}>},
    {KW_ZNMEDIATYPE, kMediaTypes},
    {KW_MEDIATYPEWEIGHT, Codes<To{0, 8}>},
    {KW_PAPERCOLOR, Codes<To{0, 17}>},
    {KW_ORIENTATIONOVERRIDE, Codes<To{0, 2}>},
    {KW_REPLACECOLOR, Codes<To{0, 100}>},
    {KW_SPOTCOLORCORRECTIONPROFILE, Codes<To{0, 101}>},
    {KW_SPOTCOLORCORRECTIONINTENT, Codes<To{0, 3}>},
    {KW_AUTOTRAPPINGPROCESS, Codes<To{0, 100}>},
    {KW_MEDIATYPEBYPASS, kMediaTypes},
    {KW_MEDIATYPEWEIGHTBYPASS, Codes<To{0, 8}>},
    {KW_PAPERCOLORBYPASS, Codes<To{0, 17}>},
    {KW_MEMOMODE, Codes<To{1, 13}>},
    {KW_PRINTPOSITIONBASIS, Codes<1, 2>},
    {KW_PUNCHHOLES, Codes<To{0, 2}>},
    {KW_IMPOSITIONSQUAREFOLDSTRENGTH, Codes<To{0, 4}>},
    {KW_BOOKLETSQUAREFOLDSTRENGTH, Codes<To{0, 4}>},
    {KW_SQUAREFOLDSTRENGTH, Codes<To{0, 4}>},
    {KW_MEDIATYPEDRILLED, Codes<To{0, 3}>},
    {KW_SPECIFYPREFLIGHT, Codes<To{0, 2}>},
    {KW_CLEARPROCESSTYPE, Codes<To{0, 4}>},
    {KW_CLEARPROCESSREGISTERDPATTERN, Codes<To{1, 100}>},
    {KW_CLEARPROCESSPATTERNLOCATION, Codes<To{0, 4}>},
    {KW_GLOSSCONTROL, Codes<To{0, 2}>},
    {KW_IMGNOISERED, Codes<To{0, 2}>},
    {KW_PERFECTBINDER, Codes<To{0, 100}>},
    {KW_OUTPUTPAPERSIZE, kOutputPapers},
    {KW_MIXSIZEFIRSTPAGESIZE, Codes<1, 2, 5, 6, 12, 16>},
    {KW_MIXSIZEFIRSTPAGEORIENTATION, Codes<1, 2>},
    {KW_MIXSIZEMIXEDPAGEORIENTATION, Codes<1, 2>},
    {KW_MIXSIZEROTATION, Codes<To{0, 3}>},
    {KW_PAGESIZE, kOutputPapers.subspan(1)},
    {330, Codes<To{0, 2}>},
});

constexpr CodeList kDefaultCodes = Codes<0, 1>;

constexpr auto kListsById = [] {
  std::array<CodeList, kCodeRows.back().id + 1> lists{};
  lists.fill(kDefaultCodes);
  for (const CodeRow& row : kCodeRows) {
    lists[row.id] = row.codes;
  }
  return lists;
}();

}  // namespace

std::span<const std::uint32_t> GetOptionCodeList(KeywordId id) noexcept {
  return id < kListsById.size() ? kListsById[id] : kDefaultCodes;
}

bool GetOptionCode(KeywordId id, std::uint32_t index, std::uint32_t& code) noexcept {
  const CodeList codes = GetOptionCodeList(id);
  if (index >= codes.size()) {
    return false;
  }
  code = codes[index];
  return true;
}

bool GetOptionIndex(KeywordId id, std::uint32_t code, std::uint32_t& index) noexcept {
  const CodeList codes = GetOptionCodeList(id);
  const auto found = std::ranges::find(codes, code);
  if (found == codes.end()) {
    return false;
  }
  index = static_cast<std::uint32_t>(found - codes.begin());
  return true;
}

}  // namespace zn
