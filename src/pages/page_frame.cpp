#include "pages/page_frame.h"

#include <commctrl.h>

#include <algorithm>
#include <array>

#include "pages/page_images.h"
#include "pages/profile_source.h"
#include "pages/pspage.h"
#include "pages/restriction_question.h"
#include "res/resource_ids.h"
#include "session/forms.h"

namespace zn {
namespace {

constexpr int kNoImage = I_IMAGENONE;

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

void AppendEntry(HWND list, ControlKind kind, std::string& text, const int* image) {
  if (kind != ControlKind::ExtendedList) {
    ::SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    return;
  }
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

// Per option whether the installed device serves it; nothing when the profile has no answer for so
// many options.
std::optional<std::vector<std::uint32_t>> AskDevice(const CProfileInfo& profile,
                                                    Installed installed, std::size_t count) {
  constexpr int kStapleItem = 13;
  // One more than options: the query of the outputs writes six values for five.
  std::vector<std::uint32_t> flags(count + 1, 1);
  const int listed = static_cast<int>(count);
  int answered = 1;
  switch (installed) {
    case Installed::Trays:
      answered = profile.GetTrayConfig(flags.data(), listed);
      break;
    case Installed::Outputs:
      answered = profile.GetOutputConfig(flags.data(), listed);
      break;
    case Installed::Punches:
      profile.GetPunchConfig(flags.data(), listed);  // without an answer all stay
      break;
    case Installed::Staples:
      std::fill(flags.begin() + 1, flags.end(), profile.Items()[kStapleItem].present);
      break;
    case Installed::Always:
      break;
  }
  flags.resize(count);
  return answered != 0 ? std::optional(std::move(flags)) : std::nullopt;
}

}  // namespace

const CompanionModule& PageSources::Companion() {
  if (!companion_) {
    companion_.emplace(sheet_.hPrinter);
  }
  return *companion_;
}

const CProfileInfo& PageSources::Profile() {
  if (!profile_) {
    profile_ = std::make_unique<CProfileInfo>();
    UpdateProfile(*profile_, sheet_);
  }
  return *profile_;
}

// --- Filling ---

bool PageFrame::Fill(bool useDefault) {
  PageSources sources(sheet_);
  const bool isFilled = std::ranges::all_of(
      table_.controls, [&](const Control& row) { return Fill(row, sources, useDefault); });
  for (const Control& row : table_.controls) {
    Select(row, sheet_.Current(row.keyword));
  }
  EnableControls();
  return isFilled;
}

bool PageFrame::Fill(const Control& row, PageSources& sources, bool useDefault) {
  const std::uint32_t selection =
      useDefault ? sheet_.Default(row.keyword) : sheet_.Current(row.keyword);
  bool isFilled = false;
  switch (row.kind) {
    case ControlKind::ExtendedList:
    case ControlKind::List:
    case ControlKind::Forms:
      isFilled = InitComboBox(row, sources, selection);
      break;
    case ControlKind::Radios:
      isFilled = InitRadioGroup(row, sources, selection);
      break;
    case ControlKind::CheckBox:
      isFilled = Item(row.id) != nullptr;
      SetCaption(row, sources, Item(row.id));
      Select(row, selection);
      break;
    case ControlKind::UpDown:
      isFilled = InitUpDown(row, selection);
      SetCaption(row, sources, Item(row.label));
      break;
  }
  if (isFilled && useDefault) {
    sheet_.SetCurrent(row.keyword, selection);
  }
  return isFilled;
}

bool PageFrame::InitComboBox(const Control& row, PageSources& sources, std::uint32_t selection) {
  const HWND list = ControlOf(row);
  if (list == nullptr) {
    return false;
  }
  SetCaption(row, sources, Item(row.label));
  const bool isShown = row.coding.Shows(selection);
  const PaintPause pause(list);
  if (row.coding.misfit == Misfit::Empty && !isShown) {
    ::SendMessageA(list, CB_RESETCONTENT, 0, 0);
    return false;
  }
  auto names = NamesOf(row, sources);
  const auto images = ImagesOf(row, sources, names.size());
  if (!images) {
    return false;
  }
  ::SendMessageA(list, CB_RESETCONTENT, 0, 0);
  for (std::size_t entry = 0; entry < names.size(); ++entry) {
    AppendEntry(list, row.kind, names[entry], images->empty() ? nullptr : &(*images)[entry]);
    if (row.coding.itemData) {
      ::SendMessageA(list, CB_SETITEMDATA, entry, static_cast<LPARAM>(entry + row.coding.first));
    }
  }
  if (row.coding.misfit == Misfit::Unselected && !isShown) {
    return false;
  }
  ::SendMessageA(list, CB_SETCURSEL, LOWORD(selection - row.coding.first), 0);
  return true;
}

std::vector<std::string> PageFrame::NamesOf(const Control& row, PageSources& sources) {
  if (row.kind == ControlKind::Forms) {
    std::vector<std::string> names(GetFormsCount());
    for (std::uint32_t form = 0; form < names.size(); ++form) {
      if (const char* name = nullptr; GetFormsInfo(form, &name) != 0) {
        names[form] = name;
      }
    }
    return names;
  }
  std::uint32_t count = row.entries;
  if (count == kSessionCount) {
    count = OptionCount(sheet_, row.keyword);
  } else if (count == kCompanionCount) {
    count = sources.Companion().GetKeywordOptionCount(row.keyword);
  }
  return sources.Companion().GetKeywordOptionString(row.keyword, count);
}

std::optional<std::vector<int>> PageFrame::ImagesOf(const Control& row, PageSources& sources,
                                                    std::size_t count) {
  std::vector<int> images(count, kNoImage);
  HIMAGELIST list = row.images.strip != 0 ? SharedImages(row.images.strip) : nullptr;
  if (row.images.of != nullptr) {
    const auto told = row.images.of(sheet_);
    std::copy_n(told.begin(), std::min(told.size(), count), images.begin());
  }
  if (row.installed != Installed::Always) {
    const auto flags = AskDevice(sources.Profile(), row.installed, count);
    if (!flags) {
      return std::nullopt;
    }
    const bool hasOwnImages = list != nullptr;
    const HIMAGELIST marks = hasOwnImages ? list : LoadWarningImage().m_hImgWarningList_16.get();
    const bool isMarked = SetWarningIndex(*flags, images, marks) != 0;
    list = hasOwnImages || isMarked ? marks : nullptr;
  }
  if (row.kind == ControlKind::ExtendedList) {
    ::SendMessageA(ControlOf(row), CBEM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(list));
  }
  if (list == nullptr) {
    images.clear();
  }
  return images;
}

bool PageFrame::InitRadioGroup(const Control& row, PageSources& sources, std::uint32_t selection) {
  const HWND group = Item(row.label);
  if (row.label != 0 && group == nullptr) {
    return false;
  }
  SetCaption(row, sources, group);
  if (row.caption != Caption::Template) {
    const auto names = NamesOf(row, sources);
    for (std::size_t index = 0; index < row.radios.size() && index < names.size(); ++index) {
      SetLabelText(Item(row.radios[index]), names[index], false);
    }
  }
  CheckRadio(page_, row.radios, LOWORD(selection));
  return true;
}

bool PageFrame::InitUpDown(const Control& row, std::uint32_t selection) {
  const HWND edit = Item(row.id);
  const HWND arrows = Item(row.arrows);
  if (edit == nullptr || arrows == nullptr) {
    return false;
  }
  ::SendMessageA(edit, EM_LIMITTEXT, std::to_string(row.coding.highest).size(), 0);
  ::SendMessageA(arrows, UDM_SETRANGE32, row.coding.lowest,
                 static_cast<LPARAM>(row.coding.highest));
  Select(row, selection);
  return true;
}

void PageFrame::SetCaption(const Control& row, PageSources& sources, HWND label) {
  if (row.caption != Caption::Template) {
    SetLabelText(label, sources.Companion().GetKeywordTranslation(row.keyword),
                 row.caption == Caption::CompanionColon);
  }
}

// --- Showing ---

void PageFrame::Show() {
  PageSources sources(sheet_);
  for (const Control& row : table_.controls) {
    if (row.installed != Installed::Always) {
      Fill(row, sources, false);
    }
    Select(row, sheet_.Current(row.keyword));
  }
  EnableControls();
}

void PageFrame::Show(KeywordId keyword, const Control* except) {
  for (const Control& row : table_.controls) {
    if (row.keyword == keyword && &row != except) {
      Select(row, sheet_.Current(keyword));
    }
  }
}

void PageFrame::Select(const Control& row, std::uint32_t selection) {
  if (!row.coding.Shows(selection)) {
    return;
  }
  const std::uint32_t entry = LOWORD(selection - row.coding.first);
  switch (row.kind) {
    case ControlKind::Radios:
      CheckRadio(page_, row.radios, LOWORD(selection));
      break;
    case ControlKind::CheckBox:
      ::SendMessageA(Item(row.id), BM_SETCHECK, selection, 0);
      break;
    case ControlKind::UpDown:
      ::SendMessageA(Item(row.arrows), UDM_SETPOS32, 0, static_cast<LPARAM>(selection));
      break;
    default:
      if (row.coding.itemData) {
        SelectItemData(ControlOf(row), selection);
      } else {
        ::SendMessageA(ControlOf(row), CB_SETCURSEL, entry, 0);
      }
  }
}

void PageFrame::EnableControls() {
  for (const Control& row : table_.controls) {
    const auto forEachWindow = [&](auto change) {
      for (const int id : row.radios) {
        change(Item(id));
      }
      for (const int id : {row.id, row.arrows}) {
        if (id != 0) {
          change(Item(id));
        }
      }
    };
    if (row.usable != nullptr) {
      forEachWindow([&](HWND window) { ::EnableWindow(window, row.usable(sheet_)); });
    }
    if (row.present != nullptr) {
      const int show = row.present(sheet_) ? SW_SHOW : SW_HIDE;
      forEachWindow([&](HWND window) { ::ShowWindow(window, show); });
      ::ShowWindow(Item(row.label), show);
    }
  }
}

// --- Storing ---

void PageFrame::Store() {
  for (const Control& row : table_.controls) {
    Store(row, BN_CLICKED, 0);
  }
}

bool PageFrame::Command(WORD code, WORD id) {
  const Control* const row = RowOf(id);
  if (row == nullptr) {
    return false;
  }
  const std::uint32_t before = sheet_.Current(row->keyword);
  if (!Store(*row, code, id)) {
    return false;
  }
  if (row->follow != nullptr) {
    row->follow(*this, before);
  }
  if (row->restriction) {
    ResolveRestrictions(*row, before);
  }
  // Not the control itself: the user may be typing into it. A radio clears the others.
  Show(row->keyword, row->kind == ControlKind::Radios ? nullptr : row);
  EnableControls();
  if (row->redraws) {
    ::InvalidateRect(Item(IDC_ILLUSTRATION), nullptr, FALSE);
  }
  return true;
}

bool PageFrame::Store(const Control& row, WORD code, WORD id) {
  if (table_.readsOnlyWhileActive && sheet_.activePage != page_) {
    return false;
  }
  const auto selection = Read(row, code, id);
  if (selection) {
    sheet_.SetCurrent(row.keyword, *selection);
  }
  return selection.has_value();
}

std::optional<std::uint32_t> PageFrame::Read(const Control& row, WORD code, WORD id) {
  switch (row.kind) {
    case ControlKind::Radios: {
      const auto clicked = std::ranges::find(row.radios, static_cast<int>(id));
      const bool stands =
          row.click == RadioClick::Clicked || (row.click == RadioClick::ClickedIfChecked &&
                                               ::IsDlgButtonChecked(page_, id) == BST_CHECKED);
      if (row.click != RadioClick::Checked && clicked != row.radios.end()) {
        return stands ? std::optional(static_cast<std::uint32_t>(clicked - row.radios.begin()))
                      : std::nullopt;
      }
      const int checked = CheckedRadio(page_, row.radios);
      return checked >= 0 ? std::optional(static_cast<std::uint32_t>(checked)) : std::nullopt;
    }
    case ControlKind::CheckBox:
      return Item(row.id) != nullptr
                 ? std::optional<std::uint32_t>(
                       ::IsDlgButtonChecked(page_, row.id) == BST_CHECKED ? 1 : 0)
                 : std::nullopt;
    case ControlKind::UpDown: {
      const HWND arrows = Item(row.arrows);
      if (arrows == nullptr) {
        return std::nullopt;
      }
      BOOL isInvalid = FALSE;
      const LRESULT position =
          ::SendMessageA(arrows, UDM_GETPOS32, 0, reinterpret_cast<LPARAM>(&isInvalid));
      if (isInvalid != FALSE && code == EN_KILLFOCUS) {
        ::SendMessageA(arrows, UDM_SETPOS32, 0, position);
      }
      return static_cast<std::uint32_t>(position);
    }
    default: {
      const HWND list = ControlOf(row);
      const auto entry = SelectedIndex(list);
      if (!entry || !row.coding.Stores(*entry)) {
        return std::nullopt;
      }
      return row.coding.itemData
                 ? static_cast<std::uint32_t>(::SendMessageA(list, CB_GETITEMDATA, *entry, 0))
                 : *entry + row.coding.first;
    }
  }
}

void PageFrame::ResolveRestrictions(const Control& row, std::uint32_t before) {
  const std::array old{OldSelection{row.keyword, before}};
  zn::ResolveRestrictions(sheet_, {page_, *row.restriction, old, [&] { Show(row.keyword); },
                                   [&](KeywordId other) { Show(other); }});
}

void PageFrame::RestoreOthers() {
  for (const KeywordId keyword : table_.alsoRestored) {
    sheet_.RestoreDefault(keyword);
  }
}

// --- Rows ---

HWND PageFrame::ControlOf(const Control& row) const noexcept {
  return row.label != 0 ? ListOfLabel(page_, row.label) : Item(row.id);
}

const Control* PageFrame::RowOf(int id) const noexcept {
  const auto row = std::ranges::find_if(table_.controls, [id](const Control& candidate) {
    return candidate.id == id || std::ranges::find(candidate.radios, id) != candidate.radios.end();
  });
  return row != table_.controls.end() ? &*row : nullptr;
}

}  // namespace zn
