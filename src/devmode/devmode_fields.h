// The layout of the private settings block behind the public DEVMODE: 9,328 bytes, little-endian,
// texts zero-terminated in the ANSI code page. Defaulting, copying, repairing, the private ids and
// the inspector walk this table.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

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

namespace devmode {
struct Range {
  std::uint32_t low, high, fallback;
};

// An id under which the option session reaches the field, and how many bits it moves.
struct Private {
  std::uint16_t id;
  std::uint8_t width;
};
inline constexpr Private kNoPrivate{0, 0};

inline constexpr std::uint16_t kNumberSize = 4;

constexpr DevModeField NumberRow(std::uint16_t offset, std::uint32_t defaultValue, Repair repair,
                                 Range range, Private id, const char* name) {
  return {.offset = offset,
          .width = kNumberSize,
          .kind = FieldKind::Number,
          .repair = repair,
          .hasDefault = true,
          .privateWidth = id.width,
          .copyBound = kNumberSize,
          .privateId = id.id,
          .defaultValue = defaultValue,
          .low = range.low,
          .high = range.high,
          .fallback = range.fallback,
          .name = name};
}

constexpr DevModeField Number(std::uint16_t offset, std::uint32_t defaultValue, Range range,
                              Private id, const char* name) {
  return NumberRow(offset, defaultValue, Repair::Range, range, id, name);
}

constexpr DevModeField Flag(std::uint16_t offset, Private id, const char* name) {
  return NumberRow(offset, 0, Repair::Flag, {0, 1, 1}, id, name);
}

// Any value is good.
constexpr DevModeField Free(std::uint16_t offset, Private id, const char* name) {
  return NumberRow(offset, 0, Repair::None, {0, 0xFFFFFFFF, 0}, id, name);
}

// The block's header: written by defaulting, compared by copying.
constexpr DevModeField HeaderNumber(std::uint16_t offset, std::uint32_t value, const char* name) {
  DevModeField field = Free(offset, kNoPrivate, name);
  field.kind = FieldKind::Header;
  field.defaultValue = value;
  field.copyBound = 0;
  return field;
}

// The printer's authentication state, which belongs to the destination.
constexpr DevModeField Uncopied(std::uint16_t offset, const char* name) {
  DevModeField field = Free(offset, kNoPrivate, name);
  field.copyBound = 0;
  return field;
}

// Defaulting leaves it as it is: the core driver hands a zeroed buffer, so it reads 0.
constexpr DevModeField Undefaulted(std::uint16_t offset, Range range, const char* name) {
  DevModeField field = Number(offset, 0, range, kNoPrivate, name);
  field.hasDefault = false;
  return field;
}

constexpr DevModeField Text(std::uint16_t offset, std::uint16_t width, std::uint16_t copyBound,
                            Repair repair, const char* name) {
  DevModeField field = NumberRow(offset, 0, repair, {}, kNoPrivate, name);
  field.width = width;
  field.kind = FieldKind::Text;
  field.copyBound = copyBound;
  return field;
}

constexpr DevModeField ReservedBytes(std::uint16_t offset, std::uint16_t width) {
  DevModeField field = Uncopied(offset, "reserved");
  field.width = width;
  field.kind = FieldKind::Reserved;
  field.hasDefault = false;
  return field;
}

// The choices of the device-supplied lists are named after their keyword. Those at 9244, 9248 and
// 9320 default outside their range on purpose: 0 says that nothing was chosen, until the first
// merge.
// clang-format off
inline constexpr std::array kFields{
    HeaderNumber(0, kDevModeSize, "size of the block"),
    HeaderNumber(4, kDevModeSignature, "signature"),
    HeaderNumber(8, kDevModeVersion, "version"),
    Flag(12, kNoPrivate, "flag"),
    Flag(16, kNoPrivate, "carried flag"),
    Flag(20, Private{4301, 32}, "save as TIFF"),
    Number(24, 600, {1, 1200, 600}, Private{4302, 16}, "image output resolution, dpi"),
    Number(28, 90, {0, 999, 90}, Private{4303, 16}, "hairline width"),
    Number(32, 1, {1, 500, 1}, Private{4304, 16}, "form number"),
    Number(36, 1, {1, 500, 1}, Private{4305, 16}, "form number to register"),
    Text(40, 32, 31, Repair::Controls, "user name"),
    Text(72, 32, 31, Repair::Controls, "user account"),
    Text(104, 256, 255, Repair::Controls, "user comment"),
    Text(360, 260, 259, Repair::None, "device profile"),
    Text(620, 65, 64, Repair::Controls, "form password"),
    Text(685, 259, 258, Repair::Controls, "form text"),
    Flag(944, Private{4306, 32}, "treat white as transparent"),
    Flag(948, Private{4307, 32}, "force form update"),
    Text(952, 68, 67, Repair::Controls, "memo text"),
    Flag(1020, Private{4308, 32}, "two-colour cyan"),
    Text(1024, 68, 67, Repair::Controls, "two-colour cyan name"),
    Flag(1092, Private{4309, 32}, "two-colour magenta"),
    Text(1096, 68, 67, Repair::Controls, "two-colour magenta name"),
    Flag(1164, Private{4310, 32}, "two-colour yellow"),
    Text(1168, 68, 67, Repair::Controls, "two-colour yellow name"),
    Flag(1236, Private{4311, 32}, "two-colour black"),
    Text(1240, 68, 67, Repair::Controls, "two-colour black name"),
    Free(1308, Private{4313, 16}, "number 4313"),
    Number(1312, 1, {1, 5, 1}, Private{4314, 16}, "selector 4314"),
    Number(1316, 0, {0, 1, 0}, Private{4315, 32}, "pagination start override"),
    Number(1320, 300, {100, 400, 300}, Private{4316, 16}, "ink amount limit, percent"),
    Number(1324, 1, {1, 9999, 1}, Private{4312, 16}, "pagination start number"),
    Number(1328, 16, {1, 30, 16}, Private{4326, 16}, "booklet separation count"),
    Flag(1332, Private{4327, 32}, "flag 4327"),
    Flag(1336, Private{4328, 32}, "flag 4328"),
    Flag(1340, kNoPrivate, "booklet size flag"),
    Number(1344, 29700, {1000, 33000, 29700}, Private{4329, 16}, "booklet paper width"),
    Number(1348, 42000, {1000, 66040, 42000}, Private{4330, 32}, "booklet paper height"),
    Number(1352, 0, {0, 5000, 0}, Private{4331, 16}, "booklet gutter"),
    Number(1356, 0, {0, 2500, 0}, Private{4332, 16}, "booklet margin"),
    Flag(1360, kNoPrivate, "repeat print size flag"),
    Number(1364, 29700, {1000, 33000, 29700}, Private{4333, 16}, "repeat print width"),
    Number(1368, 42000, {1000, 66040, 42000}, Private{4334, 32}, "repeat print height"),
    Number(1372, 0, {0, 24400, 0}, Private{4335, 16}, "repeat print gap, x"),
    Number(1376, 0, {0, 24400, 0}, Private{4336, 16}, "repeat print gap, y"),
    Number(1380, 0, {0, 24400, 0}, Private{4337, 16}, "repeat print margin, x"),
    Number(1384, 0, {0, 24400, 0}, Private{4338, 16}, "repeat print margin, y"),
    Text(1388, 256, 256, Repair::Controls, "imposition pages"),
    Flag(1644, kNoPrivate, "imposition size flag"),
    Number(1648, 29700, {1000, 33000, 29700}, Private{4340, 16}, "imposition paper width"),
    Number(1652, 42000, {1000, 66040, 42000}, Private{4341, 32}, "imposition paper height"),
    Number(1656, 20200, {11970, 22660, 20200}, Private{4342, 16}, "trim width"),
    Number(1660, 20200, {11970, 22660, 20200}, Private{4343, 16}, "imposition trim width"),
    Number(1664, 20200, {11970, 22660, 20200}, Private{4344, 16}, "booklet trim width"),
    Text(1668, 256, 256, Repair::Controls, "pagination pages"),
    Text(1924, 68, 67, Repair::Controls, "security password"),
    Free(1992, Private{4318, 32}, "poster width, S"),
    Free(1996, Private{4319, 32}, "poster length, S"),
    Free(2000, Private{4320, 32}, "poster width, R"),
    Free(2004, Private{4321, 32}, "poster length, R"),
    Free(2008, Private{4322, 32}, "poster width, S, tenths"),
    Free(2012, Private{4323, 32}, "poster length, S, tenths"),
    Free(2016, Private{4324, 32}, "poster width, R, tenths"),
    Free(2020, Private{4325, 32}, "poster length, R, tenths"),
    Text(2024, 132, 129, Repair::Controls, "mail address"),
    Free(2156, Private{4348, 32}, "job name mode"),
    Text(2160, 256, 256, Repair::None, "job name"),
    Text(2416, 28, 28, Repair::None, "favourite name"),
    Text(2444, 516, 515, Repair::Comment, "comment"),
    Number(2960, 2, {2, 255, 2}, Private{4351, 16}, "number 4351"),
    Number(2964, 90, {55, 350, 90}, Private{4352, 16}, "paper weight"),
    Flag(2968, Private{4353, 32}, "two-colour spot"),
    Text(2972, 513, 513, Repair::Controls, "two-colour spot names"),
    Text(3485, 513, 513, Repair::Controls, "clear toner spot colours"),
    Text(3998, 513, 513, Repair::Controls, "clear toner replaced spot colours"),
    Text(4511, 510, 510, Repair::Controls, "body paper"),
    Text(5021, 510, 510, Repair::Controls, "separator paper"),
    Text(5531, 510, 510, Repair::Controls, "front cover paper"),
    Text(6041, 510, 510, Repair::Controls, "back cover paper"),
    Text(6551, 510, 510, Repair::Controls, "booklet front paper"),
    Text(7061, 510, 510, Repair::Controls, "booklet back paper"),
    Text(7571, 510, 510, Repair::Controls, "insert paper"),
    Text(8081, 510, 510, Repair::Controls, "insert front paper"),
    Text(8591, 510, 510, Repair::Controls, "insert back paper"),
    ReservedBytes(9101, 3),
    Number(9104, 0, {0, 2, 0}, Private{4354, 32}, "save format"),
    Number(9108, 128, {0, 255, 128}, Private{4355, 32}, "QR warning threshold"),
    Uncopied(9112, "management method"),
    Text(9116, 33, 32, Repair::Controls, "job owner name"),
    Text(9149, 25, 24, Repair::Controls, "job owner password"),
    Text(9174, 34, 32, Repair::Controls, "account ID"),
    Uncopied(9208, "owner name source"),
    Uncopied(9212, "overwrite flag"),
    Number(9216, 0, {0, 100, 0}, kNoPrivate, "ZNUserCurveImage"),
    Number(9220, 0, {0, 100, 0}, kNoPrivate, "ZNDensityAdjustmentImage"),
    Number(9224, 0, {0, 100, 0}, kNoPrivate, "ZNUserCurveCharacter"),
    Number(9228, 0, {0, 100, 0}, kNoPrivate, "ZNDensityAdjustmentCharacter"),
    Number(9232, 0, {1, 100, 0}, kNoPrivate, "custom CMYK simulation"),
    Number(9236, 0, {1, 100, 0}, kNoPrivate, "custom RGB colour correction"),
    Number(9240, 0, {0, 100, 0}, kNoPrivate, "ZNRGBOutputProfile"),
    Number(9244, 0, {1, 500, 1}, kNoPrivate, "ZNFormNo"),
    Number(9248, 0, {1, 100, 1}, kNoPrivate, "ZNWMSelection"),
    Number(9252, 0, {0, 100, 0}, kNoPrivate, "ZNImageCalibration"),
    Number(9256, 0, {0, 100, 0}, kNoPrivate, "ZNCharacterCalibration"),
    Number(9260, 0, {0, 99, 0}, kNoPrivate, "ZNProfileForPrinter"),
    Number(9264, 0, {0, 99, 0}, kNoPrivate, "ZNProfileRGBForImage"),
    Number(9268, 0, {0, 99, 0}, kNoPrivate, "ZNProfileRGBForChar"),
    Number(9272, 0, {0, 99, 0}, kNoPrivate, "ZNProfileRGBForImageChar"),
    Number(9276, 0, {0, 99, 0}, kNoPrivate, "ZNProfileCMYKForImage"),
    Number(9280, 0, {0, 99, 0}, kNoPrivate, "ZNProfileCMYKForChar"),
    Number(9284, 0, {0, 99, 0}, kNoPrivate, "ZNProfileCMYKForImageChar"),
    Number(9288, 0, {0, 99, 0}, kNoPrivate, "ZNAutoTrappingSetupFile"),
    Number(9292, 0, {0, 100, 0}, kNoPrivate, "ZNAutoTrappingProcess"),
    Number(9296, 0, {0, 499, 0}, kNoPrivate, "ZNImpositionTemplateFile"),
    Number(9300, 0, {0, 99, 0}, kNoPrivate, "ZNProfileForPDFPreflight"),
    Number(9304, 0, {0, 99, 0}, kNoPrivate, "ZNPaginationTemplateFile"),
    Undefaulted(9308, {0, 99, 0}, "ZNImpositionPaginationTempFile"),
    Number(9312, 0, {0, 101, 0}, kNoPrivate, "ZNSpotColorCorrectionProfile"),
    Number(9316, 0, {0, 100, 0}, kNoPrivate, "ZNReplaceColor"),
    Number(9320, 0, {1, 100, 1}, kNoPrivate, "ZNClearProcessRegisterdPattern"),
    Number(9324, 0, {0, 100, 0}, kNoPrivate, "ZNPerfectBinder"),
};
// clang-format on

constexpr bool RowsAreContiguous() {
  std::size_t end = 0;
  for (const DevModeField& field : kFields) {
    if (field.offset != end || field.copyBound > field.width) {
      return false;
    }
    end += field.width;
  }
  return end == kDevModeSize;
}
static_assert(RowsAreContiguous());

constexpr bool IsRow(std::size_t offset, FieldKind kind) {
  const auto* row = std::ranges::find(kFields, offset, &DevModeField::offset);
  return row != kFields.end() && row->kind == kind;
}

// The offsets of rows that other code names; one that begins no row of that kind does not compile.
consteval std::size_t RowAt(std::size_t offset, FieldKind kind) {
  return IsRow(offset, kind) ? offset : throw "no such row";
}
inline constexpr std::size_t kSize = RowAt(0, FieldKind::Header);
inline constexpr std::size_t kSignature = RowAt(4, FieldKind::Header);
inline constexpr std::size_t kVersion = RowAt(8, FieldKind::Header);
inline constexpr std::size_t kCarriedFlag = RowAt(16, FieldKind::Number);
inline constexpr std::size_t kTiffDpi = RowAt(24, FieldKind::Number);
inline constexpr std::size_t kDeviceProfile = RowAt(360, FieldKind::Text);
inline constexpr std::size_t kBookletSizeFlag = RowAt(1340, FieldKind::Number);
inline constexpr std::size_t kRepeatSizeFlag = RowAt(1360, FieldKind::Number);
inline constexpr std::size_t kImpositionSizeFlag = RowAt(1644, FieldKind::Number);
inline constexpr std::size_t kJobNameMode = RowAt(2156, FieldKind::Number);
inline constexpr std::size_t kJobName = RowAt(2160, FieldKind::Text);
inline constexpr std::size_t kFavoriteName = RowAt(2416, FieldKind::Text);
inline constexpr std::size_t kComment = RowAt(2444, FieldKind::Text);
inline constexpr std::size_t kManagementMethod = RowAt(9112, FieldKind::Number);
inline constexpr std::size_t kJobOwnerName = RowAt(9116, FieldKind::Text);
inline constexpr std::size_t kJobOwnerPassword = RowAt(9149, FieldKind::Text);
inline constexpr std::size_t kAccountId = RowAt(9174, FieldKind::Text);
inline constexpr std::size_t kOwnerNameSource = RowAt(9208, FieldKind::Number);
inline constexpr std::size_t kOverWriteFlag = RowAt(9212, FieldKind::Number);
inline constexpr std::size_t kCustomCmyk = RowAt(9232, FieldKind::Number);
inline constexpr std::size_t kCustomRgb = RowAt(9236, FieldKind::Number);
inline constexpr std::size_t kImpositionTemplate = RowAt(9296, FieldKind::Number);
}  // namespace devmode

// The rows of the table.
[[nodiscard]] constexpr std::span<const DevModeField> DevModeFields() noexcept {
  return devmode::kFields;
}
// The row at `offset`, or of a private id; null when there is none.
[[nodiscard]] const DevModeField* FindDevModeField(std::size_t offset) noexcept;
[[nodiscard]] const DevModeField* FindPrivateField(std::uint32_t privateId) noexcept;

}  // namespace zn
