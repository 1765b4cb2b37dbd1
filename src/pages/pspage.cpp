#include "pages/pspage.h"

#include <commctrl.h>

#include <array>
#include <utility>

#include "pages/job_picture.h"
#include "platform/boundary.h"
#include "platform/resources.h"
#include "res/resource_ids.h"
#include "session/session.h"

namespace zn {
namespace {

// Keeps a list from painting while its entries change. A hidden one does not paint, and setting
// WM_SETREDRAW would show it; on a page that is not shown yet, the pause pays for itself with many
// entries only.
class PaintPause {
 public:
  PaintPause(HWND list, std::size_t entries) noexcept
      : list_(Pays(list, entries) ? list : nullptr) {
    if (list_ != nullptr) {
      ::SendMessageA(list_, WM_SETREDRAW, FALSE, 0);
    }
  }
  ~PaintPause() {
    if (list_ != nullptr) {
      ::SendMessageA(list_, WM_SETREDRAW, TRUE, 0);
      ::RedrawWindow(list_, nullptr, nullptr,
                     RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
    }
  }
  PaintPause(const PaintPause&) = delete;
  PaintPause& operator=(const PaintPause&) = delete;

 private:
  static bool Pays(HWND list, std::size_t entries) noexcept {
    constexpr std::size_t kFew = 16;
    return (::GetWindowLongPtrA(list, GWL_STYLE) & WS_VISIBLE) != 0 &&
           (entries > kFew || ::IsWindowVisible(list) != FALSE);
  }

  HWND list_;
};

}  // namespace

std::uint32_t OptionCount(SheetContext& sheet, KeywordId id) {
  return id == KW_PUNCH ? static_cast<std::uint32_t>(kPunchEntries.size())
                        : CSession(&sheet).DRVGetKeywordNumOptions(id);
}

std::vector<HWND> ControlsOf(HWND dialog) noexcept {
  struct Found {
    HWND dialog;
    std::vector<HWND> controls;
  } found{dialog, {}};
  ::EnumChildWindows(
      dialog,
      [](HWND window, LPARAM lParam) -> BOOL {
        auto& all = *reinterpret_cast<Found*>(lParam);
        return GuardedOr(FALSE, [&] {
          if (::GetAncestor(window, GA_PARENT) == all.dialog) {  // else one within a control
            all.controls.push_back(window);
          }
          return TRUE;
        });
      },
      reinterpret_cast<LPARAM>(&found));
  return std::move(found.controls);
}

void SetLabelText(HWND label, const std::string& text, bool colon) {
  if (text.empty()) {
    return;
  }
  const std::string shown = colon ? text + LoadResourceString(IDS_LABEL_COLON) : text;
  ::SetWindowTextA(label, shown.c_str());
}

void FillList(HWND list, bool isExtended, std::span<std::string> names, std::span<const int> images,
              std::optional<LPARAM> firstData) {
  const PaintPause pause(list, names.size());
  ::SendMessageA(list, CB_RESETCONTENT, 0, 0);
  AddToList(list, isExtended, names, images, firstData);
}

void AddToList(HWND list, bool isExtended, std::span<std::string> names,
               std::span<const int> images, std::optional<LPARAM> firstData) {
  const PaintPause pause(list, names.size());
  for (std::size_t index = 0; index < names.size(); ++index) {
    const LPARAM data = firstData.value_or(0) + static_cast<LPARAM>(index);
    if (!isExtended) {
      ::SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(names[index].c_str()));
      if (firstData) {
        ::SendMessageA(list, CB_SETITEMDATA, index, data);
      }
      continue;
    }
    COMBOBOXEXITEMA entry{};
    entry.mask = CBEIF_TEXT;
    entry.iItem = -1;
    entry.pszText = names[index].data();
    if (!images.empty()) {
      entry.mask |= CBEIF_IMAGE | CBEIF_SELECTEDIMAGE;
      entry.iImage = entry.iSelectedImage = images[index];
    }
    if (firstData) {
      entry.mask |= CBEIF_LPARAM;
      entry.lParam = data;
    }
    ::SendMessageA(list, CBEM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&entry));
  }
}

std::string EntryText(HWND list, std::uint32_t entry, bool isExtended) {
  if (entry >= static_cast<std::uint32_t>(::SendMessageA(list, CB_GETCOUNT, 0, 0))) {
    return {};
  }
  std::array<char, 256> text{};
  if (isExtended) {
    COMBOBOXEXITEMA item{};
    item.mask = CBEIF_TEXT;
    item.iItem = static_cast<INT_PTR>(entry);
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    ::SendMessageA(list, CBEM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    return text.data();
  }
  const LRESULT length = ::SendMessageA(list, CB_GETLBTEXTLEN, entry, 0);
  if (length <= 0 || length >= static_cast<LRESULT>(text.size())) {
    return {};
  }
  ::SendMessageA(list, CB_GETLBTEXT, entry, reinterpret_cast<LPARAM>(text.data()));
  return text.data();
}

std::optional<std::uint32_t> SelectedIndex(HWND list) noexcept {
  if (list == nullptr) {
    return std::nullopt;
  }
  const LRESULT index = ::SendMessageA(list, CB_GETCURSEL, 0, 0);
  return index >= 0 ? std::optional(static_cast<std::uint32_t>(index)) : std::nullopt;
}

std::optional<std::uint32_t> SelectedItemData(HWND list) noexcept {
  const auto entry = SelectedIndex(list);
  const LRESULT data = entry ? ::SendMessageA(list, CB_GETITEMDATA, *entry, 0) : CB_ERR;
  return data != CB_ERR ? std::optional(static_cast<std::uint32_t>(data)) : std::nullopt;
}

void SelectEntry(HWND list, std::size_t entry) noexcept {
  // Selecting the selected entry would paint the list again.
  if (static_cast<std::size_t>(::SendMessageA(list, CB_GETCURSEL, 0, 0)) != entry) {
    ::SendMessageA(list, CB_SETCURSEL, entry, 0);
  }
}

void SelectItemData(HWND list, std::uint32_t data) noexcept {
  const LRESULT count = ::SendMessageA(list, CB_GETCOUNT, 0, 0);
  for (LRESULT entry = 0; entry < count; ++entry) {
    if (::SendMessageA(list, CB_GETITEMDATA, static_cast<WPARAM>(entry), 0) ==
        static_cast<LRESULT>(data)) {
      SelectEntry(list, static_cast<std::size_t>(entry));
      return;
    }
  }
}

void CheckRadio(HWND page, std::span<const int> radioIds, std::uint32_t index) noexcept {
  const HWND focus = ::GetFocus();
  bool focusInGroup = false;
  for (std::size_t radio = 0; radio < radioIds.size(); ++radio) {
    const HWND button = ::GetDlgItem(page, radioIds[radio]);
    if (button == nullptr) {
      return;
    }
    focusInGroup = focusInGroup || button == focus;
    ::SendMessageA(button, BM_SETCHECK, radio == index ? BST_CHECKED : BST_UNCHECKED, 0);
  }
  if (index >= radioIds.size()) {
    // The buttons let Tab in at the checked one only.
    const HWND first = ::GetDlgItem(page, radioIds.front());
    ::SetWindowLongPtrA(first, GWL_STYLE, ::GetWindowLongPtrA(first, GWL_STYLE) | WS_TABSTOP);
  } else if (const HWND checked = ::GetDlgItem(page, radioIds[index]);
             focusInGroup && checked != focus) {
    ::SetFocus(checked);
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
  if (control == nullptr) {
    return {};  // asked for no window's text, some systems answer whatever there is
  }
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

}  // namespace zn
