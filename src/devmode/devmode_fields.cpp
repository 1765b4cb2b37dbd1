#include "devmode/devmode_fields.h"

#include <algorithm>

namespace zn {
namespace {

using devmode::kFields;

const DevModeField* RowOrNull(decltype(kFields)::const_iterator row) noexcept {
  return row != kFields.end() ? &*row : nullptr;
}

}  // namespace

const DevModeField* FindDevModeField(std::size_t offset) noexcept {
  return RowOrNull(std::ranges::find(kFields, offset, &DevModeField::offset));
}

const DevModeField* FindPrivateField(std::uint32_t privateId) noexcept {
  return privateId != 0 ? RowOrNull(std::ranges::find(kFields, privateId, &DevModeField::privateId))
                        : nullptr;
}

}  // namespace zn
