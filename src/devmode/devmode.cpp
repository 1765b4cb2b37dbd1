#include "devmode/devmode.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <type_traits>
#include <utility>

#include "platform/double_byte.h"
#include "platform/trace.h"

namespace zn {
namespace {

using devmode::kFields;

constexpr unsigned char kFirstPrintable = 0x20;
constexpr std::byte kCarriageReturn{'\r'};
constexpr std::byte kLineFeed{'\n'};
constexpr std::string_view kEnterName = "EnterName";

std::uint32_t ReadDWord(const void* at) noexcept {
  std::uint32_t value;
  std::memcpy(&value, at, sizeof value);
  return value;
}

constexpr bool IsText(const DevModeField& field) noexcept {
  return field.kind == FieldKind::Text;
}

// Whether a copy takes less of the text than its field holds.
constexpr bool IsClipped(const DevModeField& field) noexcept {
  return IsText(field) && field.copyBound < field.width;
}

// The source when its own size is ours. A reference to a shorter one would promise bytes that may
// not be there.
const CDevMode* BlockOfOurSize(const void* source) noexcept {
  return ReadDWord(source) == kDevModeSize ? static_cast<const CDevMode*>(source) : nullptr;
}

// Characters before the terminator, at most `width`.
std::size_t TextLength(const std::byte* text, std::size_t width) noexcept {
  const void* end = std::memchr(text, 0, width);
  return end != nullptr ? static_cast<std::size_t>(static_cast<const std::byte*>(end) - text)
                        : width;
}

bool IsControl(std::byte character) noexcept {
  return std::to_integer<unsigned char>(character) < kFirstPrintable;
}

// Whether one of the eight characters is a control character or a terminator: taking a space off
// sets the highest bit of such a byte only, unless the bit was set before. A borrow reaches further
// bytes only from a byte that is found anyway.
bool HasControl(const std::byte* characters) noexcept {
  constexpr std::uint64_t kEach = 0x0101010101010101;
  std::uint64_t word;
  std::memcpy(&word, characters, sizeof word);
  return ((word - kEach * kFirstPrintable) & ~word & kEach * 0x80) != 0;
}

// Length of the text up to its first control character or terminator.
std::size_t PrintableLength(const std::byte* text, std::size_t width) noexcept {
  std::size_t at = 0;
  while (at + sizeof(std::uint64_t) <= width && !HasControl(text + at)) {
    at += sizeof(std::uint64_t);
  }
  while (at < width && !IsControl(text[at])) {
    ++at;
  }
  return at;
}

// Cuts the control characters out; the rest closes up.
void CutControls(std::byte* text, std::size_t width, bool keepLineEnds) noexcept {
  std::size_t from = PrintableLength(text, width);
  std::size_t to = from;
  for (; from < width && text[from] != std::byte{0}; ++from) {
    if (!IsControl(text[from])) {
      text[to++] = text[from];
    } else if (keepLineEnds && text[from] == kCarriageReturn && from + 1 < width &&
               text[from + 1] == kLineFeed) {
      text[to++] = text[from++];
      text[to++] = text[from];
    }
  }
  std::fill(text + to, text + from, std::byte{0});
}

// Ends a text that is longer than `bound` there, or before a character that would be cut in half.
void ClipText(std::byte* text, std::size_t bound) noexcept {
  if (text[bound] != std::byte{0} && TextLength(text, bound) == bound) {
    const std::string_view whole(reinterpret_cast<const char*>(text), bound + 1);
    text[CutText(whole, bound).size()] = std::byte{0};
  }
  text[bound] = std::byte{0};
}

// Loops of a merge, which runs in every application that touches the printer, are unrolled: with
// the rows as constants it takes half the time. `work` gets the row's number as a type.
template <class Work, std::size_t... kRow>
void ForEachRow(std::index_sequence<kRow...> /*rows*/, const Work& work) noexcept {
  (work(std::integral_constant<std::size_t, kRow>()), ...);
}
constexpr auto kAllRows = std::make_index_sequence<kFields.size()>();

void TraceImpositionTemplate([[maybe_unused]] std::uint32_t value) noexcept {
  ZN_TRACE_TEXT("oemps\\devmode", "CDevMode::Merge", "m_ImpositionTemplate = %d", value);
}

}  // namespace

void CDevMode::SetDefaults() noexcept {
  for (const DevModeField& field : DevModeFields()) {
    if (!field.hasDefault) {
      continue;
    }
    if (IsText(field)) {
      SetText(field.offset, {});
    } else {
      SetDWord(field.offset, field.defaultValue);
    }
  }
}

void CDevMode::CopyFrom(const void* source) noexcept {
  if (const CDevMode* block = BlockOfOurSize(source)) {
    if (!CopyFields(*block)) {
      return;
    }
    for (const DevModeField& field : DevModeFields()) {
      if (IsClipped(field)) {
        ClipText(&bytes_[field.offset], field.copyBound);
      }
    }
  }
}

void CDevMode::Merge(const void* source) noexcept {
  if (const CDevMode* block = BlockOfOurSize(source)) {
    const std::uint32_t carriedFlag = block->GetDWord(devmode::kCarriedFlag);
    const std::uint32_t overWriteFlag = block->GetDWord(devmode::kOverWriteFlag);
    CopyFields(*block);
    SetDWord(devmode::kCarriedFlag, carriedFlag);
    SetDWord(devmode::kOverWriteFlag, overWriteFlag);
  }
  const std::uint32_t copiedTemplate = GetDWord(devmode::kImpositionTemplate);
  TraceImpositionTemplate(copiedTemplate);
  RepairFields();
  if (GetDWord(devmode::kImpositionTemplate) != copiedTemplate) {
    TraceImpositionTemplate(GetDWord(devmode::kImpositionTemplate));
  }
  ZN_TRACE_TEXT("oemps\\devmode", "CDevMode::Merge", "pSrcDm->m_OverWriteFlag = %d",
                GetDWord(devmode::kOverWriteFlag));
}

// Whatever lies between two fields that stay the destination's goes in one run.
bool CDevMode::CopyFields(const CDevMode& source) noexcept {
  if (std::memcmp(bytes_.data(), source.bytes_.data(), kDevModeHeaderSize) != 0) {
    return false;
  }
  std::size_t begin = 0;
  const auto copyUpTo = [&](std::size_t end) {
    std::memmove(bytes_.data() + begin, source.bytes_.data() + begin, end - begin);
  };
  ForEachRow(kAllRows, [&](auto row) {
    constexpr DevModeField kField = kFields[row];
    if constexpr (kField.copyBound == 0) {
      copyUpTo(kField.offset);
      begin = kField.offset + std::size_t{kField.width};
    }
  });
  copyUpTo(kDevModeSize);
  return true;
}

// Texts are clipped here, too: when nothing was copied, the next merge must find nothing to clip.
void CDevMode::RepairFields() noexcept {
  ForEachRow(kAllRows, [this](auto row) {
    constexpr DevModeField kField = kFields[row];
    std::byte* const at = bytes_.data() + kField.offset;
    if constexpr (IsClipped(kField)) {
      ClipText(at, kField.copyBound);
    }
    if constexpr (kField.repair == Repair::Flag || kField.repair == Repair::Range) {
      if (GetDWord(kField.offset) - kField.low > kField.high - kField.low) {
        SetDWord(kField.offset, kField.fallback);
      }
    } else if constexpr (kField.repair != Repair::None) {
      CutControls(at, kField.width, kField.repair == Repair::Comment);
    }
  });
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

bool CDevMode::IsCurrent() const noexcept {
  return GetDWord(devmode::kSize) == kDevModeSize &&
         GetDWord(devmode::kSignature) == kDevModeSignature &&
         GetDWord(devmode::kVersion) == kDevModeVersion;
}

std::uint32_t CDevMode::GetDWord(std::size_t offset) const noexcept {
  assert(offset + 4 <= bytes_.size());
  return ReadDWord(bytes_.data() + offset);
}

void CDevMode::SetDWord(std::size_t offset, std::uint32_t value) noexcept {
  assert(offset + 4 <= bytes_.size());
  std::memcpy(bytes_.data() + offset, &value, sizeof value);
}

std::string_view CDevMode::GetText(std::size_t offset) const noexcept {
  const DevModeField* field = FindDevModeField(offset);
  assert(field != nullptr && IsText(*field));
  const std::byte* text = &bytes_[offset];
  return {reinterpret_cast<const char*>(text), TextLength(text, field->width)};
}

void CDevMode::SetText(std::size_t offset, std::string_view text) noexcept {
  const DevModeField* field = FindDevModeField(offset);
  assert(field != nullptr && IsText(*field));
  const std::string_view fitting =
      CutText(text.substr(0, text.find('\0')), field->width - std::size_t{1});
  std::byte* at = &bytes_[offset];
  std::copy(fitting.begin(), fitting.end(), reinterpret_cast<char*>(at));
  std::memset(at + fitting.size(), 0, field->width - fitting.size());
}

}  // namespace zn
