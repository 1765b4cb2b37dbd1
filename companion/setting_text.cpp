#include "companion/setting_text.h"

#include <algorithm>
#include <optional>

#include "companion/texts.h"
#include "favorites/settings_mapping.h"
#include "keywords/keyword_ids.h"

namespace zn::companion {
namespace {

// The selection that the record holds for a setting. Of a record that another module made only the
// body is known here, so settings in its extension stay untold.
std::optional<std::uint32_t> Selection(std::uint32_t id, const ddb::CPrintOption& settings) {
  const auto rows = SettingRows();
  const auto row = std::ranges::find(rows, id, &SettingRow::id);
  if (row == rows.end() || !row->IsMapped() || row->field.IsExtended()) {
    return std::nullopt;
  }
  return SelectionOfValue(*row, ddb::GetInteger(settings.m_Body, row->field.Tag()));
}

std::string SelectionName(std::uint32_t id, std::uint32_t selection) {
  const auto names = OptionNames(static_cast<int>(id));
  if (names.empty()) {
    return std::to_string(selection);  // copies and the like
  }
  // Watermarks are numbered from 1.
  const std::size_t index = id == KW_WMSELECTION ? selection - std::size_t{1} : selection;
  return index < names.size() ? names[index] : "";
}

}  // namespace

std::string SettingText(std::uint32_t id, const ddb::CPrintOption& settings) {
  const char* label = Label(static_cast<int>(id));
  std::string text = label != nullptr ? label : "";
  if (const auto selection = Selection(id, settings)) {
    const std::string name = SelectionName(id, *selection);
    if (!name.empty()) {
      text.append(": ").append(name);
    }
  }
  return text;
}

}  // namespace zn::companion
