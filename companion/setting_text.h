// One line of the summary tree: the label of a setting and what a record says of it.
#pragma once

#include <cstdint>
#include <string>

#include "ddb/print_option.h"

namespace zn::companion {

// `id`: keyword id or heading; a heading and a setting that the record does not tell have no value.
[[nodiscard]] std::string SettingText(std::uint32_t id, const ddb::CPrintOption& settings);

}  // namespace zn::companion
