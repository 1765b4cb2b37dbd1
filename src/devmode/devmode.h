// CDevMode: the plug-in's private settings block. Any application can have written the memory, so
// every read of a text is bounded by its field.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "devmode/devmode_fields.h"

namespace zn {

// The block itself: usable in place on the core driver's memory (byte-aligned).
class CDevMode {
 public:
  // Writes the header and every default, but leaves the field at 9308 and the reserved bytes as the
  // buffer held them.
  void SetDefaults() noexcept;

  // The convert rule: every field but the header and the printer's authentication state. Nothing
  // is copied when the headers differ. `source` is a block as its owner left it: a foreign one may
  // be shorter, so no more than its header is read unless that tells our size.
  void CopyFrom(const void* source) noexcept;

  // Copies, then repairs every field of this block. A block may be merged into itself. A source of
  // our size, but of another signature or version, tells its carried and overwrite flags only.
  void Merge(const void* source) noexcept;

  // method 0 empties the three texts. `logonName` is what the system calls the user; it is used
  // unless `specify` is "EnterName". Each text is cut to its field.
  void SetAuthenticationData(std::uint32_t method, std::string_view specify, std::string_view name,
                             std::string_view password, std::string_view accountId,
                             std::string_view logonName) noexcept;

  [[nodiscard]] bool IsCurrent() const noexcept;  // size, signature and version are ours

  [[nodiscard]] std::uint32_t GetDWord(std::size_t offset) const noexcept;
  void SetDWord(std::size_t offset, std::uint32_t value) noexcept;
  // The text at `offset`, which must be a field of kind Text; never past the field's end.
  [[nodiscard]] std::string_view GetText(std::size_t offset) const noexcept;
  // Cuts to the field and terminates; the rest of the field becomes zero.
  void SetText(std::size_t offset, std::string_view text) noexcept;

  [[nodiscard]] std::uint32_t GetTiffDPI() const noexcept { return GetDWord(devmode::kTiffDpi); }

  [[nodiscard]] std::span<const std::byte, kDevModeSize> Bytes() const noexcept { return bytes_; }
  [[nodiscard]] std::span<std::byte, kDevModeSize> Bytes() noexcept { return bytes_; }

 private:
  bool CopyFields(const CDevMode& source) noexcept;
  void RepairFields() noexcept;

  std::array<std::byte, kDevModeSize> bytes_;
};
static_assert(sizeof(CDevMode) == kDevModeSize && alignof(CDevMode) == 1);

}  // namespace zn
