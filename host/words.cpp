#include "host/words.h"

#include <algorithm>
#include <iterator>

namespace zn::host {
namespace {

struct Option {
  std::string_view name;
  std::string SheetWords::*value;  // null: the option is a flag
};
constexpr Option kOptions[] = {{"--queue", &SheetWords::queue},     {"--shots", &SheetWords::shots},
                               {"--devmode", &SheetWords::devMode}, {"--seed", &SheetWords::seed},
                               {"--from", &SheetWords::from},       {"--read-only", nullptr}};

}  // namespace

SheetWords ParseSheetWords(Words words, std::initializer_list<std::string_view> allowed) {
  SheetWords parsed;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string name = words[i];
    const auto option = std::ranges::find(kOptions, name, &Option::name);
    if (option == std::end(kOptions) || std::ranges::find(allowed, name) == allowed.end()) {
      throw UsageError("unknown word " + name);
    }
    if (option->value == nullptr) {
      parsed.readOnly = true;
    } else if (i + 1 < words.size()) {
      parsed.*option->value = words[++i];
    } else {
      throw UsageError(name + " needs a value");
    }
  }
  return parsed;
}

}  // namespace zn::host
