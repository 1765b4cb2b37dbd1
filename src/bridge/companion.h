// The companion UI module: loaded beside the core driver's files for one use, called through its
// decorated exports, and freed again. All texts are in the ANSI code page.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "ddb/print_option.h"
#include "platform/handles.h"

namespace zn {

// Label numbers of the companion module beyond the keyword ids.
namespace companion_label {
inline constexpr std::uint32_t kJobName = 353;
inline constexpr std::uint32_t kJobNameMode = 354;
inline constexpr std::uint32_t kJobNameModes = 355;  // its options are the two radio texts
inline constexpr std::uint32_t kBypass = 356;
inline constexpr std::uint32_t kFavorites = 357;
inline constexpr std::uint32_t kPaperType = 358;
inline constexpr std::uint32_t kPaperWeight = 359;
inline constexpr std::uint32_t kPaperColor = 360;
}  // namespace companion_label

inline constexpr std::size_t kLabelSize = 64;  // bytes, terminator included
inline constexpr std::size_t kOptionTextSize = 256;
inline constexpr std::size_t kCompanionPathSize = 260;

// The four text buffers of PrintOptionSetting.
struct PrintOptionSettingTexts {
  char recordName[kCompanionPathSize];
  char favoriteFolder[kCompanionPathSize];
  char driverFolder[kCompanionPathSize];
  char profile[kCompanionPathSize];  // in and out
};

// One loaded companion module. Every call is safe when the module or the export is missing: texts
// come back empty, counts 0, dialogs as cancelled.
class CompanionModule {
 public:
  // LoadPrintOptionSettingDLL: finds the module in the folder of the printer's driver.
  // `outFolder` (may be null) receives drive and folder.
  explicit CompanionModule(HANDLE printer, std::string* outFolder = nullptr) noexcept;

  explicit operator bool() const noexcept { return module_ != nullptr; }

  // The label of a keyword id or companion label; at most 63 bytes.
  [[nodiscard]] std::string GetKeywordTranslation(std::uint32_t id) const;
  // The name of one option; false when the module does not know the index.
  bool GetKeywordOption(std::uint32_t id, std::uint32_t index, std::string& text) const;
  // The names of the options 0 to count-1; a missing one is empty.
  [[nodiscard]] std::vector<std::string> GetKeywordOptionString(std::uint32_t id,
                                                                std::uint32_t count) const;
  // The number of indexes from 0 on that the module answers.
  [[nodiscard]] std::uint32_t GetKeywordOptionCount(std::uint32_t id) const;

  // The print option setting dialog; true when it was closed with OK.
  bool PrintOptionSetting(ddb::CPrintOption& working, ddb::CPrintOption& reference,
                          PrintOptionSettingTexts& texts, HWND owner) const;
  [[nodiscard]] std::vector<std::string> GetPrintOptionList(const char* filter, int capacity) const;
  void DeleteMember() const;

 private:
  UniqueModule module_;
};

}  // namespace zn
