// zninspect restriction: may this finishing or paper setting stand beside the others?
#include <charconv>
#include <cstdint>
#include <string>

#include "keywords/keyword_table.h"
#include "session/restriction.h"
#include "tools/commands.h"
#include "tools/option_names.h"
#include "tools/shown_text.h"

namespace zn::inspect {
namespace {

// The whole of `text` as a number.
bool ParseNumber(std::string_view text, std::int32_t& number) {
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end;
}

// Takes "KEY=VALUE" over; the value is a selection or the name of one.
bool ParseSelection(std::string_view word, restriction::Selections& selections) {
  const std::size_t equals = word.find('=');
  if (equals == word.npos) {
    return false;
  }
  const KeywordId id = GetKeywordId(word.substr(0, equals));
  const std::string_view value = word.substr(equals + 1);
  for (const auto& [fieldId, field] : restriction::kSelectionFields) {
    if (fieldId != id) {
      continue;
    }
    if (const auto index = OptionNamed(id, Utf8OfWord(value))) {
      selections.*field = static_cast<std::int32_t>(*index);
      return true;
    }
    return ParseNumber(value, selections.*field);
  }
  return false;
}

// A number, or the keyword of the setting that has changed.
bool ParseGroup(std::string_view word, restriction::Group& group) {
  for (int number = 0; number < restriction::kGroupCount; ++number) {
    group = static_cast<restriction::Group>(number);
    if (word == std::to_string(number) || word == GetKeywordName(KeywordOf(group))) {
      return true;
    }
  }
  return false;
}

}  // namespace

int RunRestriction(Arguments arguments, const Output& out) {
  restriction::Group group{};
  if (arguments.size() < 2 || std::string_view(arguments[0]) != "--group" ||
      !ParseGroup(arguments[1], group)) {
    return kMisused;
  }
  restriction::Selections selections;
  for (const char* word : arguments.subspan(2)) {
    if (!ParseSelection(word, selections)) {
      return Output::Fail(kUsage, "not a setting of the check: " + Utf8OfWord(word));
    }
  }
  const restriction::Result result = restriction::Check(selections, group);
  Json record;
  switch (result.verdict) {
    case restriction::Verdict::Allowed:
      record = {{"verdict", "allowed"}};
      break;
    case restriction::Verdict::Refused:
      record = {{"verdict", "refused"}, {"message", result.messageId}};
      break;
    case restriction::Verdict::Conflict:
      record = {{"verdict", "conflict"}, {"other", GetKeywordName(result.other)}};
      break;
  }
  out.Put(record);
  return kOk;
}

}  // namespace zn::inspect
