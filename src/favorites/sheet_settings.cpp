#include "favorites/sheet_settings.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "ddb/extended_option.h"

namespace zn {
namespace {

constexpr bool IsKeyword(const SettingRow& row) {
  return row.id < KW_MAX;
}

// These travel by the digit scan, which cannot read the sign of "not specified".
bool MustBeSpecified(const SettingRow& row) {
  return std::ranges::find(ddb::kExtendedTags, row.id, &ddb::ExtendedTag::id) !=
         ddb::kExtendedTags.end();
}

std::uint32_t CurrentOf(const SettingRow& row, const SheetSettings& sheet) {
  return IsKeyword(row) ? sheet.options[row.id].currentSelection
                        : sheet.jobValues.GetDWord(FindPrivateField(row.id)->offset);
}

std::uint32_t DefaultOf(const SettingRow& row, const SheetSettings& sheet) {
  return IsKeyword(row) ? sheet.options[row.id].defaultSelection
                        : FindPrivateField(row.id)->defaultValue;
}

void Select(const SettingRow& row, std::uint32_t selection, SheetSettings& sheet) {
  if (IsKeyword(row)) {
    sheet.options[row.id].currentSelection = selection;
  } else {
    sheet.jobValues.SetDWord(FindPrivateField(row.id)->offset, selection);
  }
}

using SelectionOf = std::uint32_t (*)(const SettingRow& row, const SheetSettings& sheet);

// KW_MEMO and KW_MEMOMODE share their field: the one that was changed speaks.
const SettingRow& SpeakerOf(const SettingRow& row, const SheetSettings& sheet,
                            SelectionOf selectionOf) {
  if (row.id != KW_MEMO && row.id != KW_MEMOMODE) {
    return row;
  }
  const SettingRow& mode = SettingRows()[KW_MEMOMODE];
  return selectionOf(mode, sheet) != DefaultOf(mode, sheet) ? mode : SettingRows()[KW_MEMO];
}

// What the row's field holds in a record of the sheet.
std::int32_t FieldValue(const SettingRow& row, const SheetSettings& sheet,
                        SelectionOf selectionOf) {
  const SettingRow& speaker = SpeakerOf(row, sheet, selectionOf);
  std::optional<std::int32_t> value = ValueOfSelection(speaker, selectionOf(speaker, sheet));
  if (!value && MustBeSpecified(row)) {
    value = ValueOfSelection(row, DefaultOf(row, sheet));
    if (!value) {
      value = ValueOfSelection(row, row.low);
    }
  }
  return value.value_or(row.field.NotSpecified());
}

void FillNumbers(ddb::CPrintOptionEx& record, const SheetSettings& sheet, SelectionOf selectionOf) {
  for (const SettingRow& row : SettingRows()) {
    if (row.IsMapped()) {
      row.field.Set(record, FieldValue(row, sheet, selectionOf));
    }
  }
}

void FillText(ddb::CPrintOptionEx& record, const SettingText& row, std::string_view text) {
  // Writing raises the field's mark: a text that is as it was must not be marked.
  if (ddb::GetText(record.m_Body, *row.tag) != text) {
    ddb::SetText(record.m_Body, *row.tag, text);
  }
}

bool IsOffered(const SettingRow& row, std::uint32_t selection, const SheetSettings& sheet) {
  if (!IsKeyword(row) || row.conversion == Conversion::Punch) {
    return true;  // the tray page's punch selection lies beyond the driver's list
  }
  const std::uint32_t choices = sheet.choices[row.id];
  return choices == 0 || selection < choices;
}

PaperMatch FindPaper(const SettingSource& source, const SheetSettings& sheet,
                     std::uint32_t& selection) {
  if (source.pageSizeName.empty()) {
    return PaperMatch::Unnamed;
  }
  // Of several forms of one name the current one is meant.
  if (sheet.forms.Name(selection) == source.pageSizeName) {
    return PaperMatch::ByName;
  }
  const std::optional<std::uint32_t> found = sheet.forms.Find(source.pageSizeName);
  selection = found.value_or(selection);
  return found ? PaperMatch::ByName : PaperMatch::Unknown;
}

// What has to change for a sheet to be as wanted.
struct Changes {
  std::vector<std::pair<const SettingRow*, std::uint32_t>> selections;
  std::vector<std::pair<const SettingText*, std::string_view>> texts;
};

// The settings that reach as far as `reach`. wantedSelection(row) is nothing where any will do.
template <class WantedSelection, class WantedText>
Changes FindChanges(const SheetSettings& sheet, Reach reach, WantedSelection wantedSelection,
                    WantedText wantedText) {
  Changes changes;
  for (const SettingRow& row : SettingRows()) {
    if (!row.IsMapped() || row.reach > reach) {
      continue;
    }
    const std::optional<std::uint32_t> wanted = wantedSelection(row);
    if (wanted && *wanted != CurrentOf(row, sheet)) {
      changes.selections.emplace_back(&row, *wanted);
    }
  }
  for (const SettingText& row : SettingTexts()) {
    const std::string_view wanted = wantedText(row);
    // What the record would keep of the sheet's text, which may be longer.
    const std::string_view now = sheet.jobValues.GetText(row.offset).substr(0, row.tag->maxChars);
    if (row.reach <= reach && wanted != now) {
      changes.texts.emplace_back(&row, wanted);
    }
  }
  return changes;
}

Changes FindChangesTo(const SettingSource& source, Reach reach, const SheetSettings& sheet,
                      PaperMatch& match) {
  std::uint32_t paper = sheet.options[KW_PAGESIZE].currentSelection;
  match = FindPaper(source, sheet, paper);
  const auto wantedSelection = [&](const SettingRow& row) -> std::optional<std::uint32_t> {
    // A code says nothing about the forms of this printer; only dialogs have no name.
    if (row.conversion == Conversion::Paper &&
        (match != PaperMatch::Unnamed || reach == Reach::Favorite)) {
      return paper;
    }
    const std::int32_t value = row.field.Get(source.option);
    if (value == FieldValue(row, sheet, CurrentOf)) {
      return std::nullopt;
    }
    const std::optional<std::uint32_t> selection = SelectionOfValue(row, value);
    return selection && IsOffered(row, *selection, sheet) ? selection : std::nullopt;
  };
  return FindChanges(sheet, reach, wantedSelection, [&](const SettingText& row) {
    return ddb::GetText(source.option.m_Body, *row.tag);
  });
}

Changes FindChangesToDefaults(const SheetSettings& sheet) {
  return FindChanges(
      sheet, Reach::Favorite,
      [&](const SettingRow& row) { return std::optional(DefaultOf(row, sheet)); },
      [](const SettingText&) { return std::string_view(); });
}

void ApplyChanges(const Changes& changes, SheetSettings& sheet) {
  for (const auto& [row, selection] : changes.selections) {
    Select(*row, selection, sheet);
  }
  for (const auto& [row, text] : changes.texts) {
    sheet.jobValues.SetText(row->offset, text);
  }
}

}  // namespace

std::string_view FormList::Name(std::uint32_t index) const {
  return index < count ? name(index) : std::string_view();
}

std::optional<std::uint32_t> FormList::Find(std::string_view formName) const {
  for (std::uint32_t i = 0; i < count; ++i) {
    if (name(i) == formName) {
      return i;
    }
  }
  return std::nullopt;
}

void TakeCurrent(SettingSource& source, const SheetSettings& sheet) {
  FillNumbers(source.option, sheet, CurrentOf);
  for (const SettingText& row : SettingTexts()) {
    FillText(source.option, row, sheet.jobValues.GetText(row.offset));
  }
  source.pageSizeName = sheet.forms.Name(sheet.options[KW_PAGESIZE].currentSelection);
}

void TakeDefaults(SettingSource& source, const SheetSettings& sheet) {
  FillNumbers(source.option, sheet, DefaultOf);
  for (const SettingText& row : SettingTexts()) {
    FillText(source.option, row, {});
  }
  source.pageSizeName = sheet.forms.Name(sheet.options[KW_PAGESIZE].defaultSelection);
}

PaperMatch Apply(const SettingSource& source, Reach reach, SheetSettings& sheet) {
  PaperMatch match{};
  ApplyChanges(FindChangesTo(source, reach, sheet, match), sheet);
  return match;
}

bool Differs(const SettingSource& source, Reach reach, const SheetSettings& sheet) {
  PaperMatch match{};
  const Changes changes = FindChangesTo(source, reach, sheet, match);
  return !changes.selections.empty() || !changes.texts.empty();
}

void ApplyDefaults(SheetSettings& sheet) {
  ApplyChanges(FindChangesToDefaults(sheet), sheet);
}

bool DiffersFromDefaults(const SheetSettings& sheet) {
  const Changes changes = FindChangesToDefaults(sheet);
  return !changes.texts.empty() || std::ranges::any_of(changes.selections, [&](const auto& change) {
    const SettingRow& row = *change.first;
    // A number that was never set lies outside its range and says nothing.
    return row.conversion != Conversion::AsIs ||
           ValueOfSelection(row, CurrentOf(row, sheet)).has_value();
  });
}

}  // namespace zn
