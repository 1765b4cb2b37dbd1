// zninspect keyword, zninspect codes: the keyword table and the option code lists.
#include <charconv>
#include <cstdio>
#include <string>

#include "keywords/keyword_table.h"
#include "tools/commands.h"

namespace zn::inspect {

int RunKeyword(Arguments arguments) {
  if (arguments.size() != 1) {
    return Fail(kUsage, "usage: zninspect keyword NAME");
  }
  const KeywordId id = GetKeywordId(arguments[0]);
  if (id == kNoKeyword) {
    return Fail(kFailed, std::string(arguments[0]) + " is not a keyword");
  }
  std::printf("%u %s\n", id, GetKeywordName(id));
  return kOk;
}

int RunCodes(Arguments arguments) {
  const std::string_view word = arguments.size() == 1 ? arguments[0] : "";
  KeywordId id = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), id);
  if (error != std::errc() || end != word.data() + word.size()) {
    return Fail(kUsage, "usage: zninspect codes ID");
  }
  const char* separator = "";
  for (const std::uint32_t code : GetOptionCodeList(id)) {
    std::printf("%s%u", separator, code);
    separator = " ";
  }
  std::putchar('\n');
  return kOk;
}

}  // namespace zn::inspect
