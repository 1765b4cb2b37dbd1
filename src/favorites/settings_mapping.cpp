#include "favorites/settings_mapping.h"

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>

#include "devmode/devmode.h"
#include "favorites/settings_table.h"
#include "keywords/keyword_table.h"

namespace zn {
namespace {

using settings::kRows;
using settings::kTexts;

constexpr bool IsPrivate(const SettingRow& row) {
  return row.id >= KW_MAX;
}

// Where a field lies: extended fields by their number, behind all offsets.
constexpr std::size_t PlaceOf(const ddb::RecordField& field) {
  constexpr std::size_t kBehindOffsets = 1 << 20;
  return field.IsExtended() ? kBehindOffsets + static_cast<std::size_t>(field.Extended())
                            : field.Tag().offset;
}

consteval bool EveryKeywordHasItsRow() {
  for (std::size_t i = 0; i < KW_MAX; ++i) {
    if (kRows[i].id != i) {
      return false;
    }
  }
  return true;
}
static_assert(EveryKeywordHasItsRow());

consteval bool EveryPrivateIdHasItsRow() {
  const auto rows = std::span(kRows).subspan(KW_MAX);
  const auto isPrivateId = [](std::uint16_t id) {
    return std::ranges::count(devmode::kFields, id, &DevModeField::privateId) == 1;
  };
  const auto ids =
      std::ranges::count_if(devmode::kFields, std::identity(), &DevModeField::privateId);
  return std::ssize(rows) == ids && std::ranges::all_of(rows, isPrivateId, &SettingRow::id) &&
         std::ranges::adjacent_find(rows, std::ranges::greater_equal(), &SettingRow::id) ==
             rows.end();
}
static_assert(EveryPrivateIdHasItsRow());

// One field carries one setting; only the two memo keywords share theirs, as their tags do.
consteval bool EveryFieldIsMappedOnce() {
  std::array<std::size_t, kRows.size()> places{};
  auto end = places.begin();
  for (const SettingRow& row : kRows) {
    if (row.IsMapped() && row.id != KW_MEMOMODE) {
      *end++ = PlaceOf(row.field);
    }
  }
  std::sort(places.begin(), end);
  return std::adjacent_find(places.begin(), end) == end &&
         PlaceOf(kRows[KW_MEMO].field) == PlaceOf(kRows[KW_MEMOMODE].field);
}
static_assert(EveryFieldIsMappedOnce());

// Numbers that read back as they were set, which those of flags and packed parts do not.
consteval bool EveryFieldHoldsNumbers() {
  return std::ranges::all_of(kRows, [](const SettingRow& row) {
    return row.field.IsExtended() || row.field.Tag().kind <= ddb::kTenths;
  });
}
static_assert(EveryFieldHoldsNumbers());
static_assert(std::ranges::all_of(kTexts, [](const SettingText& text) {
  return text.tag->kind == ddb::kText && devmode::IsRow(text.offset, FieldKind::Text);
}));

// What the options of the printer description stand for.
constexpr std::array<std::int32_t, 2> kResolutions = {600, 1200};

constexpr std::uint32_t kLastPunch = 13;  // as a selection and as a code

bool IsInRange(const SettingRow& row, std::uint32_t value) noexcept {
  if (!IsPrivate(row)) {
    return value >= row.low && value <= row.high;
  }
  const DevModeField* field = FindPrivateField(row.id);
  switch (field->repair) {
    case Repair::Flag:
      return value <= 1;
    case Repair::Range:
      return value >= field->low && value <= field->high;
    default:
      return true;
  }
}

std::optional<std::uint32_t> OptionCode(const SettingRow& row, std::uint32_t selection) noexcept {
  if (row.conversion == Conversion::Punch && selection == kLastPunch) {
    return kLastPunch;
  }
  std::uint32_t code = 0;
  return GetOptionCode(row.id, selection, code) ? std::optional(code) : std::nullopt;
}

std::optional<std::uint32_t> OptionIndex(const SettingRow& row, std::uint32_t code) noexcept {
  if (row.conversion == Conversion::Punch && code == kLastPunch) {
    return kLastPunch;
  }
  std::uint32_t index = 0;
  return GetOptionIndex(row.id, code, index) ? std::optional(index) : std::nullopt;
}

}  // namespace

std::span<const SettingRow> SettingRows() noexcept {
  return kRows;
}

std::span<const SettingText> SettingTexts() noexcept {
  return kTexts;
}

std::optional<std::int32_t> ValueOfSelection(const SettingRow& row,
                                             std::uint32_t selection) noexcept {
  switch (row.conversion) {
    case Conversion::None:
      return std::nullopt;
    case Conversion::Resolution:
      return selection < kResolutions.size() ? std::optional(kResolutions[selection])
                                             : std::nullopt;
    case Conversion::AsIs:
      return IsInRange(row, selection) ? std::optional(static_cast<std::int32_t>(selection))
                                       : std::nullopt;
    default:
      return OptionCode(row, selection);
  }
}

std::optional<std::uint32_t> SelectionOfValue(const SettingRow& row, std::int32_t value) noexcept {
  const auto bits = static_cast<std::uint32_t>(value);
  switch (row.conversion) {
    case Conversion::None:
      return std::nullopt;
    case Conversion::Resolution: {
      const auto* found = std::ranges::find(kResolutions, value);
      return found != kResolutions.end()
                 ? std::optional(static_cast<std::uint32_t>(found - kResolutions.begin()))
                 : std::nullopt;
    }
    case Conversion::AsIs:
      return value != row.field.NotSpecified() && IsInRange(row, bits) ? std::optional(bits)
                                                                       : std::nullopt;
    default:
      return OptionIndex(row, bits);
  }
}

}  // namespace zn
