#include "oemps/devmode.h"

#include <algorithm>
#include <cassert>
#include <cstring>

#include "platform/trace.h"

namespace zn {
namespace {

constexpr unsigned char kFirstPrintable = 0x20;
constexpr std::byte kCarriageReturn{'\r'};
constexpr std::byte kLineFeed{'\n'};

constexpr std::string_view kEnterName = "EnterName";

using Field = std::span<std::byte>;

std::uint32_t ReadDWord(const std::byte* at) noexcept {
  std::uint32_t value;
  std::memcpy(&value, at, sizeof value);
  return value;
}

void WriteDWord(std::byte* at, std::uint32_t value) noexcept {
  std::memcpy(at, &value, sizeof value);
}

// Characters before the terminator, at most `bound`.
std::size_t TextLength(const std::byte* text, std::size_t bound) noexcept {
  const void* end = std::memchr(text, 0, bound);
  return end != nullptr ? static_cast<std::size_t>(static_cast<const std::byte*>(end) - text)
                        : bound;
}

// The rest of the field becomes zero, so that nothing of an earlier text stays behind.
void PutText(Field field, const std::byte* text, std::size_t length) noexcept {
  if (length != 0) {
    std::memmove(field.data(), text, length);
  }
  std::memset(field.data() + length, 0, field.size() - length);
}

// True for a terminator, too: both end a stretch of good text.
bool IsControl(std::byte character) noexcept {
  return std::to_integer<unsigned char>(character) < kFirstPrintable;
}

// Length of the text up to its first control character or terminator. The inner loop has no exit,
// so that the compiler makes vector code of it.
std::size_t PrintableLength(Field field) noexcept {
  constexpr std::size_t kBlock = 64;
  std::size_t at = 0;
  for (; at + kBlock <= field.size(); at += kBlock) {
    unsigned char controls = 0;
    for (std::size_t i = 0; i < kBlock; ++i) {
      controls |= static_cast<unsigned char>(IsControl(field[at + i]));
    }
    if (controls != 0) {
      break;
    }
  }
  return static_cast<std::size_t>(
      std::find_if(field.begin() + static_cast<std::ptrdiff_t>(at), field.end(), IsControl) -
      field.begin());
}

void CutControls(Field field, bool keepLineEnds) noexcept {
  const std::size_t good = PrintableLength(field);
  if (good == field.size() || field[good] == std::byte{0}) {
    return;
  }
  std::size_t to = good;
  std::size_t from = good;
  for (; from < field.size() && field[from] != std::byte{0}; ++from) {
    if (!IsControl(field[from])) {
      field[to++] = field[from];
    } else if (keepLineEnds && field[from] == kCarriageReturn && from + 1 < field.size() &&
               field[from + 1] == kLineFeed) {
      field[to++] = field[from++];
      field[to++] = field[from];
    }
  }
  std::fill(field.begin() + static_cast<std::ptrdiff_t>(to),
            field.begin() + static_cast<std::ptrdiff_t>(from), std::byte{0});
}

void RepairField(const DevModeField& row, Field field) noexcept {
  switch (row.repair) {
    case Repair::None:
      break;
    case Repair::Flag:
    case Repair::Range: {
      const std::uint32_t value = ReadDWord(field.data());
      if (value - row.low > row.high - row.low) {
        WriteDWord(field.data(), row.fallback);
      }
      break;
    }
    case Repair::Controls:
      CutControls(field, false);
      break;
    case Repair::Comment:
      CutControls(field, true);
      break;
  }
}

void TraceImpositionTemplate([[maybe_unused]] std::uint32_t value) noexcept {
  ZN_TRACE_TEXT("oemps\\devmode", "CDevMode::Merge", "m_ImpositionTemplate = %d", value);
}

}  // namespace

void CDevMode::SetDefaults() noexcept {
  for (const DevModeField& row : DevModeFields()) {
    if (!row.hasDefault) {
      continue;
    }
    if (row.kind == FieldKind::Text) {
      SetText(row.offset, {});
    } else {
      SetDWord(row.offset, row.defaultValue);
    }
  }
}

void CDevMode::CopyFrom(const CDevMode& source) noexcept {
  if (!HasHeaderOf(source) || !source.Reaches(kDevModeSize)) {
    return;
  }
  for (const DevModeField& row : DevModeFields()) {
    if (row.copyBound == 0) {
      continue;
    }
    const std::byte* from = &source.bytes_[row.offset];
    if (row.kind == FieldKind::Text) {
      PutText(Field(bytes_).subspan(row.offset, row.width), from, TextLength(from, row.copyBound));
    } else {
      SetDWord(row.offset, ReadDWord(from));
    }
  }
}

void CDevMode::Merge(const CDevMode& source) noexcept {
  // A source with another header tells nothing but these two, and those only when it is that long.
  const std::uint32_t carriedFlag =
      source.Reaches(devmode::kCarriedFlag + 4) ? source.GetDWord(devmode::kCarriedFlag) : 0;
  const std::uint32_t overWriteFlag = source.Reaches(devmode::kOverWriteFlag + 4)
                                          ? source.GetDWord(devmode::kOverWriteFlag)
                                          : GetDWord(devmode::kOverWriteFlag);
  CopyFrom(source);
  SetDWord(devmode::kCarriedFlag, carriedFlag);

  const std::uint32_t copiedTemplate = GetDWord(devmode::kImpositionTemplate);
  TraceImpositionTemplate(copiedTemplate);
  for (const DevModeField& row : DevModeFields()) {
    RepairField(row, Field(bytes_).subspan(row.offset, row.width));
  }
  if (GetDWord(devmode::kImpositionTemplate) != copiedTemplate) {
    TraceImpositionTemplate(GetDWord(devmode::kImpositionTemplate));
  }
  SetDWord(devmode::kOverWriteFlag, overWriteFlag);
  ZN_TRACE_TEXT("oemps\\devmode", "CDevMode::Merge", "pSrcDm->m_OverWriteFlag = %d", overWriteFlag);
}

void CDevMode::SetAuthenticationData(std::uint32_t method, std::string_view specify,
                                     std::string_view name, std::string_view password,
                                     std::string_view accountId,
                                     std::string_view logonName) noexcept {
  if (method == 0) {
    name = password = accountId = logonName = {};
  }
  const bool isEntered = method != 0 && specify == kEnterName;
  SetDWord(devmode::kManagementMethod, method);
  SetDWord(devmode::kOwnerNameSource, isEntered ? 1 : 0);
  SetText(devmode::kJobOwnerName, isEntered ? name : logonName);
  SetText(devmode::kJobOwnerPassword, password);
  SetText(devmode::kAccountId, accountId);
}

bool CDevMode::HasHeaderOf(const CDevMode& other) const noexcept {
  return std::memcmp(bytes_.data(), other.bytes_.data(), kDevModeHeaderSize) == 0;
}

bool CDevMode::IsCurrent() const noexcept {
  return GetDWord(devmode::kSize) == kDevModeSize &&
         GetDWord(devmode::kSignature) == kDevModeSignature &&
         GetDWord(devmode::kVersion) == kDevModeVersion;
}

bool CDevMode::Reaches(std::size_t end) const noexcept {
  return GetDWord(devmode::kSize) >= end;
}

std::uint32_t CDevMode::GetDWord(std::size_t offset) const noexcept {
  assert(offset + 4 <= bytes_.size());
  return ReadDWord(&bytes_[offset]);
}

void CDevMode::SetDWord(std::size_t offset, std::uint32_t value) noexcept {
  assert(offset + 4 <= bytes_.size());
  WriteDWord(&bytes_[offset], value);
}

std::string_view CDevMode::GetText(std::size_t offset) const noexcept {
  const DevModeField* row = FindDevModeField(offset);
  assert(row != nullptr && row->kind == FieldKind::Text);
  const std::byte* text = &bytes_[offset];
  return {reinterpret_cast<const char*>(text), TextLength(text, row->width)};
}

void CDevMode::SetText(std::size_t offset, std::string_view text) noexcept {
  const DevModeField* row = FindDevModeField(offset);
  assert(row != nullptr && row->kind == FieldKind::Text);
  const std::string_view fitting =
      text.substr(0, std::min(text.find('\0'), row->width - std::size_t{1}));
  PutText(Field(bytes_).subspan(offset, row->width),
          reinterpret_cast<const std::byte*>(fitting.data()), fitting.size());
}

}  // namespace zn
