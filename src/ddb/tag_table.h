// The tag table: one row per tag of the record with its kind and place in the body, and access to
// the fields by row. Defaults, reading, writing and the conversion of settings walk it.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "ddb/print_option_body.h"

namespace ddb {

enum ValueKind : std::uint8_t {
  kInteger,
  kCopies,      // an integer, 1 to 9999 when read from text
  kMediaCode,   // an integer, translated in files
  kHundredths,  // of a millimetre
  kTenths,
  kText,
  kFlag,        // one byte, 0 or 1
  kPackedLow,   // bits 0 and 1 of a word
  kPackedHigh,  // bits 2 to 15 of the same word
  kIgnored      // no field
};

inline constexpr std::size_t kMaxTagChars = 19;

// Holds its characters: a view would leave a copy of all names in every file that includes them.
class TagName {
 public:
  consteval TagName(const char* text) {  // NOLINT(google-explicit-constructor): rows name it
    const std::string_view name(text);
    if (name.size() > kMaxTagChars) {
      throw "too long";
    }
    std::ranges::copy(name, text_);
    size_ = static_cast<std::uint8_t>(name.size());
  }
  // NOLINTNEXTLINE(google-explicit-constructor): it is a text
  constexpr operator std::string_view() const { return {text_, size_}; }
  friend constexpr bool operator==(const TagName& name, std::string_view text) {
    return std::string_view(name) == text;
  }

 private:
  std::uint8_t size_ = 0;
  char text_[kMaxTagChars] = {};
};

struct Tag {
  TagName name;
  ValueKind kind;
  bool marked;             // texts: a "set" byte lies behind the field
  std::uint16_t offset;    // in PrintOptionBody
  std::uint16_t maxChars;  // texts: the field has one byte more
  std::int32_t initial;    // of a fresh record; texts start empty
};

// NOLINTBEGIN(bugprone-macro-parentheses)
// clang-format off
#define DDB_ROW(name, kind, marked, field, chars, initial) \
  {name, kind, marked, static_cast<std::uint16_t>(offsetof(PrintOptionBody, field)), chars, initial},
#define NUMBER(tag, kind, initial) DDB_ROW(#tag, kind, false, tag, 0, initial)
#define SHARED(tag, field, kind, initial) DDB_ROW(#tag, kind, false, field, 0, initial)
#define PLAIN_TEXT(tag, n) DDB_ROW(#tag, kText, false, tag, n, 0)
#define MARKED_TEXT(tag, n) DDB_ROW(#tag, kText, true, tag, n, 0)
#define PASSWORD(tag) DDB_ROW(#tag, kText, false, tag, 64, 0)
#define FLAG(tag) DDB_ROW(#tag, kFlag, false, tag, 0, 0)
#define IGNORED(tag) {#tag, kIgnored, false, 0, 0, 0},
#define DDB_SHEET(prefix, marked, fileNameChars)                         \
  DDB_ROW(#prefix "NAME", kText, marked, prefix.NAME, 510, 0)            \
  DDB_ROW(#prefix "FNAME", kText, marked, prefix.FNAME, fileNameChars, 0) \
  DDB_ROW(#prefix "TRAY", kInteger, false, prefix.TRAY, 0, kNoCode)      \
  DDB_ROW(#prefix "PPSIZE", kInteger, false, prefix.PPSIZE, 0, kNoCode)  \
  DDB_ROW(#prefix "PPSIZEX", kHundredths, false, prefix.PPSIZEX, 0, 0)   \
  DDB_ROW(#prefix "PPSIZEY", kHundredths, false, prefix.PPSIZEY, 0, 0)   \
  DDB_ROW(#prefix "PPCLR", kInteger, false, prefix.PPCLR, 0, kNoCode)    \
  DDB_ROW(#prefix "PPCCLR", kText, marked, prefix.PPCCLR, 60, 0)         \
  DDB_ROW(#prefix "PPTYP", kInteger, false, prefix.PPTYP, 0, kNoCode)    \
  DDB_ROW(#prefix "CPPTYP", kText, marked, prefix.CPPTYP, 60, 0)         \
  DDB_ROW(#prefix "ORDER", kInteger, false, prefix.ORDER, 0, 0)          \
  DDB_ROW(#prefix "DRILLED", kInteger, false, prefix.DRILLED, 0, 0)      \
  DDB_ROW(#prefix "WIGHT", kInteger, false, prefix.WIGHT, 0, 0)          \
  DDB_ROW(#prefix "COAT", kInteger, false, prefix.COAT, 0, 0)            \
  DDB_ROW(#prefix "CTTYP", kInteger, false, prefix.CTTYP, 0, 0)
#define PAPER(prefix) DDB_SHEET(prefix, false, 260)
#define MARKED_PAPER(prefix) DDB_SHEET(prefix, true, 259)
inline constexpr auto kTags = std::to_array<Tag>({
#include "ddb/print_option_fields.inc"
});
#undef DDB_SHEET
#undef DDB_ROW
// clang-format on
// NOLINTEND(bugprone-macro-parentheses)

static_assert(kTags.size() == 536);

// Media type codes: of the record by file code. Codes beyond the table are the same in both.
inline constexpr std::array<std::uint8_t, 12> kRecordMediaCodes = {10, 0, 1,  2, 3, 6,
                                                                   8,  7, 11, 9, 4, 5};

// The row of a tag that the code names; an unknown name does not compile.
consteval const Tag& TagNamed(std::string_view name) {
  const auto* row =
      std::ranges::find_if(kTags, [name](const Tag& tag) { return tag.name == name; });
  return row != kTags.end() ? *row : throw "no such tag";
}

// The row of a tag found in a text, without regard to case; null when there is none.
[[nodiscard]] const Tag* FindTag(std::string_view name) noexcept;

// The integer of any kind but texts; 0 for ignored tags and texts. A packed part of all ones is -1.
[[nodiscard]] std::int32_t GetInteger(const PrintOptionBody& body, const Tag& tag) noexcept;
// Stores the value as it stands; a flag takes any non-zero value as 1, a packed part its bits.
void SetInteger(PrintOptionBody& body, const Tag& tag, std::int32_t value) noexcept;

// A text up to its terminator or the end of its field; empty for other kinds.
[[nodiscard]] std::string_view GetText(const PrintOptionBody& body, const Tag& tag) noexcept;
// Keeps at most the field's characters and raises the mark, if any.
void SetText(PrintOptionBody& body, const Tag& tag, std::string_view text) noexcept;

}  // namespace ddb
