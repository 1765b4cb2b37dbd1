// The standard strings and icons of the common property sheet UI that a tree may name by number.
#pragma once

#include "platform/driver_interfaces.h"

#include <string>

namespace zn::host {

// A text, or what the number in its place stands for: a standard string, else one of `module`.
[[nodiscard]] std::string ResolveStandardString(const char* textOrNumber, HINSTANCE module);

// The place of the item's icon in the tree's image list.
[[nodiscard]] int StandardIcon(const OPTITEM& item) noexcept;

}  // namespace zn::host
