// The settings of a sheet as a setting source, and the way back from one.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "devmode/devmode.h"
#include "favorites/setting_source.h"
#include "favorites/settings_mapping.h"
#include "session/option_selection.h"

namespace zn {

// The paper names of a printer; the selection of the paper size is an index of this list.
struct FormList {
  std::uint32_t count = 0;
  std::string_view (*name)(std::uint32_t index) = nullptr;  // asked for indexes below count only

  [[nodiscard]] std::string_view Name(std::uint32_t index) const;  // empty beyond the list
  [[nodiscard]] std::optional<std::uint32_t> Find(std::string_view formName) const;
};

// What the conversion sees of an open sheet; owns nothing.
struct SheetSettings {
  OptionTable& options;
  CDevMode& jobValues;
  FormList forms;
  // How many choices each option offers; 0: a number, or not known.
  std::array<std::uint32_t, KW_MAX> choices{};
};

// Each fills the mapped fields of the record and the name of the paper size; the rest stays.
void TakeCurrent(SettingSource& source, const SheetSettings& sheet);
void TakeDefaults(SettingSource& source, const SheetSettings& sheet);

// How the paper size of a favourite was found.
enum class PaperMatch : std::uint8_t {
  ByName,
  Unnamed,  // a favourite of the old format: the sheet keeps its paper size
  Unknown   // the printer does not know the name: the sheet keeps its paper size
};

// Selects what the source says, for every setting that reaches as far as `reach`. What the source
// does not specify, or says by a value that is unknown or out of range, stays as it is.
PaperMatch Apply(const SettingSource& source, Reach reach, SheetSettings& sheet);

// Whether Apply would change anything.
[[nodiscard]] bool Differs(const SettingSource& source, Reach reach, const SheetSettings& sheet);

// The same for the sheet's default settings, without a record in between: for exactly the settings
// that a favourite carries.
void ApplyDefaults(SheetSettings& sheet);
[[nodiscard]] bool DiffersFromDefaults(const SheetSettings& sheet);

}  // namespace zn
