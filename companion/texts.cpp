#include "companion/texts.h"

#include <algorithm>
#include <iterator>

namespace zn::companion {
namespace {

struct Entry {
  int id;
  const char* label;
  std::span<const char* const> options;
};

// The label stands first, so that an id without options has an array, too.
#define ZN_TEXTS(id, ...) constexpr const char* kTexts##id[] = {__VA_ARGS__};
#include "companion_texts.inc"
#undef ZN_TEXTS

// In ascending order of ids.
constexpr Entry kEntries[] = {
#define ZN_TEXTS(id, ...) {id, kTexts##id[0], {kTexts##id + 1, std::size(kTexts##id) - 1}},
#include "companion_texts.inc"
#undef ZN_TEXTS
};
static_assert(std::ranges::is_sorted(kEntries, {}, &Entry::id));

const Entry* Find(int id) noexcept {
  const auto* entry = std::ranges::lower_bound(kEntries, id, {}, &Entry::id);
  return entry != std::end(kEntries) && entry->id == id ? entry : nullptr;
}

}  // namespace

const char* Label(int id) noexcept {
  const Entry* entry = Find(id);
  return entry != nullptr ? entry->label : nullptr;
}

std::span<const char* const> OptionNames(int id) noexcept {
  const Entry* entry = Find(id);
  return entry != nullptr ? entry->options : std::span<const char* const>();
}

}  // namespace zn::companion
