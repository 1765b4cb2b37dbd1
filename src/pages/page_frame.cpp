#include "pages/page_frame.h"

#include <commctrl.h>

#include <algorithm>

#include "pages/page_images.h"
#include "pages/pspage.h"
#include "pages/restriction_question.h"
#include "pages/tips.h"
#include "platform/resources.h"
#include "res/resource_ids.h"
#include "session/forms.h"

namespace zn {
namespace {

constexpr int kNoImage = I_IMAGENONE;

}  // namespace

// --- Filling ---

bool PageFrame::Fill(bool useDefault) {
  PageSources sources(sheet_);
  const bool isFilled = std::ranges::all_of(table_.controls, [&](const ControlRow& row) {
    const bool isRowFilled = Fill(row, sources, useDefault);
    if (isRowFilled && row.governs) {
      ShowSelections();
    }
    return isRowFilled;
  });
  if (isFilled && useDefault) {
    for (const KeywordId keyword : table_.alsoRestored) {
      sheet_.RestoreDefault(keyword);
    }
  }
  EnableControls();
  RedrawIllustration();
  return isFilled;
}

void PageFrame::Refill(KeywordId keyword) {
  PageSources sources(sheet_);
  for (const ControlRow& row : table_.controls) {
    if (row.keyword == keyword) {
      Fill(row, sources, false);
    }
  }
}

bool PageFrame::Fill(const ControlRow& row, PageSources& sources, bool useDefault) {
  if (!IsPresent(row) || (table_.skipsMissingControls && !HasWindows(row))) {
    return true;
  }
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
      break;
    case ControlKind::UpDown:
      isFilled = InitUpDown(row);
      SetCaption(row, sources, Item(row.label));
      break;
  }
  if (!isFilled) {
    return false;
  }
  // First: an up-down control reports the position that it is set to.
  if (useDefault) {
    sheet_.SetCurrent(row.keyword, selection);
    if (row.pairing != nullptr) {
      sheet_.RestoreDefault(row.pairing->second);
    }
  }
  if (row.kind == ControlKind::CheckBox || row.kind == ControlKind::UpDown ||
      row.pairing != nullptr) {
    Select(row, selection);
  }
  return true;
}

bool PageFrame::InitComboBox(const ControlRow& row, PageSources& sources, std::uint32_t selection) {
  const HWND list = ControlOf(row);
  if (list == nullptr) {
    return false;
  }
  SetCaption(row, sources, Item(row.label));
  const bool isShown = row.coding.Shows(selection);
  if (row.coding.misfit == Misfit::Empty && !isShown) {
    ::SendMessageA(list, CB_RESETCONTENT, 0, 0);
    return false;
  }
  const auto shown = SelectedIndex(list);
  auto names = NamesOf(row, sources);
  const auto images = ImagesOf(row, sources, names.size());
  if (!images) {
    return false;
  }
  FillList(list, row.kind == ControlKind::ExtendedList, names, *images,
           row.coding.itemData ? std::optional<LPARAM>(row.coding.first) : std::nullopt);
  if (row.coding.misfit == Misfit::Unselected && !isShown) {
    return false;
  }
  if (row.pairing == nullptr) {
    SelectEntry(list, LOWORD(selection - row.coding.first));
  } else if (shown) {
    SelectEntry(list, *shown);  // stays where the pair is not shown
  }
  return true;
}

std::vector<std::string> PageFrame::NamesOf(const ControlRow& row, PageSources& sources) {
  if (row.kind == ControlKind::Forms) {
    std::vector<std::string> names(GetFormsCount());
    for (std::uint32_t form = 0; form < names.size(); ++form) {
      names[form] = FormName(form);
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

std::optional<std::vector<int>> PageFrame::ImagesOf(const ControlRow& row, PageSources& sources,
                                                    std::size_t count) {
  std::vector<int> images(count, kNoImage);
  HIMAGELIST list = row.images.strip != 0 ? SharedImages(row.images.strip) : nullptr;
  const auto told = row.images.of != nullptr ? row.images.of(sheet_) : row.images.fixed;
  std::copy_n(told.begin(), std::min(told.size(), count), images.begin());
  if (row.installed != Installed::Always) {
    const auto flags = sources.AskDevice(row.installed, count);
    if (!flags) {
      return std::nullopt;
    }
    const bool hasOwnImages = list != nullptr;
    const HIMAGELIST marks = hasOwnImages ? list : LoadWarningImage().m_hImgWarningList_16.get();
    const bool isMarked = SetWarningIndex(*flags, images, marks) != 0;
    list = hasOwnImages || isMarked ? marks : nullptr;
  }
  if (row.images.strip != 0 || row.installed != Installed::Always) {
    SetListImages(ControlOf(row), list);
  }
  if (list == nullptr) {
    images.clear();
  }
  return images;
}

bool PageFrame::InitRadioGroup(const ControlRow& row, PageSources& sources,
                               std::uint32_t selection) {
  const HWND group = Item(row.label);
  const bool isWhole =
      std::ranges::all_of(row.radios, [this](int radio) { return Item(radio) != nullptr; });
  if ((row.label != 0 && group == nullptr) || !isWhole) {
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

bool PageFrame::InitUpDown(const ControlRow& row) {
  const HWND edit = Item(row.id);
  const HWND arrows = Item(row.arrows);
  if (edit == nullptr || arrows == nullptr) {
    return false;
  }
  ::SendMessageA(edit, EM_LIMITTEXT, std::to_string(row.coding.highest).size(), 0);
  ::SendMessageA(arrows, UDM_SETRANGE32, row.coding.lowest,
                 static_cast<LPARAM>(row.coding.highest));
  return true;
}

void PageFrame::SetCaption(const ControlRow& row, PageSources& sources, HWND label) {
  if (row.caption != Caption::Template) {
    SetLabelText(label, sources.Companion().GetKeywordTranslation(row.keyword),
                 row.caption == Caption::CompanionColon);
  }
}

// --- Showing ---

void PageFrame::Show() {
  PageSources sources(sheet_);
  const auto show = [&](const ControlRow& row) {
    if (row.installed != Installed::Always || row.images.of != nullptr) {
      ShowImages(row, sources);
    }
    Select(row, sheet_.Current(row.keyword));
  };
  if (table_.showOrder.empty()) {
    std::ranges::for_each(table_.controls, show);
  }
  for (const KeywordId keyword : table_.showOrder) {
    for (const ControlRow& row : table_.controls) {
      if (row.keyword == keyword) {
        show(row);
      }
    }
  }
  EnableControls();
  RedrawIllustration();
}

// The names stay as they are: asking the companion for them would load it.
void PageFrame::ShowImages(const ControlRow& row, PageSources& sources) {
  const HWND list = ControlOf(row);
  const LRESULT entries = ::SendMessageA(list, CB_GETCOUNT, 0, 0);
  if (entries <= 0) {
    Fill(row, sources, false);
    return;
  }
  const auto count = static_cast<std::size_t>(entries);
  const auto images = ImagesOf(row, sources, count);
  for (std::size_t entry = 0; images && entry < count; ++entry) {
    COMBOBOXEXITEMA item{};
    item.mask = CBEIF_IMAGE | CBEIF_SELECTEDIMAGE;
    item.iItem = static_cast<INT_PTR>(entry);
    item.iImage = item.iSelectedImage = images->empty() ? kNoImage : (*images)[entry];
    ::SendMessageA(list, CBEM_SETITEMA, 0, reinterpret_cast<LPARAM>(&item));
  }
}

void PageFrame::ShowSelections() {
  for (const ControlRow& row : table_.controls) {
    Select(row, sheet_.Current(row.keyword));
  }
  EnableControls();
}

void PageFrame::Show(KeywordId keyword, const ControlRow* except) {
  for (const ControlRow& row : table_.controls) {
    if (row.keyword == keyword && &row != except) {
      Select(row, sheet_.Current(keyword));
    }
  }
}

void PageFrame::Select(const ControlRow& row, std::uint32_t selection) {
  if (!IsPresent(row) || (row.kind != ControlKind::UpDown && !row.coding.Shows(selection))) {
    return;
  }
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
      if (row.pairing != nullptr) {
        SelectPair(row);
      } else if (row.coding.itemData) {
        SelectItemData(ControlOf(row), LOWORD(selection));
      } else {
        SelectEntry(ControlOf(row), LOWORD(selection - row.coding.first));
      }
  }
}

SelectionPair PageFrame::PairOf(const ControlRow& row) const {
  return {sheet_.Current(row.keyword),
          row.pairing != nullptr ? sheet_.Current(row.pairing->second) : 0};
}

void PageFrame::SelectPair(const ControlRow& row) {
  if (const auto entry = row.pairing->entryOf(PairOf(row))) {
    SelectEntry(ControlOf(row), *entry);
  }
}

void PageFrame::EnableControls() {
  for (const ControlRow& row : table_.controls) {
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
      const bool isUsable = row.usable(sheet_);
      forEachWindow([&](HWND window) { ::EnableWindow(window, isUsable); });
      if (row.zeroWhileUnusable && !isUsable) {
        sheet_.SetCurrent(row.keyword, 0);
        Select(row, 0);
      }
    }
    if (row.present != nullptr) {
      const int show = row.present(sheet_) ? SW_SHOW : SW_HIDE;
      forEachWindow([&](HWND window) { ::ShowWindow(window, show); });
      ::ShowWindow(Item(row.label), show);
    }
  }
  for (const ButtonRow& button : table_.buttons) {
    if (button.present != nullptr) {
      ::ShowWindow(Item(button.id), button.present(sheet_) ? SW_SHOW : SW_HIDE);
    }
  }
}

// --- Storing ---

void PageFrame::Store() {
  for (const ControlRow& row : table_.controls) {
    Store(row, nullptr);
  }
}

bool PageFrame::Command(WORD code, WORD id) {
  const auto button = std::ranges::find(table_.buttons, id, &ButtonRow::id);
  if (button != table_.buttons.end()) {
    button->press(*this);
    RedrawIllustration();
    return button->isChange;
  }
  const ControlRow* const row = RowOf(id);
  if (row == nullptr) {
    return true;
  }
  const SelectionPair before = PairOf(*row);
  const Event event{code, id};
  if (!Store(*row, &event)) {
    return true;
  }
  if (row->kind == ControlKind::UpDown && sheet_.Current(row->keyword) == before.first) {
    return false;
  }
  if (row->follow != nullptr) {
    row->follow(*this, before.first);
  }
  if (row->restriction) {
    ResolveRestrictions(*row, before);
  }
  if (row->governs) {
    Show();
  } else {
    // Not the control itself: the user may be typing into it, and a radio clears the others. But
    // one that counts as chosen by its click alone may not be checked yet.
    const bool itself = row->kind == ControlKind::Radios && row->click == RadioClick::Clicked;
    Show(row->keyword, itself ? nullptr : row);
    EnableControls();
  }
  if (row->redraws) {
    RedrawIllustration();
  }
  Changed();
  return true;
}

bool PageFrame::Store(const ControlRow& row, const Event* event) {
  if ((table_.readsOnlyWhileActive && sheet_.activePage != page_) || !IsPresent(row)) {
    return false;
  }
  const auto selection = Read(row, event);
  if (selection && row.pairing != nullptr) {
    const SelectionPair& pair = row.pairing->pairs[*selection];
    sheet_.SetCurrent(row.keyword, pair.first);
    sheet_.SetCurrent(row.pairing->second, pair.second);
  } else if (selection) {
    sheet_.SetCurrent(row.keyword, *selection);
  }
  return selection.has_value();
}

std::optional<std::uint32_t> PageFrame::Read(const ControlRow& row, const Event* event) {
  switch (row.kind) {
    case ControlKind::Radios: {
      if (event != nullptr && row.click != RadioClick::Checked) {
        const auto clicked = std::ranges::find(row.radios, static_cast<int>(event->id));
        const bool counts = row.click == RadioClick::Clicked ||
                            ::IsDlgButtonChecked(page_, event->id) == BST_CHECKED;
        return counts ? std::optional(static_cast<std::uint32_t>(clicked - row.radios.begin()))
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
      if (isInvalid != FALSE && event != nullptr && event->code == EN_KILLFOCUS) {
        ::SendMessageA(arrows, UDM_SETPOS32, 0, position);
      }
      const auto selection = static_cast<std::uint32_t>(position);
      return row.coding.Shows(selection) ? std::optional(selection) : std::nullopt;
    }
    default: {
      const HWND list = ControlOf(row);
      const auto entry = SelectedIndex(list);
      if (!entry || !row.coding.Stores(*entry) ||
          (row.pairing != nullptr && *entry >= row.pairing->pairs.size())) {
        return std::nullopt;
      }
      return row.coding.itemData ? SelectedItemData(list) : *entry + row.coding.first;
    }
  }
}

void PageFrame::ResolveRestrictions(const ControlRow& row, SelectionPair before) {
  std::vector<OldSelection> old{{row.keyword, before.first}};
  if (row.pairing != nullptr) {
    old.push_back({row.pairing->second, before.second});
  }
  zn::ResolveRestrictions(sheet_, {page_, *row.restriction, old, [&] { Show(row.keyword); },
                                   [&](KeywordId other) { Show(other); }});
}

void PageFrame::RedrawIllustration() {
  if (table_.illustration) {
    ShowIllustration(page_, sheet_, *table_.illustration);
  }
  ShowTips();
}

void PageFrame::ShowTips() {
  PageTips tips(page_);
  for (const ControlRow& row : table_.controls) {
    if (row.tip == 0 && row.installed == Installed::Always) {
      continue;
    }
    std::string text = row.tip != 0 ? LoadResourceString(row.tip) : std::string();
    for (const int radio : row.radios) {
      tips.Set(Item(radio), text);
    }
    if (!row.radios.empty()) {
      continue;
    }
    const HWND control = row.kind == ControlKind::CheckBox ? Item(row.id) : ControlOf(row);
    const auto entry = row.installed != Installed::Always ? SelectedIndex(control) : std::nullopt;
    if (entry && ShowsWarning(control, static_cast<int>(*entry))) {
      text.insert(0, text.empty() ? "" : "\n").insert(0, LoadResourceString(IDS_MISSING_UNIT));
    }
    tips.Set(control, text);
  }
  if (table_.illustration) {
    const HWND illustration = Item(IDC_ILLUSTRATION);
    tips.Set(illustration, ControlText(illustration, kMaxSentence));
  }
}

// --- Rows ---

bool PageFrame::HasWindows(const ControlRow& row) const noexcept {
  const auto isThere = [this](int id) { return id == 0 || Item(id) != nullptr; };
  return isThere(row.label) && isThere(row.id) && isThere(row.arrows) &&
         std::ranges::all_of(row.radios, isThere);
}

HWND PageFrame::Item(int id) const noexcept {
  if (controls_.empty()) {
    controls_ = ControlsOf(page_);
  }
  const auto control = std::ranges::find(controls_, id, &::GetDlgCtrlID);
  return control != controls_.end() ? *control : nullptr;
}

HWND PageFrame::ControlOf(const ControlRow& row) const noexcept {
  if (row.label == 0) {
    return Item(row.id);
  }
  // The list that belongs to a label is the control behind it: the templates keep this order.
  const auto label = std::ranges::find(controls_, Item(row.label));
  return label != controls_.end() && label + 1 != controls_.end() ? label[1] : nullptr;
}

const ControlRow* PageFrame::RowOf(int id) const noexcept {
  const auto row = std::ranges::find_if(table_.controls, [id](const ControlRow& candidate) {
    return (candidate.id != 0 && candidate.id == id) ||
           std::ranges::find(candidate.radios, id) != candidate.radios.end();
  });
  return row != table_.controls.end() ? &*row : nullptr;
}

}  // namespace zn
