#include "favorites/setting_source.h"

#include <algorithm>

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

std::int32_t FieldValue(const SettingRow& row, std::uint32_t selection, std::uint32_t fallback) {
  std::optional<std::int32_t> value = ValueOfSelection(row, selection);
  if (!value && MustBeSpecified(row)) {
    value = ValueOfSelection(row, fallback);
    if (!value) {
      value = ValueOfSelection(row, row.low);
    }
  }
  return value.value_or(row.field.NotSpecified());
}

using SelectionOf = std::uint32_t (*)(const SettingRow& row, const SheetSettings& sheet);

void FillNumbers(ddb::CPrintOptionEx& record, const SheetSettings& sheet, SelectionOf selectionOf) {
  for (const SettingRow& row : SettingRows()) {
    const std::uint32_t selection = row.IsMapped() ? selectionOf(row, sheet) : 0;
    // Shares its field with KW_MEMO: the one that was changed is the one to keep.
    const bool yields = row.id == KW_MEMOMODE && selection == DefaultOf(row, sheet);
    if (row.IsMapped() && !yields) {
      row.field.Set(record, FieldValue(row, selection, DefaultOf(row, sheet)));
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
    return PaperMatch::ByCode;
  }
  // Of several forms of one name the current one is meant.
  if (sheet.forms.Name(selection) == source.pageSizeName) {
    return PaperMatch::ByName;
  }
  const std::optional<std::uint32_t> found = sheet.forms.Find(source.pageSizeName);
  selection = found.value_or(selection);
  return found ? PaperMatch::ByName : PaperMatch::Unknown;
}

// Calls change(row, selection) for every setting that the source wants to be another one.
template <class Change>
PaperMatch ForEachChange(const SettingSource& source, Reach reach, const SheetSettings& sheet,
                         Change change) {
  ddb::CPrintOptionEx now(false);
  FillNumbers(now, sheet, CurrentOf);
  std::uint32_t paper = sheet.options[KW_PAGESIZE].currentSelection;
  const PaperMatch match = FindPaper(source, sheet, paper);
  for (const SettingRow& row : SettingRows()) {
    if (!row.IsMapped() || row.reach > reach) {
      continue;
    }
    std::optional<std::uint32_t> selection;
    if (row.conversion == Conversion::Paper && match != PaperMatch::ByCode) {
      selection = paper;
    } else if (const std::int32_t value = row.field.Get(source.option);
               value != row.field.Get(now)) {
      selection = SelectionOfValue(row, value);
    }
    if (selection && *selection != CurrentOf(row, sheet) && IsOffered(row, *selection, sheet)) {
      change(row, *selection);
    }
  }
  return match;
}

// Calls change(row, text) for every text that the source wants to be another one.
template <class Change>
void ForEachTextChange(const SettingSource& source, Reach reach, const SheetSettings& sheet,
                       Change change) {
  for (const SettingText& row : SettingTexts()) {
    const std::string_view wanted = ddb::GetText(source.option.m_Body, *row.tag);
    // What the record would keep of the sheet's text, which may be longer.
    const std::string_view now = sheet.jobValues.GetText(row.offset).substr(0, row.tag->maxChars);
    if (row.reach <= reach && wanted != now) {
      change(row, wanted);
    }
  }
}

template <class Change>
void ForEachNonDefault(const SheetSettings& sheet, Change change) {
  for (const SettingRow& row : SettingRows()) {
    if (row.IsMapped() && row.reach <= Reach::Favorite &&
        CurrentOf(row, sheet) != DefaultOf(row, sheet)) {
      change(row, DefaultOf(row, sheet));
    }
  }
}

template <class Change>
void ForEachNonEmpty(const SheetSettings& sheet, Change change) {
  for (const SettingText& row : SettingTexts()) {
    if (row.reach <= Reach::Favorite && !sheet.jobValues.GetText(row.offset).empty()) {
      change(row);
    }
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
  ForEachTextChange(source, reach, sheet, [&](const SettingText& row, std::string_view text) {
    sheet.jobValues.SetText(row.offset, text);
  });
  return ForEachChange(source, reach, sheet, [&](const SettingRow& row, std::uint32_t selection) {
    Select(row, selection, sheet);
  });
}

bool Differs(const SettingSource& source, Reach reach, const SheetSettings& sheet) {
  bool differs = false;
  const auto note = [&](const auto&, const auto&) { differs = true; };
  ForEachTextChange(source, reach, sheet, note);
  ForEachChange(source, reach, sheet, note);
  return differs;
}

void ApplyDefaults(SheetSettings& sheet) {
  ForEachNonDefault(sheet, [&](const SettingRow& row, std::uint32_t selection) {
    Select(row, selection, sheet);
  });
  ForEachNonEmpty(sheet, [&](const SettingText& row) { sheet.jobValues.SetText(row.offset, {}); });
}

bool DiffersFromDefaults(const SheetSettings& sheet) {
  bool differs = false;
  ForEachNonDefault(sheet, [&](const SettingRow& row, std::uint32_t) {
    // A number that was never set lies outside its range and says nothing.
    differs |= row.conversion != Conversion::AsIs ||
               ValueOfSelection(row, CurrentOf(row, sheet)).has_value();
  });
  ForEachNonEmpty(sheet, [&](const SettingText&) { differs = true; });
  return differs;
}

}  // namespace zn
