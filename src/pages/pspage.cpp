#include "pages/pspage.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/resources.h"
#include "res/resource_ids.h"
#include "session/session.h"

namespace zn {
namespace {

constexpr COLORREF kTransparentColor = RGB(255, 0, 255);

// Keeps a list from painting while its entries change.
class PaintPause {
 public:
  explicit PaintPause(HWND list) noexcept : list_(list) {
    ::SendMessageA(list_, WM_SETREDRAW, FALSE, 0);
  }
  ~PaintPause() {
    ::SendMessageA(list_, WM_SETREDRAW, TRUE, 0);
    ::InvalidateRect(list_, nullptr, TRUE);
  }
  PaintPause(const PaintPause&) = delete;
  PaintPause& operator=(const PaintPause&) = delete;

 private:
  HWND list_;
};

void AppendEntry(HWND list, std::string& text, const int* image) {
  COMBOBOXEXITEMA entry{};
  entry.mask = CBEIF_TEXT;
  entry.iItem = -1;
  entry.pszText = text.data();
  if (image != nullptr) {
    entry.mask |= CBEIF_IMAGE | CBEIF_SELECTEDIMAGE;
    entry.iImage = *image;
    entry.iSelectedImage = *image;
  }
  ::SendMessageA(list, CBEM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&entry));
}

// A bitmap of square images side by side.
struct ImageStrip {
  UINT bitmapId;
  int size;  // pixels
  bool endsWithWarning;
};
constexpr std::array kStrips{
    ImageStrip{IDB_COLOR_MODE, 24, false}, ImageStrip{IDB_DUPLEX, 24, false},
    ImageStrip{IDB_FAVORITE, 16, false},   ImageStrip{IDB_NUP, 24, false},
    ImageStrip{IDB_PUNCH, 24, true},       ImageStrip{IDB_STAPLE, 24, true},
};

UniqueImageList LoadImages(const ImageStrip& strip) {
  const UniqueBitmap bitmap(static_cast<HBITMAP>(::LoadImageA(
      ResourceInstance(), MAKEINTRESOURCEA(strip.bitmapId), IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR)));
  UniqueImageList images(::ImageList_Create(strip.size, strip.size, ILC_COLOR24 | ILC_MASK, 1, 1));
  if (!bitmap || !images ||
      ::ImageList_AddMasked(images.get(), bitmap.get(), kTransparentColor) < 0) {
    return nullptr;
  }
  if (strip.endsWithWarning) {
    ::ImageList_AddIcon(images.get(), LoadWarningImage().icon24);
  }
  return images;
}

HICON SharedIcon(UINT id, int size) noexcept {
  return static_cast<HICON>(
      ::LoadImageA(ResourceInstance(), MAKEINTRESOURCEA(id), IMAGE_ICON, size, size, LR_SHARED));
}

}  // namespace

std::uint32_t OptionIndex(const SheetContext& sheet, KeywordId id, bool useDefault) {
  return LOWORD(useDefault ? sheet.Default(id) : sheet.Current(id));
}

std::uint32_t OptionCount(SheetContext& sheet, KeywordId id) {
  return id == KW_PUNCH ? kPunchEntries : CSession(&sheet).DRVGetKeywordNumOptions(id);
}

void SetLabelText(HWND label, const std::string& text, bool colon) {
  if (text.empty()) {
    return;
  }
  const std::string shown = colon ? text + LoadResourceString(IDS_LABEL_COLON) : text;
  ::SetWindowTextA(label, shown.c_str());
}

HWND ListOfLabel(HWND page, int labelId) noexcept {
  const HWND label = ::GetDlgItem(page, labelId);
  return label != nullptr ? ::GetWindow(label, GW_HWNDNEXT) : nullptr;
}

bool InitComboBox(HWND page, SheetContext& sheet, KeywordId id, int labelId, bool useDefault,
                  std::span<const int> images) {
  const HWND list = ListOfLabel(page, labelId);
  if (list == nullptr) {
    return false;
  }
  const CompanionModule companion(sheet.hPrinter);
  SetLabelText(::GetDlgItem(page, labelId), companion.GetKeywordTranslation(id), true);
  auto names = companion.GetKeywordOptionString(id, OptionCount(sheet, id));

  const PaintPause pause(list);
  ::SendMessageA(list, CB_RESETCONTENT, 0, 0);
  for (std::size_t index = 0; index < names.size(); ++index) {
    AppendEntry(list, names[index], index < images.size() ? &images[index] : nullptr);
  }
  ::SendMessageA(list, CB_SETCURSEL, OptionIndex(sheet, id, useDefault), 0);
  return true;
}

bool InitRadioGroup(HWND page, SheetContext& sheet, KeywordId id, int groupLabelId,
                    std::span<const int> radioIds, bool useDefault) {
  const HWND label = ::GetDlgItem(page, groupLabelId);
  if (label == nullptr) {
    return false;
  }
  const CompanionModule companion(sheet.hPrinter);
  SetLabelText(label, companion.GetKeywordTranslation(id), false);
  const auto names = companion.GetKeywordOptionString(id, OptionCount(sheet, id));
  for (std::size_t index = 0; index < radioIds.size() && index < names.size(); ++index) {
    SetLabelText(::GetDlgItem(page, radioIds[index]), names[index], false);
  }
  CheckRadio(page, radioIds, OptionIndex(sheet, id, useDefault));
  return true;
}

bool StoreComboSelection(HWND page, SheetContext& sheet, KeywordId id, int labelId) {
  const auto index = SelectedIndex(ListOfLabel(page, labelId));
  if (index) {
    sheet.SetCurrent(id, *index);
  }
  return index.has_value();
}

std::optional<std::uint32_t> SelectedIndex(HWND list) noexcept {
  if (list == nullptr) {
    return std::nullopt;
  }
  const LRESULT index = ::SendMessageA(list, CB_GETCURSEL, 0, 0);
  return index >= 0 ? std::optional(static_cast<std::uint32_t>(index)) : std::nullopt;
}

void CheckRadio(HWND page, std::span<const int> radioIds, std::uint32_t index) noexcept {
  const HWND focus = ::GetFocus();
  bool focusInGroup = false;
  for (std::size_t radio = 0; radio < radioIds.size(); ++radio) {
    const HWND button = ::GetDlgItem(page, radioIds[radio]);
    focusInGroup = focusInGroup || (button != nullptr && button == focus);
    ::SendMessageA(button, BM_SETCHECK, radio == index ? BST_CHECKED : BST_UNCHECKED, 0);
  }
  if (focusInGroup && index < radioIds.size()) {
    const HWND checked = ::GetDlgItem(page, radioIds[index]);
    if (checked != nullptr && checked != focus) {
      ::SetFocus(checked);
    }
  }
}

int CheckedRadio(HWND page, std::span<const int> radioIds) noexcept {
  for (int radio = static_cast<int>(radioIds.size()) - 1; radio >= 0; --radio) {
    if (::IsDlgButtonChecked(page, radioIds[static_cast<std::size_t>(radio)]) == BST_CHECKED) {
      return radio;
    }
  }
  return -1;
}

std::string ControlText(HWND control, int maxBytes) {
  std::string text(static_cast<std::size_t>(maxBytes) + 1, '\0');
  text.resize(static_cast<std::size_t>(::GetWindowTextA(control, text.data(), maxBytes + 1)));
  return text;
}

int ShowMessage(HWND owner, UINT textId, UINT captionId, UINT style) {
  return ShowMessage(owner, LoadResourceString(textId), captionId, style);
}

int ShowMessage(HWND owner, const std::string& text, UINT captionId, UINT style) {
  const std::string caption = captionId != 0 ? LoadResourceString(captionId) : std::string();
  return ::MessageBoxA(owner, text.c_str(), caption.c_str(), style);
}

const WarningImages& LoadWarningImage() {
  static const WarningImages images = [] {
    WarningImages made{SharedIcon(IDI_WARNING_16, 16), SharedIcon(IDI_WARNING_24, 24),
                       SharedIcon(IDI_WARNING_24, 32),
                       UniqueImageList(::ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 1, 1))};
    ::ImageList_AddIcon(made.m_hImgWarningList_16.get(), made.icon16);
    return made;
  }();
  return images;
}

HIMAGELIST SharedImages(UINT bitmapId) {
  static std::array<UniqueImageList, kStrips.size()> made;
  const auto strip = std::ranges::find(kStrips, bitmapId, &ImageStrip::bitmapId);
  if (strip == kStrips.end()) {
    return nullptr;
  }
  UniqueImageList& images = made[static_cast<std::size_t>(strip - kStrips.begin())];
  if (!images) {
    images = LoadImages(*strip);
  }
  return images.get();
}

void AttachImages(HWND page, std::span<const ListImages> lists) {
  for (const auto& [listId, bitmapId] : lists) {
    ::SendDlgItemMessageA(page, listId, CBEM_SETIMAGELIST, 0,
                          reinterpret_cast<LPARAM>(SharedImages(bitmapId)));
  }
}

int SetWarningIndex(std::span<const std::uint32_t> availableFlags, std::span<int> imageIndices,
                    HIMAGELIST imageList) noexcept {
  const int last = imageList != nullptr ? ::ImageList_GetImageCount(imageList) - 1 : -1;
  if (last < 0) {
    return 0;
  }
  int marked = 0;
  for (std::size_t option = 0; option < std::min(availableFlags.size(), imageIndices.size());
       ++option) {
    if (availableFlags[option] == 0) {
      imageIndices[option] = last;
      marked = 1;
    }
  }
  return marked;
}

}  // namespace zn
