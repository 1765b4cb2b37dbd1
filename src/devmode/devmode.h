// The plug-in's private settings block behind the public DEVMODE: 9,328 bytes, little-endian,
// texts zero-terminated in the ANSI code page. Any application can have written the memory, so
// every read of a text is bounded by its field.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace zn {

inline constexpr std::uint32_t kDevModeSize = 9328;
inline constexpr std::uint32_t kDevModeHeaderSize = 12;
inline constexpr std::uint32_t kDevModeSignature = 0x4D534654;  // "TFSM" in memory
inline constexpr std::uint32_t kDevModeVersion = 2;

enum class FieldKind : std::uint8_t { Header, Number, Text, Reserved };

// What merging does to a bad value.
enum class Repair : std::uint8_t {
  None,
  Flag,      // forced to 0 or 1
  Range,     // low..high, else `fallback`
  Controls,  // bytes 0x01-0x1F are cut out
  Comment,   // as Controls, but CR LF pairs stay
};

// One row per field, in offset order without gaps. Lengths are in hundredths of a millimetre.
struct DevModeField {
  std::uint16_t offset;
  std::uint16_t width;  // bytes
  FieldKind kind;
  Repair repair;
  bool hasDefault;            // defaulting writes `defaultValue` (a text: empties it)
  std::uint8_t privateWidth;  // bits that a private access writes and reads: 16 or 32
  std::uint16_t copyBound;    // most bytes that a copy takes; 0: not copied
  std::uint16_t privateId;    // 4301..4355; 0: none
  std::uint32_t defaultValue;
  std::uint32_t low, high, fallback;  // of Repair::Range
  const char* name;
};

[[nodiscard]] std::span<const DevModeField> DevModeFields() noexcept;
// The row at `offset`, or of a private id; null when there is none.
[[nodiscard]] const DevModeField* FindDevModeField(std::size_t offset) noexcept;
[[nodiscard]] const DevModeField* FindPrivateField(std::uint32_t privateId) noexcept;

// Offsets of the fields that other code names.
namespace devmode {
inline constexpr std::size_t kSize = 0;
inline constexpr std::size_t kSignature = 4;
inline constexpr std::size_t kVersion = 8;
inline constexpr std::size_t kCarriedFlag = 16;
inline constexpr std::size_t kSaveTiff = 20;
inline constexpr std::size_t kTiffDpi = 24;
inline constexpr std::size_t kDeviceProfile = 360;
inline constexpr std::size_t kBookletSizeFlag = 1340;
inline constexpr std::size_t kRepeatSizeFlag = 1360;
inline constexpr std::size_t kImpositionSizeFlag = 1644;
inline constexpr std::size_t kJobNameMode = 2156;
inline constexpr std::size_t kJobName = 2160;
inline constexpr std::size_t kFavoriteName = 2416;
inline constexpr std::size_t kComment = 2444;
inline constexpr std::size_t kManagementMethod = 9112;
inline constexpr std::size_t kJobOwnerName = 9116;
inline constexpr std::size_t kJobOwnerPassword = 9149;
inline constexpr std::size_t kAccountId = 9174;
inline constexpr std::size_t kOwnerNameSource = 9208;
inline constexpr std::size_t kOverWriteFlag = 9212;
inline constexpr std::size_t kCustomCmyk = 9232;
inline constexpr std::size_t kCustomRgb = 9236;
inline constexpr std::size_t kImpositionTemplate = 9296;
}  // namespace devmode

// The block itself: usable in place on the core driver's memory (byte-aligned).
class CDevMode {
 public:
  // Writes the header and every default, but leaves the field at 9308 and the reserved bytes as the
  // buffer held them.
  void SetDefaults() noexcept;

  // The convert rule: every field but the header and the printer's authentication state. Nothing
  // is copied when the headers differ.
  void CopyFrom(const CDevMode& source) noexcept;

  // Copies, then repairs every field of this block. A block may be merged into itself.
  void Merge(const CDevMode& source) noexcept;

  // method 0 empties the three texts. `logonName` is what the system calls the user; it is used
  // unless `specify` is "EnterName". Each text is cut to its field.
  void SetAuthenticationData(std::uint32_t method, std::string_view specify, std::string_view name,
                             std::string_view password, std::string_view accountId,
                             std::string_view logonName) noexcept;

  [[nodiscard]] bool HasHeaderOf(const CDevMode& other) const noexcept;
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
  // Ends every text at the longest that a copy takes.
  void ClipTexts() noexcept;
  // Whether the block, by its own size, holds the bytes before `end`.
  [[nodiscard]] bool Reaches(std::size_t end) const noexcept;

  std::array<std::byte, kDevModeSize> bytes_;
};
static_assert(sizeof(CDevMode) == kDevModeSize && alignof(CDevMode) == 1);

}  // namespace zn
