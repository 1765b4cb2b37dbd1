#include "pages/job_sentence.h"

#include <array>

#include "pages/page_images.h"
#include "pages/pspage.h"
#include "platform/format_text.h"
#include "platform/resources.h"
#include "res/resource_ids.h"
#include "session/forms.h"

namespace zn {
namespace {

std::string Text(UINT id, std::initializer_list<std::string_view> words = {}) {
  return FillIn(LoadResourceString(id), words);
}

// Parts one after another; an empty one is left out.
class Sentence {
 public:
  void Add(const std::string& part) {
    if (!part.empty()) {
      text_.append(text_.empty() ? std::string() : Text(IDS_PICTURE_SEPARATOR)).append(part);
    }
  }
  void Add(UINT id) { Add(Text(id)); }
  void AddIf(bool condition, UINT id) {
    if (condition) {
      Add(id);
    }
  }
  [[nodiscard]] std::string Take() { return std::move(text_); }

 private:
  std::string text_;
};

// A setting whose list holds the word for it.
struct Setting {
  int list;
  UINT text;             // with a place for the word
  UINT noneText = 0;     // for entry 0; 0: entry 0 has a word like the others
  bool silent = false;   // entry 0 is not worth a word
  bool mayLack = false;  // entries that the device lacks carry the warning
};

std::string WordsOf(HWND page, const Setting& setting, std::uint32_t entry) {
  if (entry == 0 && (setting.noneText != 0 || setting.silent)) {
    return setting.noneText != 0 ? Text(setting.noneText) : std::string();
  }
  const HWND list = ::GetDlgItem(page, setting.list);
  std::string word = list != nullptr ? EntryText(list, entry, true) : std::string();
  if (word.empty()) {
    return {};
  }
  if (setting.mayLack && ShowsWarning(list, static_cast<int>(entry))) {
    word = Text(IDS_PICTURE_MISSING_UNIT, {word});
  }
  return Text(setting.text, {word});
}

std::string PaperName(const SheetContext& sheet) {
  return std::string(FormName(LOWORD(sheet.Current(KW_PAGESIZE))));
}

}  // namespace

std::string OutputPaperName(HWND page, const SheetContext& sheet) {
  const std::uint32_t option = LOWORD(sheet.Current(KW_OUTPUTPAPERSIZE));
  const HWND list = ::GetDlgItem(page, IDC_BASIC_OUTPUT_SIZE);
  const std::string name =
      option != 0 && list != nullptr ? EntryText(list, option, false) : std::string();
  return option != 0 ? name : PaperName(sheet);
}

std::string LayoutSentence(HWND page, const SheetContext& sheet, const JobPicture& picture) {
  constexpr std::array<UINT, 3> kOrientations{IDS_PICTURE_PORTRAIT, IDS_PICTURE_LANDSCAPE,
                                              IDS_PICTURE_ROTATED};
  const std::uint32_t orientation = sheet.Current(KW_ORIENTATION);
  Sentence sentence;
  sentence.Add(Text(kOrientations[orientation < kOrientations.size() ? orientation : 0],
                    {PaperName(sheet)}));
  if (sheet.Current(KW_OUTPUTPAPERSIZE) != 0) {
    sentence.Add(Text(IDS_PICTURE_OUTPUT_SIZE, {OutputPaperName(page, sheet)}));
    sentence.AddIf(sheet.Current(KW_PAGEPRINTONCENTER) != 0, IDS_PICTURE_CENTER);
  }
  sentence.AddIf(sheet.Current(KW_PAGEFITSIZE) != 0, IDS_PICTURE_FIT);
  if (picture.isBooklet) {
    sentence.Add(WordsOf(page, {IDC_BASIC_NUP, IDS_PICTURE_CAPTION}, sheet.Current(KW_NUP)));
  } else if (picture.pages.size() > 1) {
    sentence.Add(Text(IDS_PICTURE_NUP, {std::to_string(picture.pages.size())}));
  }
  sentence.AddIf(picture.hasBorders, IDS_PICTURE_BORDERS);
  sentence.Add(WordsOf(page, {IDC_BASIC_DUPLEX, IDS_PICTURE_TWO_SIDES, IDS_PICTURE_ONE_SIDE},
                       sheet.Current(KW_DUPLEX)));
  sentence.Add(
      WordsOf(page, {IDC_BASIC_COLOR_MODE, IDS_PICTURE_CAPTION}, sheet.Current(KW_COLORMODEL)));
  sentence.Add(Text(IDS_PICTURE_COPIES, {std::to_string(picture.copies)}));
  return sentence.Take();
}

std::string OutputSentence(HWND page, const SheetContext& sheet) {
  Sentence sentence;
  const auto punch = PunchEntry({sheet.Current(KW_PUNCH), sheet.Current(KW_PUNCHHOLES)});
  sentence.Add(WordsOf(page,
                       {.list = IDC_TRAY_STAPLE,
                        .text = IDS_PICTURE_STAPLE,
                        .noneText = IDS_PICTURE_NO_STAPLE,
                        .mayLack = true},
                       sheet.Current(KW_STAPLE)));
  sentence.Add(WordsOf(page,
                       {.list = IDC_TRAY_PUNCH,
                        .text = IDS_PICTURE_PUNCH,
                        .noneText = IDS_PICTURE_NO_PUNCH,
                        .mayLack = true},
                       punch.value_or(0)));
  sentence.Add(sheet.Current(KW_COLLATE) != 0 ? IDS_PICTURE_COLLATED : IDS_PICTURE_NOT_COLLATED);
  sentence.Add(WordsOf(page, {.list = IDC_TRAY_JOG, .text = IDS_PICTURE_JOG, .silent = true},
                       sheet.Current(KW_JOG)));
  if (sheet.hasPageOrder) {
    sentence.Add(sheet.Current(KW_PAGEORDER) == 1 ? IDS_PICTURE_REVERSE_ORDER
                                                  : IDS_PICTURE_FORWARD_ORDER);
  }
  sentence.Add(WordsOf(page,
                       {.list = IDC_TRAY_OUTPUT, .text = IDS_PICTURE_OUTPUT_TRAY, .mayLack = true},
                       sheet.Current(KW_OUTPUTTRAY)));
  sentence.Add(WordsOf(page, {.list = IDC_TRAY_SOURCE, .text = IDS_PICTURE_SOURCE, .mayLack = true},
                       sheet.Current(KW_SOURCE)));
  return sentence.Take();
}

}  // namespace zn
