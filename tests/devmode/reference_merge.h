// A block of defaults, and what a merged block must look like, said as plainly as possible; the
// merge itself is tuned.
#pragma once

#include <string>
#include <string_view>

#include "devmode/devmode.h"

namespace zn::test {

inline CDevMode Defaulted() {
  CDevMode block{};
  block.SetDefaults();
  return block;
}

inline std::string WithoutControls(std::string_view text, bool keepLineEnds) {
  std::string cleaned;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (keepLineEnds && text.substr(at, 2) == "\r\n") {
      cleaned += "\r\n";
      ++at;
    } else if (static_cast<unsigned char>(text[at]) >= 0x20) {
      cleaned += text[at];
    }
  }
  return cleaned;
}

// Whether merging must leave the field as it is.
inline bool IsGood(const CDevMode& block, const DevModeField& field) {
  const std::uint32_t value =
      field.kind == FieldKind::Number ? block.GetDWord(field.offset) : std::uint32_t{0};
  switch (field.repair) {
    case Repair::None:
      return true;
    case Repair::Flag:
      return value <= 1;
    case Repair::Range:
      return (value >= field.low && value <= field.high) || value == field.fallback;
    case Repair::Controls:
    case Repair::Comment: {
      const std::string_view text = block.GetText(field.offset);
      return WithoutControls(text, field.repair == Repair::Comment) == text;
    }
  }
  return false;
}

// The offset of the first bad field; -1 when all are good.
inline int FirstBadField(const CDevMode& block) {
  for (const DevModeField& field : DevModeFields()) {
    if (!IsGood(block, field)) {
      return field.offset;
    }
  }
  return -1;
}

// A block with guard bytes around it.
struct GuardedBlock {
  static constexpr std::byte kGuard{0xA5};

  GuardedBlock() {
    before.fill(kGuard);
    after.fill(kGuard);
  }
  [[nodiscard]] bool IsIntact() const {
    std::array<std::byte, 64> guard;
    guard.fill(kGuard);
    return before == guard && after == guard;
  }

  std::array<std::byte, 64> before;
  CDevMode block{};
  std::array<std::byte, 64> after;
};

}  // namespace zn::test
