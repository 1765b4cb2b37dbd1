#include "pages/illustration.h"

#include <string>

#include "pages/job_painter.h"
#include "pages/job_picture.h"
#include "pages/job_sentence.h"
#include "pages/pspage.h"
#include "platform/format_text.h"
#include "platform/handles.h"
#include "platform/resources.h"
#include "res/resource_ids.h"
#include "session/forms.h"

namespace zn {
namespace {

// The lengths of the custom size are thousandths of a millimetre.
PaperSize DocumentPaper(const SheetContext& sheet) noexcept {
  const std::uint32_t form = LOWORD(sheet.Current(KW_PAGESIZE));
  if (IsCustomForm(form)) {
    constexpr std::uint32_t kPerTenth = 100;
    return {sheet.Current(KW_CUSTOMPAPERWIDTH) / kPerTenth,
            sheet.Current(KW_CUSTOMPAPERHEIGHT) / kPerTenth};
  }
  const auto [width, height] = GetFormSize(form);
  return {width, height};
}

JobPicture Describe(const SheetContext& sheet) {
  return DescribeJob(sheet.options, DocumentPaper(sheet), sheet.hasPageOrder);
}

// What the picture itself says below the sheet.
std::string Caption(HWND page, const SheetContext& sheet, const JobPicture& picture) {
  const std::string paper = OutputPaperName(page, sheet);
  return picture.copies > 1 ? FillIn(LoadResourceString(IDS_PICTURE_CAPTION_COPIES),
                                     {paper, std::to_string(picture.copies)})
                            : paper;
}

}  // namespace

void ShowIllustration(HWND page, const SheetContext& sheet, IllustrationKind kind) {
  const HWND illustration = ::GetDlgItem(page, IDC_ILLUSTRATION);
  if (illustration == nullptr) {
    return;
  }
  const std::string sentence = kind == IllustrationKind::Layout
                                   ? LayoutSentence(page, sheet, Describe(sheet))
                                   : OutputSentence(page, sheet);
  // A screen reader hears of every text that is set.
  if (sentence != ControlText(illustration, kMaxSentence)) {
    ::SetWindowTextA(illustration, sentence.c_str());
  }
  ::InvalidateRect(illustration, nullptr, FALSE);
}

bool DrawIllustration(const DRAWITEMSTRUCT& item, const SheetContext& sheet,
                      IllustrationKind kind) {
  const int width = item.rcItem.right - item.rcItem.left;
  const int height = item.rcItem.bottom - item.rcItem.top;
  if (item.hDC == nullptr || width <= 0 || height <= 0) {
    return false;
  }
  // Drawn aside and copied at once, so that nothing flickers.
  // The bitmap goes last: one that is selected into a context cannot be deleted.
  const UniqueBitmap bitmap(::CreateCompatibleBitmap(item.hDC, width, height));
  const UniqueMemoryDC memory(::CreateCompatibleDC(item.hDC));
  if (!memory || !bitmap) {
    return false;
  }
  const HGDIOBJ before = ::SelectObject(memory.get(), bitmap.get());
  {
    const JobPicture picture = Describe(sheet);
    JobPainter painter(memory.get(), item.hwndItem, {0, 0, width, height});
    if (kind == IllustrationKind::Layout) {
      painter.DrawLayout(picture, Caption(::GetParent(item.hwndItem), sheet, picture));
    } else {
      painter.DrawOutput(picture);
    }
  }
  ::BitBlt(item.hDC, item.rcItem.left, item.rcItem.top, width, height, memory.get(), 0, 0, SRCCOPY);
  ::SelectObject(memory.get(), before);
  return true;
}

}  // namespace zn
