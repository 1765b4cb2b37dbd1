#include "companion/setting_text.h"

#include "companion/texts.h"

namespace zn::companion {

std::string SettingText(std::uint32_t id, const ddb::CPrintOption& /*settings*/) {
  const char* label = Label(static_cast<int>(id));
  return label != nullptr ? label : "";
}

}  // namespace zn::companion
