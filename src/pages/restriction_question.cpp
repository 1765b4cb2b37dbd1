#include "pages/restriction_question.h"

#include <array>
#include <string>

#include "bridge/companion.h"
#include "platform/double_byte.h"
#include "platform/format_text.h"
#include "platform/resources.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

int Box(HWND window, const std::string& text, UINT buttons) {
  const std::string caption = LoadResourceString(IDS_RESTRICTION_CAPTION);
  return ::MessageBoxA(window, text.c_str(), caption.c_str(), buttons | MB_ICONEXCLAMATION);
}

std::string OptionName(const CompanionModule& companion, KeywordId id, std::uint32_t selection) {
  constexpr std::size_t kNameSize = 64;  // bytes, terminator included
  std::string name;
  companion.GetKeywordOption(id, selection, name);
  return std::string(CutText(name, kNameSize - 1));
}

// One setting as the user is told about it.
struct SettingTexts {
  std::string label;
  std::string current;
  std::string standard;  // the default option
};

SettingTexts Describe(const CompanionModule& companion, const SheetContext& sheet, KeywordId id) {
  SettingTexts texts{companion.GetKeywordTranslation(id),
                     OptionName(companion, id, sheet.Current(id)),
                     OptionName(companion, id, sheet.Default(id))};
  if (id == KW_PUNCH) {
    texts.current += OptionName(companion, KW_PUNCHHOLES, sheet.Current(KW_PUNCHHOLES));
  } else if (id == KW_MEDIATYPEBYPASS) {
    texts.label.insert(0, companion.GetKeywordTranslation(companion_label::kBypass));
  }
  return texts;
}

int AskAbout(HWND window, const SheetContext& sheet, KeywordId otherId, KeywordId changedId) {
  const CompanionModule companion(sheet.hPrinter);
  const SettingTexts other =
      otherId != kNoKeyword ? Describe(companion, sheet, otherId) : SettingTexts{};
  const SettingTexts changed = Describe(companion, sheet, changedId);
  const std::string question = FillIn(LoadResourceString(IDS_RESTRICTION_QUESTION),
                                      {other.label, other.current, changed.label, changed.current,
                                       other.label, other.current, other.standard});
  return Box(window, question, MB_OKCANCEL);
}

restriction::Selections CurrentSelections(const SheetContext& sheet) {
  restriction::Selections now;
  for (const restriction::SelectionField& field : restriction::kSelectionFields) {
    now.*field.field = static_cast<std::int32_t>(sheet.Current(field.id));
  }
  return now;
}

// Settings that mean nothing without another one follow it to the default.
struct Follower {
  KeywordId keyword;
  KeywordId follower;
};
constexpr std::array<Follower, 3> kFollowers{{
    {KW_ZNMEDIATYPE, KW_MEDIATYPEWEIGHT},
    {KW_MEDIATYPEBYPASS, KW_MEDIATYPEWEIGHTBYPASS},
    {KW_PUNCH, KW_PUNCHHOLES},
}};

// False when everything had its default already.
bool RestoreDefaults(SheetContext& sheet, KeywordId id) {
  const restriction::Selections before = CurrentSelections(sheet);
  sheet.RestoreDefault(id);
  for (const Follower& row : kFollowers) {
    if (row.keyword == id) {
      sheet.RestoreDefault(row.follower);
    }
  }
  return !(CurrentSelections(sheet) == before);
}

void PutBack(SheetContext& sheet, const RestrictedChange& change) {
  for (const OldSelection& old : change.old) {
    sheet.SetCurrent(old.id, old.value);
  }
  if (change.showOld) {
    change.showOld();
  }
}

}  // namespace

int CheckRestriction(HWND window, SheetContext& sheet, restriction::Group group, int& answer,
                     KeywordId& keyword) {
  const restriction::Result result = restriction::Check(CurrentSelections(sheet), group);
  switch (result.verdict) {
    case restriction::Verdict::Allowed:
      return 0;
    case restriction::Verdict::Refused:
      Box(window, LoadResourceString(static_cast<UINT>(result.messageId)), MB_OK);
      answer = IDCANCEL;
      return 1;
    case restriction::Verdict::Conflict:
      if (result.other != kNoKeyword) {
        keyword = result.other;
      }
      answer = AskAbout(window, sheet, result.other, restriction::KeywordOf(group));
      return 1;
  }
  return 0;
}

bool ResolveRestrictions(SheetContext& sheet, const RestrictedChange& change) {
  constexpr int kMostRounds = 6;
  bool putBack = false;
  for (int round = 0; round < kMostRounds; ++round) {
    int answer = 0;
    KeywordId other = kNoKeyword;
    if (CheckRestriction(change.window, sheet, change.group, answer, other) == 0) {
      return true;
    }
    if (answer != IDOK && answer != IDCANCEL) {
      return false;
    }
    if (answer == IDOK && other != kNoKeyword && RestoreDefaults(sheet, other)) {
      if (change.showDefault) {
        change.showDefault(other);
      }
    } else if (!putBack) {
      PutBack(sheet, change);
      putBack = true;
    } else {
      return true;  // nothing is left to go back to: the old selections stand
    }
  }
  return true;
}

}  // namespace zn
