// zninspect devmode: prints a settings block field by field, or makes one.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "ddb/password.h"
#include "devmode/devmode.h"
#include "favorites/settings_mapping.h"
#include "platform/unique.h"
#include "tools/commands.h"
#include "tools/shown_text.h"

namespace zn::inspect {
namespace {

using BlockPointer = std::unique_ptr<CDevMode>;

constexpr char kUsageText[] =
    "usage: zninspect devmode FILE | --default OUT | --convert SRC DST OUT | --merge SRC DST OUT";

// Null when the file cannot be read or is not exactly one block long.
BlockPointer ReadBlock(const char* path) {
  const UniqueFile file(std::fopen(path, "rb"));
  if (!file) {
    return nullptr;
  }
  auto block = std::make_unique<CDevMode>();
  const std::size_t size = std::fread(block.get(), 1, kDevModeSize, file.get());
  return size == kDevModeSize && std::fgetc(file.get()) == EOF ? std::move(block) : nullptr;
}

int FailToRead(const char* path) {
  return Fail(kUsage, std::string(path) + " cannot be read as a block of " +
                          std::to_string(kDevModeSize) + " bytes");
}

int WriteBlock(const char* path, const CDevMode& block) {
  UniqueFile file(std::fopen(path, "wb"));
  const bool isWritten = file && std::fwrite(&block, 1, kDevModeSize, file.get()) == kDevModeSize;
  if (!isWritten || std::fclose(file.release()) != 0) {
    return Fail(kFailed, std::string(path) + " cannot be written");
  }
  return kOk;
}

bool IsPassword(const DevModeField& field) {
  return field.offset == devmode::kJobOwnerPassword ||
         std::ranges::any_of(SettingTexts(), [&](const SettingText& text) {
           return text.offset == field.offset && ddb::IsPassword(*text.tag);
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

std::string Value(const CDevMode& block, const DevModeField& field) {
  switch (field.kind) {
    case FieldKind::Text:
      return IsPassword(field) ? PasswordNote(block.GetText(field.offset))
                               : EscapeControls(block.GetText(field.offset));
    case FieldKind::Reserved:
      return HexBytes(block.Bytes().subspan(field.offset, field.width));
    default:
      return std::to_string(block.GetDWord(field.offset));
  }
}

// What is wrong with the value; empty when nothing is. A number that repairing leaves as it is
// ("none", below the range) is not wrong.
std::string Note(const CDevMode& block, const CDevMode& repaired, const DevModeField& field) {
  if (field.kind == FieldKind::Text) {
    const std::string_view text = block.GetText(field.offset);
    std::string note = text.size() == field.width ? "not terminated" : "";
    if (text.substr(0, field.copyBound) != repaired.GetText(field.offset)) {
      note.append(note.empty() ? "" : ", ").append("has control characters");
    }
    return note;
  }
  if (field.kind == FieldKind::Header) {
    return block.GetDWord(field.offset) == field.defaultValue
               ? ""
               : "expected " + std::to_string(field.defaultValue);
  }
  if (field.kind == FieldKind::Number &&
      block.GetDWord(field.offset) != repaired.GetDWord(field.offset)) {
    return "outside " + std::to_string(field.low) + ".." + std::to_string(field.high);
  }
  return "";
}

int Print(const char* path) {
  const BlockPointer block = ReadBlock(path);
  if (!block) {
    return FailToRead(path);
  }
  const auto repaired = std::make_unique<CDevMode>(*block);
  repaired->Merge(block.get());
  for (const DevModeField& field : DevModeFields()) {
    const std::string value = Value(*block, field);
    const std::string note = Note(*block, *repaired, field);
    std::printf("%u\t%s\t", field.offset, field.name);
    std::fwrite(value.data(), 1, value.size(), stdout);
    std::printf("\t%s", field.privateId != 0 ? std::to_string(field.privateId).c_str() : "-");
    std::printf(note.empty() ? "\n" : "\t%s\n", note.c_str());
  }
  return kOk;
}

int WriteDefault(const char* path) {
  CDevMode block{};
  block.SetDefaults();
  return WriteBlock(path, block);
}

using Operation = void (CDevMode::*)(const void*) noexcept;

int Apply(Operation operation, Arguments paths) {
  const BlockPointer source = ReadBlock(paths[0]);
  if (!source) {
    return FailToRead(paths[0]);
  }
  const BlockPointer destination = ReadBlock(paths[1]);
  if (!destination) {
    return FailToRead(paths[1]);
  }
  (destination.get()->*operation)(source.get());
  return WriteBlock(paths[2], *destination);
}

}  // namespace

int RunDevMode(Arguments arguments) {
  const std::string_view verb = arguments.empty() ? "" : arguments[0];
  if (verb == "--default" && arguments.size() == 2) {
    return WriteDefault(arguments[1]);
  }
  if (verb == "--convert" && arguments.size() == 4) {
    return Apply(&CDevMode::CopyFrom, arguments.subspan(1));
  }
  if (verb == "--merge" && arguments.size() == 4) {
    return Apply(&CDevMode::Merge, arguments.subspan(1));
  }
  if (arguments.size() == 1 && !verb.starts_with("--")) {
    return Print(arguments[0]);
  }
  return Fail(kUsage, kUsageText);
}

}  // namespace zn::inspect
