#include "tools/block_fields.h"

#include <algorithm>
#include <cstdio>
#include <span>

#include "favorites/settings_mapping.h"
#include "platform/unique.h"
#include "tools/shown_text.h"

namespace zn::inspect {
namespace {

bool IsPasswordField(const DevModeField& field) {
  return field.offset == devmode::kJobOwnerPassword ||
         std::ranges::any_of(SettingTexts(), [&](const SettingText& text) {
           return text.offset == field.offset && IsPassword(*text.tag);
         });
}

std::string HexBytes(std::span<const std::byte> bytes) {
  std::string shown;
  for (const std::byte byte : bytes) {
    char hex[4];
    std::snprintf(hex, sizeof hex, "%02X ", std::to_integer<unsigned>(byte));
    shown += hex;
  }
  shown.pop_back();
  return shown;
}

}  // namespace

BlockPointer ReadBlock(const char* path) {
  const UniqueFile file(std::fopen(path, "rb"));
  if (!file) {
    return nullptr;
  }
  auto block = std::make_unique<CDevMode>();
  const std::size_t size = std::fread(block.get(), 1, kDevModeSize, file.get());
  return size == kDevModeSize && std::fgetc(file.get()) == EOF ? std::move(block) : nullptr;
}

std::string NoBlockMessage() {
  return "cannot be read as a block of " + std::to_string(kDevModeSize) + " bytes";
}

Json ShownField(const CDevMode& block, const DevModeField& field) {
  switch (field.kind) {
    case FieldKind::Text: {
      const std::string_view text = block.GetText(field.offset);
      return IsPasswordField(field) ? PasswordNote(text) : Utf8(text);
    }
    case FieldKind::Reserved:
      return HexBytes(block.Bytes().subspan(field.offset, field.width));
    default:
      return block.GetDWord(field.offset);
  }
}

}  // namespace zn::inspect
