// The merge said as plainly as possible, byte by byte; the merge itself is tuned.
#pragma once

#include <cstddef>
#include <cstring>

#include "devmode/devmode.h"
#include "platform/double_byte.h"

namespace zn::test {

inline CDevMode Defaulted() {
  CDevMode block{};
  block.SetDefaults();
  return block;
}

// How many bytes of a text are copied: up to its bound, but no half of a character.
inline std::size_t PlainBound(const std::byte* text, const DevModeField& field) {
  if (field.copyBound == field.width || text[field.copyBound] == std::byte{0}) {
    return field.copyBound;
  }
  std::size_t end = 0;
  while (end < field.copyBound) {
    const std::size_t size = IsLeadByte(static_cast<char>(text[end]), SystemCodePage()) ? 2 : 1;
    if (end + size > field.copyBound) {
      break;
    }
    end += size;
  }
  return end;
}

inline void PlainCopyOfText(std::byte* to, const std::byte* from, const DevModeField field) {
  const bool keepsAll = field.repair == Repair::None;
  const bool keepsLineEnds = field.repair == Repair::Comment;
  const std::size_t bound = PlainBound(from, field);
  std::size_t length = 0;
  for (std::size_t at = 0; at < bound && from[at] != std::byte{0}; ++at) {
    if (from[at] >= std::byte{' '} || keepsAll) {
      to[length++] = from[at];
    } else if (keepsLineEnds && from[at] == std::byte{'\r'} && at + 1 < bound &&
               from[at + 1] == std::byte{'\n'}) {
      to[length++] = from[at++];
      to[length++] = from[at];
    }
  }
  if (length < field.width) {
    to[length] = std::byte{0};
  }
}

inline void PlainMerge(CDevMode& destination, const CDevMode& source) {
  const bool isOurSize = source.GetDWord(devmode::kSize) == kDevModeSize;
  const CDevMode& told = isOurSize ? source : destination;
  const bool isSameHeader = std::memcmp(&destination, &told, kDevModeHeaderSize) == 0;
  for (const DevModeField& field : DevModeFields()) {
    const bool isFlagOfOtherHeader =
        field.offset == devmode::kCarriedFlag || field.offset == devmode::kOverWriteFlag;
    const bool isCopied = isFlagOfOtherHeader || (isSameHeader && field.copyBound != 0);
    const CDevMode& from = isCopied ? told : destination;
    if (field.kind == FieldKind::Text) {
      PlainCopyOfText(&destination.Bytes()[field.offset], &from.Bytes()[field.offset], field);
    } else if (field.kind == FieldKind::Number) {
      const std::uint32_t value = from.GetDWord(field.offset);
      const bool isGood = field.repair == Repair::None ||  //
                          (value >= field.low && value <= field.high);
      destination.SetDWord(field.offset, isGood ? value : field.fallback);
    }
  }
}

// The offset of the first field that says something else; -1 when there is none.
inline int FirstDifference(const CDevMode& left, const CDevMode& right) {
  for (const DevModeField& field : DevModeFields()) {
    const bool isSame = field.kind == FieldKind::Text
                            ? left.GetText(field.offset) == right.GetText(field.offset)
                            : std::memcmp(&left.Bytes()[field.offset], &right.Bytes()[field.offset],
                                          field.width) == 0;
    if (!isSame) {
      return field.offset;
    }
  }
  return -1;
}

}  // namespace zn::test
