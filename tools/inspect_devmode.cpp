// zninspect devmode: prints a settings block field by field, or makes one.
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "platform/unique.h"
#include "tools/block_fields.h"
#include "tools/commands.h"
#include "tools/inputs.h"

namespace zn::inspect {
namespace {

int WriteBlock(const char* path, const CDevMode& block, const Output& out) {
  UniqueFile file(std::fopen(path, "wb"));
  const bool isWritten = file && std::fwrite(&block, 1, kDevModeSize, file.get()) == kDevModeSize;
  if (!isWritten || std::fclose(file.release()) != 0) {
    return FailOnFile(out, path, "cannot be written");
  }
  return TellWritten(out, path);
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

std::string DescribeBlock(const char* path, Json& record) {
  const BlockPointer block = ReadBlock(path);
  if (!block) {
    return NoBlockMessage();
  }
  const auto repaired = std::make_unique<CDevMode>(*block);
  repaired->Merge(block.get());
  Json& fields = record["fields"] = Json::array();
  for (const DevModeField& field : DevModeFields()) {
    const std::uint32_t id = field.privateId;
    fields.push_back({{"offset", field.offset},
                      {"name", field.name},
                      {"value", ShownField(*block, field)},
                      {"id", id != 0 ? Json(id) : Json()},
                      {"note", Note(*block, *repaired, field)}});
  }
  return {};
}

int WriteDefault(const char* path, const Output& out) {
  CDevMode block{};
  block.SetDefaults();
  return WriteBlock(path, block, out);
}

using Operation = void (CDevMode::*)(const void*) noexcept;

int Apply(Operation operation, Arguments paths, const Output& out) {
  const BlockPointer source = ReadBlock(paths[0]);
  const BlockPointer destination = ReadBlock(paths[1]);
  if (!source || !destination) {
    return FailOnFile(out, paths[source ? 1 : 0], NoBlockMessage());
  }
  (destination.get()->*operation)(source.get());
  return WriteBlock(paths[2], *destination, out);
}

}  // namespace

int RunDevMode(Arguments arguments, const Output& out) {
  const std::string_view verb = arguments.empty() ? "" : arguments[0];
  if (verb == "--default" && arguments.size() == 2) {
    return WriteDefault(arguments[1], out);
  }
  if (verb == "--convert" && arguments.size() == 4) {
    return Apply(&CDevMode::CopyFrom, arguments.subspan(1), out);
  }
  if (verb == "--merge" && arguments.size() == 4) {
    return Apply(&CDevMode::Merge, arguments.subspan(1), out);
  }
  const auto isBlock = [](const std::string& path) { return ReadBlock(path.c_str()) != nullptr; };
  return DescribeEach(arguments, isBlock, &DescribeBlock, out);
}

}  // namespace zn::inspect
