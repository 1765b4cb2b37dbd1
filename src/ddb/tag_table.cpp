#include "ddb/tag_table.h"

#include <cstring>

#include "ddb/name_index.h"

namespace ddb {
namespace {

constexpr NameIndex<2048> kTagIndex(kTags);

constexpr std::uint32_t kLowMask = 3;
constexpr std::uint32_t kHighMask = 0xFFFC;
constexpr int kHighShift = 2;

char* Field(PrintOptionBody& body, const Tag& tag) noexcept {
  return reinterpret_cast<char*>(&body) + tag.offset;
}

const char* Field(const PrintOptionBody& body, const Tag& tag) noexcept {
  return reinterpret_cast<const char*>(&body) + tag.offset;
}

std::uint32_t Word(const PrintOptionBody& body, const Tag& tag) noexcept {
  std::uint32_t word = 0;
  std::memcpy(&word, Field(body, tag), sizeof word);
  return word;
}

void SetWord(PrintOptionBody& body, const Tag& tag, std::uint32_t word) noexcept {
  std::memcpy(Field(body, tag), &word, sizeof word);
}

std::int32_t PackedPart(std::uint32_t word, std::uint32_t mask, int shift) noexcept {
  return (word & mask) == mask ? kNoCode : static_cast<std::int32_t>((word & mask) >> shift);
}

std::uint32_t WithPart(std::uint32_t word, std::uint32_t mask, std::uint32_t bits) noexcept {
  return (word & ~mask) | (bits & mask);
}

}  // namespace

const Tag* FindTag(std::string_view name) noexcept {
  return kTagIndex.Find(kTags, name, EqualIgnoringCase);
}

std::int32_t GetInteger(const PrintOptionBody& body, const Tag& tag) noexcept {
  switch (tag.kind) {
    case kText:
    case kIgnored:
      return 0;
    case kFlag:
      return *Field(body, tag) != 0 ? 1 : 0;
    case kPackedLow:
      return PackedPart(Word(body, tag), kLowMask, 0);
    case kPackedHigh:
      return PackedPart(Word(body, tag), kHighMask, kHighShift);
    default:
      return static_cast<std::int32_t>(Word(body, tag));
  }
}

void SetInteger(PrintOptionBody& body, const Tag& tag, std::int32_t value) noexcept {
  const auto bits = static_cast<std::uint32_t>(value);
  switch (tag.kind) {
    case kText:
    case kIgnored:
      return;
    case kFlag:
      *Field(body, tag) = value != 0 ? 1 : 0;
      return;
    case kPackedLow:
      SetWord(body, tag, WithPart(Word(body, tag), kLowMask, bits));
      return;
    case kPackedHigh:
      SetWord(body, tag, WithPart(Word(body, tag), kHighMask, bits << kHighShift));
      return;
    default:
      SetWord(body, tag, bits);
  }
}

std::string_view GetText(const PrintOptionBody& body, const Tag& tag) noexcept {
  if (tag.kind != kText) {
    return {};
  }
  const char* text = Field(body, tag);
  const void* end = std::memchr(text, '\0', tag.maxChars);
  return {text, end != nullptr ? static_cast<std::size_t>(static_cast<const char*>(end) - text)
                               : tag.maxChars};
}

void SetText(PrintOptionBody& body, const Tag& tag, std::string_view text) noexcept {
  if (tag.kind != kText) {
    return;
  }
  const std::size_t kept = std::min<std::size_t>(text.size(), tag.maxChars);
  char* field = Field(body, tag);
  std::memcpy(field, text.data(), kept);
  std::memset(field + kept, 0, tag.maxChars + 1 - kept);
  if (tag.marked) {
    field[tag.maxChars + 1] = 1;
  }
}

}  // namespace ddb
