// zninspect keyword: the ids of keywords, and the codes and names of their options.
#include <algorithm>
#include <charconv>
#include <optional>
#include <string>

#include "keywords/keyword_table.h"
#include "tools/commands.h"
#include "tools/option_names.h"
#include "tools/shown_text.h"

namespace zn::inspect {
namespace {

// A keyword, or an id, which need not be one's.
std::optional<KeywordId> ParseKeyword(std::string_view word) {
  if (const KeywordId id = GetKeywordId(word); id != kNoKeyword) {
    return id;
  }
  KeywordId id = 0;
  const char* const end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, id);
  return error == std::errc() && stop == end ? std::optional(id) : std::nullopt;
}

// Options with a code, a name or both.
Json Options(KeywordId id) {
  const auto codes = GetOptionCodeList(id);
  const std::size_t count = std::max<std::size_t>(codes.size(), OptionNameCount(id));
  Json options = Json::array();
  for (std::uint32_t index = 0; index < count; ++index) {
    options.push_back({{"index", index},
                       {"code", index < codes.size() ? Json(codes[index]) : Json()},
                       {"name", OptionName(id, index)}});
  }
  return options;
}

}  // namespace

int RunKeyword(Arguments arguments, const Output& out) {
  int code = arguments.empty() ? kMisused : kOk;
  for (const char* const word : arguments) {
    if (const auto id = ParseKeyword(word)) {
      out.Put({{"id", *id},
               {"keyword", GetKeywordName(*id)},
               {"label", LabelOf(*id)},
               {"options", Options(*id)}});
    } else {
      const std::string shown = Utf8OfWord(word);
      code = out.Fail(kFailed, {{"keyword", shown}}, shown, "is not a keyword");
    }
  }
  return code;
}

}  // namespace zn::inspect
