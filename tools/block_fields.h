// A settings block in a file, and its fields as they may be shown.
#pragma once

#include <memory>
#include <string>

#include "devmode/devmode.h"
#include "tools/output.h"

namespace zn::inspect {

using BlockPointer = std::unique_ptr<CDevMode>;

// Null when the file cannot be read or is not exactly one block long.
[[nodiscard]] BlockPointer ReadBlock(const char* path);
[[nodiscard]] std::string NoBlockMessage();

// A number, a text as UTF-8, the length of a password, the bytes of a reserved field.
[[nodiscard]] Json ShownField(const CDevMode& block, const DevModeField& field);

}  // namespace zn::inspect
