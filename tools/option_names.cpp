#include "tools/option_names.h"

#include <array>

namespace zn::inspect {
namespace {

struct Names {
  std::string_view label;
  std::string_view options;  // in index order, parted by line ends
};

// By keyword id.
constexpr auto kNames = std::to_array<Names>({
#include "option_names.inc"
});
static_assert(kNames.size() == KW_MAX);

// Calls visit(index, name) until that answers true; whether it did.
template <class Visit>
bool VisitNames(KeywordId id, Visit visit) noexcept {
  std::string_view rest = id < kNames.size() ? kNames[id].options : std::string_view();
  for (std::uint32_t index = 0; !rest.empty(); ++index) {
    const std::size_t end = rest.find('\n');
    if (visit(index, rest.substr(0, end))) {
      return true;
    }
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
  }
  return false;
}

}  // namespace

std::string_view LabelOf(KeywordId id) noexcept {
  return id < kNames.size() ? kNames[id].label : std::string_view();
}

std::string_view OptionName(KeywordId id, std::uint32_t index) noexcept {
  std::string_view name;
  VisitNames(id, [&](std::uint32_t i, std::string_view text) {
    name = i == index ? text : name;
    return i == index;
  });
  return name;
}

std::uint32_t OptionNameCount(KeywordId id) noexcept {
  std::uint32_t count = 0;
  VisitNames(id, [&](std::uint32_t i, std::string_view) {
    count = i + 1;
    return false;
  });
  return count;
}

std::optional<std::uint32_t> OptionNamed(KeywordId id, std::string_view name) noexcept {
  std::optional<std::uint32_t> index;
  VisitNames(id, [&](std::uint32_t i, std::string_view text) {
    index = text == name ? std::optional(i) : std::nullopt;
    return index.has_value();
  });
  return index;
}

}  // namespace zn::inspect
