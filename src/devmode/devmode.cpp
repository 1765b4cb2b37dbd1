#include "devmode/devmode.h"

#include <emmintrin.h>  // SSE2 is part of x64

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <cstring>

#include "devmode/devmode_fields.h"
#include "platform/trace.h"

// Every application that touches the printer merges, so the field table is sorted by work at
// compile time: runs of bytes to copy, texts to clip, numbers to check, texts to clean.
namespace zn {
namespace {

using devmode::kFields;

template <auto kWanted>
constexpr auto SelectFields() {
  std::array<DevModeField, std::ranges::count_if(kFields, kWanted)> selected{};
  std::ranges::copy_if(kFields, selected.begin(), kWanted);
  return selected;
}

constexpr bool IsText(const DevModeField& field) {
  return field.kind == FieldKind::Text;
}

constexpr auto kCleanedTexts = SelectFields<[](const DevModeField& field) {
  return field.repair == Repair::Controls || field.repair == Repair::Comment;
}>();

// Where a copied text is cut when the source's has no terminator.
constexpr auto kClippedTextEnds = [] {
  constexpr auto kClipped = SelectFields<[](const DevModeField& field) {
    return IsText(field) && field.copyBound < field.width;
  }>();
  std::array<std::size_t, kClipped.size()> ends{};
  std::ranges::transform(kClipped, ends.begin(), [](const DevModeField& field) {
    return field.offset + std::size_t{field.copyBound};
  });
  return ends;
}();

struct NumberCheck {
  std::uint32_t offset, low, span, fallback;
};

constexpr auto kNumberChecks = [] {
  constexpr auto kChecked = SelectFields<[](const DevModeField& field) {
    return field.repair == Repair::Flag || field.repair == Repair::Range;
  }>();
  std::array<NumberCheck, kChecked.size()> checks{};
  std::ranges::transform(kChecked, checks.begin(), [](const DevModeField& field) {
    return NumberCheck{field.offset, field.low, field.high - field.low, field.fallback};
  });
  return checks;
}();

struct CopyRun {
  std::size_t begin, end;
};

constexpr auto kCopyRuns = [] {
  constexpr auto kStarts = [](std::size_t row) {
    return kFields[row].copyBound != 0 && kFields[row - 1].copyBound == 0;
  };
  constexpr std::size_t kCount = [kStarts] {
    std::size_t count = 0;
    for (std::size_t row = 1; row < kFields.size(); ++row) {
      count += kStarts(row);
    }
    return count;
  }();
  std::array<CopyRun, kCount> runs{};
  std::size_t run = 0;
  for (std::size_t row = 1; row < kFields.size(); ++row) {
    const DevModeField& field = kFields[row];
    if (kStarts(row)) {
      runs[run++].begin = field.offset;
    }
    if (field.copyBound != 0) {
      runs[run - 1].end = field.offset + std::size_t{field.width};
    }
  }
  return runs;
}();

constexpr unsigned char kFirstPrintable = 0x20;
constexpr std::byte kCarriageReturn{'\r'};
constexpr std::byte kLineFeed{'\n'};
constexpr std::string_view kEnterName = "EnterName";

std::uint32_t ReadDWord(const std::byte* at) noexcept {
  std::uint32_t value;
  std::memcpy(&value, at, sizeof value);
  return value;
}

void WriteDWord(std::byte* at, std::uint32_t value) noexcept {
  std::memcpy(at, &value, sizeof value);
}

// Characters before the terminator, at most `width`.
std::size_t TextLength(const std::byte* text, std::size_t width) noexcept {
  const void* end = std::memchr(text, 0, width);
  return end != nullptr ? static_cast<std::size_t>(static_cast<const std::byte*>(end) - text)
                        : width;
}

__m128i Load(const std::byte* text) noexcept {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(text));
}

// One bit for each of sixteen characters that is a control character or a terminator: both end a
// stretch of good text.
std::uint64_t ControlBits(__m128i characters) noexcept {
  const __m128i highest = _mm_set1_epi8(kFirstPrintable - 1);
  return static_cast<std::uint64_t>(
      _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_min_epu8(characters, highest), characters)));
}

bool IsControl(std::byte character) noexcept {
  return std::to_integer<unsigned char>(character) < kFirstPrintable;
}

// Length of the text up to its first control character or terminator.
std::size_t PrintableLength(const std::byte* text, std::size_t width) noexcept {
  constexpr std::size_t kStep = sizeof(__m128i);
  constexpr std::size_t kStride = 4 * kStep;
  static_assert(std::ranges::all_of(kCleanedTexts, [](auto& row) { return row.width >= kStep; }));
  std::size_t at = 0;
  for (; at + kStride <= width; at += kStride) {
    const __m128i a = Load(text + at);
    const __m128i b = Load(text + at + kStep);
    const __m128i c = Load(text + at + 2 * kStep);
    const __m128i d = Load(text + at + 3 * kStep);
    if (ControlBits(_mm_min_epu8(_mm_min_epu8(a, b), _mm_min_epu8(c, d))) != 0) {
      return at + std::countr_zero(ControlBits(a) | ControlBits(b) << kStep |
                                   ControlBits(c) << 2 * kStep | ControlBits(d) << 3 * kStep);
    }
  }
  for (; at < width; at += kStep) {
    const std::size_t begin = std::min(at, width - kStep);
    if (const std::uint64_t controls = ControlBits(Load(text + begin)); controls != 0) {
      return begin + std::countr_zero(controls);
    }
  }
  return width;
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

void TraceImpositionTemplate([[maybe_unused]] std::uint32_t value) noexcept {
  ZN_TRACE_TEXT("oemps\\devmode", "CDevMode::Merge", "m_ImpositionTemplate = %d", value);
}

}  // namespace

void CDevMode::SetDefaults() noexcept {
  for (const DevModeField& row : kFields) {
    if (!row.hasDefault) {
      continue;
    }
    if (IsText(row)) {
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
  for (const CopyRun& run : kCopyRuns) {
    std::memmove(&bytes_[run.begin], &source.bytes_[run.begin], run.end - run.begin);
  }
  ClipTexts();
}

void CDevMode::ClipTexts() noexcept {
  for (const std::size_t end : kClippedTextEnds) {
    bytes_[end] = std::byte{0};
  }
}

// A source with another header tells nothing but its two flags, and those only when it is so long.
void CDevMode::Merge(const CDevMode& source) noexcept {
  const CDevMode& carriedFrom = source.Reaches(devmode::kCarriedFlag + 4) ? source : *this;
  const std::uint32_t carriedFlag = carriedFrom.GetDWord(devmode::kCarriedFlag);
  const CDevMode& overWrittenFrom = source.Reaches(devmode::kOverWriteFlag + 4) ? source : *this;
  const std::uint32_t overWriteFlag = overWrittenFrom.GetDWord(devmode::kOverWriteFlag);
  CopyFrom(source);
  ClipTexts();  // also when nothing was copied, so that the next merge finds nothing to clip
  SetDWord(devmode::kCarriedFlag, carriedFlag);

  const std::uint32_t copiedTemplate = GetDWord(devmode::kImpositionTemplate);
  TraceImpositionTemplate(copiedTemplate);
  for (const NumberCheck& check : kNumberChecks) {
    if (GetDWord(check.offset) - check.low > check.span) {
      SetDWord(check.offset, check.fallback);
    }
  }
  for (const DevModeField& row : kCleanedTexts) {
    CutControls(&bytes_[row.offset], row.width, row.repair == Repair::Comment);
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
  return ReadDWord(bytes_.data() + offset);
}

void CDevMode::SetDWord(std::size_t offset, std::uint32_t value) noexcept {
  assert(offset + 4 <= bytes_.size());
  WriteDWord(bytes_.data() + offset, value);
}

std::string_view CDevMode::GetText(std::size_t offset) const noexcept {
  const DevModeField* row = FindDevModeField(offset);
  assert(row != nullptr && IsText(*row));
  const std::byte* text = &bytes_[offset];
  return {reinterpret_cast<const char*>(text), TextLength(text, row->width)};
}

void CDevMode::SetText(std::size_t offset, std::string_view text) noexcept {
  const DevModeField* row = FindDevModeField(offset);
  assert(row != nullptr && IsText(*row));
  const std::string_view fitting =
      text.substr(0, std::min(text.find('\0'), row->width - std::size_t{1}));
  std::byte* field = &bytes_[offset];
  std::copy(fitting.begin(), fitting.end(), reinterpret_cast<char*>(field));
  std::memset(field + fitting.size(), 0, row->width - fitting.size());
}

}  // namespace zn
