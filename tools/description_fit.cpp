#include "tools/description_fit.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "favorites/settings_mapping.h"
#include "keywords/keyword_table.h"
#include "session/restriction.h"
#include "session/session_tables.h"

namespace zn::inspect {
namespace {

using restriction::kSelectionFields;
using Option = Description::Option;
using Constraint = Description::Constraint;

// What the core driver shows by itself.
constexpr auto kDriverKeywords = std::to_array<std::string_view>({"InputSlot", "PageRegion"});

// An option of one setting of the restriction check beside one of another: the fields in the order
// of kSelectionFields.
struct Pair {
  std::size_t field, otherField;
  std::size_t choice, otherChoice;

  auto operator<=>(const Pair&) const = default;  // NOLINT(modernize-use-nullptr)
};

class Fitting {
 public:
  explicit Fitting(const Description& description) : description_(description) {}

  Json Run() {
    CheckKeywords();
    CheckCounts();
    CheckConstraints();
    AddUnstatedRules();
    return std::move(findings_);
  }
  [[nodiscard]] std::size_t UnstatedCount() const { return unstated_; }

 private:
  void Add(std::string_view finding, std::string_view keyword, const Json& more = Json::object()) {
    Json row = {{"finding", finding}, {"keyword", keyword}};
    row.update(more);
    findings_.push_back(std::move(row));
  }

  [[nodiscard]] const Option* Find(std::string_view keyword) const {
    const auto found = std::ranges::find(description_.options, keyword, &Option::keyword);
    return found != description_.options.end() ? &*found : nullptr;
  }

  void CheckKeywords() {
    for (const Option& option : description_.options) {
      if (GetKeywordId(option.keyword) == kNoKeyword &&
          std::ranges::find(kDriverKeywords, option.keyword) == kDriverKeywords.end()) {
        Add("unknown to the plug-in", option.keyword);
      }
    }
    for (KeywordId id = 0; id < KW_FIRST_STANDARD; ++id) {
      if (Find(GetKeywordName(id)) == nullptr) {
        Add("missing in the description", GetKeywordName(id));
      }
    }
  }

  // Nothing where the number of options does not matter: where they have no codes, or are a list
  // that the device supplies.
  static std::optional<std::size_t> ExpectedCount(const SettingRow& row) {
    if (row.id > KW_PAGESIZE ||
        std::ranges::find(kDeviceLists, row.id, &DeviceList::id) != std::end(kDeviceLists)) {
      return std::nullopt;
    }
    switch (row.conversion) {
      case Conversion::Code:
      case Conversion::Punch:
      case Conversion::Paper:
        return GetOptionCodeList(row.id).size();
      default:
        return std::nullopt;
    }
  }

  void CheckCounts() {
    for (const SettingRow& row : SettingRows()) {
      const char* const keyword = GetKeywordName(row.id);
      const Option* const option = Find(keyword);
      const auto expected = option != nullptr ? ExpectedCount(row) : std::nullopt;
      if (expected && *expected != option->choices.size()) {
        Add("options and codes differ in number", keyword,
            {{"options", option->choices.size()}, {"codes", *expected}});
      }
    }
  }

  // The indexes that a constraint means.
  static std::vector<std::size_t> IndexesOf(const Option& option, std::string_view choice) {
    std::vector<std::size_t> indexes;
    for (std::size_t i = 0; i < option.choices.size(); ++i) {
      const std::string& name = option.choices[i];
      if (choice.empty() ? name != "None" && name != "False" : name == choice) {
        indexes.push_back(i);
      }
    }
    return indexes;
  }

  static std::optional<std::size_t> FieldOf(std::string_view keyword) {
    const auto* const row = std::ranges::find(kSelectionFields, GetKeywordId(keyword),
                                              &restriction::SelectionField::id);
    return row != kSelectionFields.end() ? std::optional(row - kSelectionFields.begin())
                                         : std::nullopt;
  }

  static bool IsAllowed(restriction::Group group, const Pair& pair) {
    restriction::Selections selections;
    selections.*kSelectionFields[pair.field].field = static_cast<std::int32_t>(pair.choice);
    selections.*kSelectionFields[pair.otherField].field =
        static_cast<std::int32_t>(pair.otherChoice);
    return restriction::Check(selections, group).verdict == restriction::Verdict::Allowed;
  }

  // The pairs of two fields that the check does not let stand although each can stand beside
  // another option, all other settings being at their first.
  void CollectRules(std::size_t field, std::size_t otherField) {
    const Option* const option = Find(GetKeywordName(kSelectionFields[field].id));
    const Option* const other = Find(GetKeywordName(kSelectionFields[otherField].id));
    if (option == nullptr || other == nullptr) {
      return;
    }
    const std::size_t count = option->choices.size();
    const std::size_t otherCount = other->choices.size();
    for (int number = 0; number < restriction::kGroupCount; ++number) {
      const auto group = static_cast<restriction::Group>(number);
      std::vector<Pair> refused;
      std::vector<bool> canStand(count);
      std::vector<bool> otherCanStand(otherCount);
      for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t j = 0; j < otherCount; ++j) {
          const Pair pair{field, otherField, i, j};
          if (IsAllowed(group, pair)) {
            canStand[i] = otherCanStand[j] = true;
          } else {
            refused.push_back(pair);
          }
        }
      }
      for (const Pair& pair : refused) {
        if (canStand[pair.choice] && otherCanStand[pair.otherChoice]) {
          rules_.insert(pair);
        }
      }
    }
  }

  void CheckConstraints() {
    for (std::size_t field = 0; field < kSelectionFields.size(); ++field) {
      for (std::size_t other = field + 1; other < kSelectionFields.size(); ++other) {
        CollectRules(field, other);
      }
    }
    for (const Constraint& constraint : description_.constraints) {
      if (!IsMade(constraint)) {
        Add("constraint not checked", constraint.keyword,
            {{"option", constraint.choice},
             {"other", constraint.otherKeyword},
             {"other_option", constraint.otherChoice}});
      }
    }
  }

  // Whether the check makes all of the constraint; its pairs count as stated.
  bool IsMade(const Constraint& constraint) {
    const Option* const option = Find(constraint.keyword);
    const Option* const other = Find(constraint.otherKeyword);
    const auto field = FieldOf(constraint.keyword);
    const auto otherField = FieldOf(constraint.otherKeyword);
    if (option == nullptr || other == nullptr || !field || !otherField) {
      return false;
    }
    bool isMade = true;
    for (const std::size_t i : IndexesOf(*option, constraint.choice)) {
      for (const std::size_t j : IndexesOf(*other, constraint.otherChoice)) {
        const Pair pair = *field < *otherField ? Pair{*field, *otherField, i, j}
                                               : Pair{*otherField, *field, j, i};
        isMade = rules_.contains(pair) && isMade;
        stated_.insert(pair);
      }
    }
    return isMade;
  }

  // One row per option of the first setting: pairs stand in its order.
  void AddUnstatedRules() {
    const Pair* before = nullptr;
    for (const Pair& pair : rules_) {
      if (stated_.contains(pair)) {
        continue;
      }
      const char* const keyword = GetKeywordName(kSelectionFields[pair.field].id);
      const char* const other = GetKeywordName(kSelectionFields[pair.otherField].id);
      const bool isSameRow = before != nullptr && before->field == pair.field &&
                             before->otherField == pair.otherField && before->choice == pair.choice;
      if (!isSameRow) {
        ++unstated_;
        Add("rule of the plug-in only", keyword,
            {{"option", Find(keyword)->choices[pair.choice]},
             {"other", other},
             {"other_option", Json::array()}});
      }
      findings_.back()["other_option"].push_back(Find(other)->choices[pair.otherChoice]);
      before = &pair;
    }
  }

  const Description& description_;
  Json findings_ = Json::array();
  std::set<Pair> rules_;   // that the check makes
  std::set<Pair> stated_;  // by the description
  std::size_t unstated_ = 0;
};

}  // namespace

Json Misfits(const Description& description, bool& fits) {
  Fitting fitting(description);
  Json findings = fitting.Run();
  fits = findings.size() == fitting.UnstatedCount();
  return findings;
}

}  // namespace zn::inspect
