// The companion UI module: loaded beside the core driver's files for one use, called through its
// decorated exports, and freed again. All texts are in the ANSI code page.
#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "bridge/companion_abi.h"
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

inline constexpr std::size_t kCompanionPathSize = companion_abi::kPathSize;

// The four text buffers of PrintOptionSetting.
struct PrintOptionSettingTexts {
  char recordName[kCompanionPathSize];
  char favoriteFolder[kCompanionPathSize];
  char driverFolder[kCompanionPathSize];
  char profile[kCompanionPathSize];  // in and out
};

// The favourites summary dialog: what goes in, and what the user did.
struct FavoriteSummaryDialog {
  std::span<const companion_abi::FavoriteSummaryEntry> favorites;
  ddb::CPrintOption* current;
  ddb::CPrintOption* defaults;
  std::string favoriteFolder;
  std::string profile;
  HWND owner;  // the sheet
  HWND page;   // receives companion_abi::kSendTreeItemsMessage

  // In and out; unchanged when the dialog is cancelled.
  int selection = -1;  // index of the selected favourite, -1 for the standard settings
  std::string name;    // its name, without the change mark

  std::vector<std::uint8_t> deleted;  // out, per favourite: 1 when the user deleted it
};

// One loaded companion module. Every call is safe when the module or the export is missing: texts
// come back empty, counts 0, dialogs as cancelled.
class CompanionModule {
 public:
  // Finds the module in the folder of the printer's driver and loads it. `outFolder` (may be
  // null) receives drive and folder when the spooler knows the driver.
  explicit CompanionModule(HANDLE printer, std::string* outFolder = nullptr);

  explicit operator bool() const noexcept { return module_ != nullptr; }

  // The label of a keyword id or companion label; at most 63 bytes.
  [[nodiscard]] std::string GetKeywordTranslation(std::uint32_t id) const;
  // The name of one option; false, and `text` as it was, when the module does not know the index.
  bool GetKeywordOption(std::uint32_t id, std::uint32_t index, std::string& text) const;
  // The names of the options 0 to count-1; a missing one is empty.
  [[nodiscard]] std::vector<std::string> GetKeywordOptionString(std::uint32_t id,
                                                                std::uint32_t count) const;
  // The number of indexes from 0 on that the module answers.
  [[nodiscard]] std::uint32_t GetKeywordOptionCount(std::uint32_t id) const;

  // The print option setting dialog; true when it was closed with OK. On false the records may
  // still have been edited; the texts are always terminated.
  bool PrintOptionSetting(ddb::CPrintOption& working, ddb::CPrintOption& reference,
                          PrintOptionSettingTexts& texts, HWND owner) const;

  // The favourites summary dialog; true when it was closed with OK. `driverFolder` is what the
  // constructor gave.
  bool FavoriteSummary(FavoriteSummaryDialog& dialog, const std::string& driverFolder) const;

  // The names of the stored print options that end with `filter` (null: all).
  [[nodiscard]] std::vector<std::string> GetPrintOptionList(const char* filter, int capacity) const;
  void DeleteMember() const;

 private:
  template <class Function>
  Function* Find(UINT nameId, const char* caller) const;

  UniqueModule module_;
};

// Loads the module for one run of the favourites summary dialog.
bool DoModalFavoriteSummaryUI(HANDLE printer, FavoriteSummaryDialog& dialog);

// Answers kSendTreeItemsMessage: copies `items` to the companion's table behind `lParam`; the
// rows that are left become zero. Does nothing while no summary dialog is open.
void SendTreeItems(LPARAM lParam, std::span<const companion_abi::SummaryItem> items) noexcept;

}  // namespace zn
