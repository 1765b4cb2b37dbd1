// zninspect restriction: may this finishing or paper setting stand beside the others?
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <string>

#include "keywords/keyword_table.h"
#include "session/restriction.h"
#include "tools/commands.h"

namespace zn::inspect {
namespace {

// The whole of `text` as a number.
bool ParseNumber(std::string_view text, std::int32_t& number) {
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end;
}

// Takes "KEY=VALUE" over.
bool ParseSelection(std::string_view word, restriction::Selections& selections) {
  const std::size_t equals = word.find('=');
  if (equals == word.npos) {
    return false;
  }
  const KeywordId id = GetKeywordId(word.substr(0, equals));
  for (const restriction::SelectionField& row : restriction::kSelectionFields) {
    if (row.id == id) {
      return ParseNumber(word.substr(equals + 1), selections.*row.field);
    }
  }
  return false;
}

}  // namespace

int RunRestriction(Arguments arguments) {
  std::int32_t group = -1;
  if (arguments.size() < 2 || std::string_view(arguments[0]) != "--group" ||
      !ParseNumber(arguments[1], group) || group < 0 || group >= restriction::kGroupCount) {
    return Fail(kUsage, "usage: zninspect restriction --group G KEY=VALUE... (G 0 to 5)");
  }
  restriction::Selections selections;
  for (const char* word : arguments.subspan(2)) {
    if (!ParseSelection(word, selections)) {
      return Fail(kUsage, std::string("not a setting of the check: ") + word);
    }
  }
  const restriction::Result result =
      restriction::Check(selections, static_cast<restriction::Group>(group));
  switch (result.verdict) {
    case restriction::Verdict::Allowed:
      std::puts("allowed");
      break;
    case restriction::Verdict::Refused:
      std::printf("refused %d\n", result.messageId);
      break;
    case restriction::Verdict::Conflict:
      std::printf("conflict %s\n", result.other != kNoKeyword ? GetKeywordName(result.other) : "-");
      break;
  }
  return kOk;
}

}  // namespace zn::inspect
