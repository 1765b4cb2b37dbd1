// A page as data: one row per control that shows the selection of a keyword. The loops over the
// rows are those of PageFrame; a page adds only what no row can say.
#pragma once

#include <windows.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <span>

#include "pages/illustration.h"
#include "session/restriction.h"
#include "session/sheet_context.h"

namespace zn {

class PageFrame;

enum class ControlKind : std::uint8_t {
  ExtendedList,  // drop-down list whose entries may show images
  List,          // plain drop-down list
  Forms,         // plain list of the printer's paper names
  Radios,        // one radio button per option
  CheckBox,      // 1 while checked, else 0
  UpDown,        // edit with an up-down control
};

// Whether the companion module's label of the keyword replaces the template's text; for radio
// buttons also its option names.
enum class Caption : std::uint8_t { Template, Companion, CompanionColon };

// Which options of a list the installed device may lack; those carry the warning icon and can be
// chosen all the same.
enum class Installed : std::uint8_t { Always, Trays, Outputs, Staples, Punches };

// What a click on one of several radio buttons stores.
enum class RadioClick : std::uint8_t {
  Checked,           // the checked one, looked for from the last to the first
  Clicked,           // the clicked one
  ClickedIfChecked,  // the clicked one, if it reports itself checked
};

// What filling does with a selection beyond the values of the row.
enum class Misfit : std::uint8_t {
  Selected,    // selects what it says, if there is such an entry
  Unselected,  // fails after filling
  Empty,       // fails before filling
};

// How entries stand for selections; all ranges are inclusive. A list of the numbers 1 to 100 has
// first 1 and shows 1 to 100; with the entries 1 to 100 it refuses its first entry, number 0.
struct Coding {
  static constexpr std::uint32_t kAny = std::numeric_limits<std::uint32_t>::max();

  std::uint32_t first = 0;                   // the selection that entry 0 stands for
  std::uint32_t lowest = 0, highest = kAny;  // selections that are shown; others leave the control
  std::uint32_t lowestEntry = 0, highestEntry = kAny;  // entries that are stored
  Misfit misfit = Misfit::Selected;
  bool itemData = false;  // entries carry their selection as item data

  [[nodiscard]] constexpr bool Shows(std::uint32_t selection) const {
    return selection >= lowest && selection <= highest;
  }
  [[nodiscard]] constexpr bool Stores(std::uint32_t entry) const {
    return entry >= lowestEntry && entry <= highestEntry;
  }
};

// A list whose entries stand for selections of two keywords, that of the row and another one.
struct PairCoding {
  KeywordId second;
  std::span<const SelectionPair> pairs;  // by entry
  // Nothing for a pair that is not shown.
  std::optional<std::uint32_t> (*entryOf)(SelectionPair pair);
};

// Images of a list: a strip of the module, and per entry an image of it.
struct EntryImages {
  UINT strip = 0;  // 0: no images
  std::span<const std::uint8_t> fixed = {};
  std::span<const std::uint8_t> (*of)(const SheetContext& sheet) = nullptr;  // of other settings
};

// Number of entries of a list, if it is not told by the row itself.
inline constexpr std::uint32_t kSessionCount = 0;  // as many as the session has options
inline constexpr std::uint32_t kCompanionCount = std::numeric_limits<std::uint32_t>::max();

using SheetQuestion = bool (*)(const SheetContext& sheet);

// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): in the order in which rows are read
struct ControlRow {
  KeywordId keyword;
  ControlKind kind;
  int label = 0;   // static or group with the caption; 0: the control itself has it, if any
  int id = 0;      // list (the window behind its label, if that is given), check box or edit
  int arrows = 0;  // up-down control of an edit
  std::span<const int> radios = {};  // by option index
  Caption caption = Caption::Template;
  std::uint32_t entries = kSessionCount;
  EntryImages images = {};
  Installed installed = Installed::Always;
  Coding coding = {};
  const PairCoding* pairing = nullptr;  // instead of the coding
  RadioClick click = RadioClick::Checked;
  SheetQuestion usable = nullptr;   // null: always enabled
  SheetQuestion present = nullptr;  // null: always visible
  bool governs = false;             // what it says changes what the other rows show and can be used
  bool zeroWhileUnusable = false;   // its selection is 0 then
  // What another selection brings along, before the restriction check: it may change others.
  void (*follow)(PageFrame& page, std::uint32_t before) = nullptr;
  std::optional<restriction::Group> restriction = std::nullopt;
  bool redraws = false;  // the illustration shows it
  UINT tip = 0;          // string that explains the term where the mouse rests
};

struct ButtonRow {
  int id;
  void (*press)(PageFrame& page);
  bool isChange = true;             // it reports one to the sheet
  SheetQuestion present = nullptr;  // null: always visible
};

struct PageTable {
  std::span<const ControlRow> controls;  // in the order in which they are filled
  std::span<const WORD> codes;           // notification codes that are commands
  int answerToOtherCodes;
  int restoreButton;
  bool restoringIsAChange;  // it reports one to the sheet
  std::span<const ButtonRow> buttons = {};
  bool readsOnlyWhileActive = false;  // controls of a page that is not shown are not read
  bool skipsMissingControls = false;  // else filling stops at one
  std::optional<IllustrationKind> illustration = std::nullopt;
  std::span<const KeywordId> showOrder = {};  // in which Show shows the controls; else as filled
  // What follows a change of the page's settings: one that the user made, or restoring them.
  void (*changed)(PageFrame& page) = nullptr;
  std::span<const KeywordId> alsoRestored = {};  // keywords without a control here
};

}  // namespace zn
