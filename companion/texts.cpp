#include "companion/texts.h"

#include <windows.h>

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
#define ZN_TEXT_ARRAY(id, ...) constexpr const char* kTexts##id[] = {__VA_ARGS__};
// In ascending order of ids.
#define ZN_TEXT_ENTRY(id, ...) {id, kTexts##id[0], {kTexts##id + 1, std::size(kTexts##id) - 1}},

namespace japanese {
#define ZN_TEXTS ZN_TEXT_ARRAY
#include "companion_texts.inc"
#undef ZN_TEXTS
#define ZN_TEXTS ZN_TEXT_ENTRY
constexpr Entry kEntries[] = {
#include "companion_texts.inc"
};
#undef ZN_TEXTS
}  // namespace japanese

namespace english {
#define ZN_TEXTS ZN_TEXT_ARRAY
#include "companion_texts_english.inc"
#undef ZN_TEXTS
#define ZN_TEXTS ZN_TEXT_ENTRY
constexpr Entry kEntries[] = {
#include "companion_texts_english.inc"
};
#undef ZN_TEXTS
}  // namespace english

static_assert(std::ranges::is_sorted(japanese::kEntries, {}, &Entry::id));
static_assert(std::ranges::equal(japanese::kEntries, english::kEntries, {}, &Entry::id,
                                 &Entry::id));

const Entry* Find(int id) noexcept {
  static const bool isJapanese = PRIMARYLANGID(::GetUserDefaultUILanguage()) == LANG_JAPANESE;
  const std::span<const Entry> entries =
      isJapanese ? std::span(japanese::kEntries) : std::span(english::kEntries);
  const auto entry = std::ranges::lower_bound(entries, id, {}, &Entry::id);
  return entry != entries.end() && entry->id == id ? &*entry : nullptr;
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
