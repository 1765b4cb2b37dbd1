// Looking a field up by its offset or private id.
#include "devmode/devmode_fields.h"

#include <algorithm>

namespace zn {
namespace {

using devmode::kFields;

constexpr std::uint32_t kFirstPrivateId = 4301;
constexpr std::uint32_t kLastPrivateId = 4355;
constexpr std::uint8_t kNoRow = 0xFF;
static_assert(kFields.size() < kNoRow);

constexpr auto kRowOfPrivateId = [] {
  std::array<std::uint8_t, kLastPrivateId - kFirstPrivateId + 1> rows{};
  rows.fill(kNoRow);
  for (std::size_t row = 0; row < kFields.size(); ++row) {
    if (kFields[row].privateId != 0) {
      rows[kFields[row].privateId - kFirstPrivateId] = static_cast<std::uint8_t>(row);
    }
  }
  return rows;
}();

}  // namespace

std::span<const DevModeField> DevModeFields() noexcept {
  return kFields;
}

const DevModeField* FindDevModeField(std::size_t offset) noexcept {
  const auto found = std::ranges::lower_bound(kFields, offset, {}, &DevModeField::offset);
  return found != kFields.end() && found->offset == offset ? &*found : nullptr;
}

const DevModeField* FindPrivateField(std::uint32_t privateId) noexcept {
  if (privateId < kFirstPrivateId || privateId > kLastPrivateId) {
    return nullptr;
  }
  const std::uint8_t row = kRowOfPrivateId[privateId - kFirstPrivateId];
  return row != kNoRow ? &kFields[row] : nullptr;
}

}  // namespace zn
