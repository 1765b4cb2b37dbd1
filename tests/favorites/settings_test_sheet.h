// A sheet's settings without a sheet: an option table, a settings block and a list of papers.
#pragma once

#include <array>
#include <string_view>

#include "favorites/sheet_settings.h"

namespace zn::test {

inline constexpr auto kForms = std::to_array<std::string_view>(
    {"Postcard", "A4", "A3", "B5", "Letter", "Custom 1", "Custom 2"});

class TestSheet {
 public:
  // Every option's default and current selection is 0 or, for counts, its usual default.
  TestSheet() {
    block_.SetDefaults();
    for (const auto& [id, selection] : kCounts) {
      table_[id] = {selection, selection, selection};
    }
    settings.forms = {kForms.size(), [](std::uint32_t index) { return kForms[index]; }};
    settings.choices[KW_PAGESIZE] = kForms.size();
  }
  TestSheet(const TestSheet&) = delete;
  TestSheet& operator=(const TestSheet&) = delete;

  std::uint32_t& operator[](KeywordId id) { return table_[id].currentSelection; }
  std::uint32_t& Default(KeywordId id) { return table_[id].defaultSelection; }
  CDevMode& Block() { return block_; }
  std::uint32_t Number(std::uint32_t privateId) const {
    return block_.GetDWord(FindPrivateField(privateId)->offset);
  }
  // Of a keyword or private id.
  void Set(std::uint32_t id, std::uint32_t value) {
    if (id < KW_MAX) {
      table_[id].currentSelection = value;
    } else {
      block_.SetDWord(FindPrivateField(id)->offset, value);
    }
  }

 private:
  struct Count {
    KeywordId id;
    std::uint32_t selection;
  };
  static constexpr std::array<Count, 7> kCounts = {{{KW_COPIES, 1},
                                                    {KW_SCALE, 100},
                                                    {KW_PSLANGUAGELEVEL, 3},
                                                    {KW_CUSTOMPAPERWIDTH, 210000},
                                                    {KW_CUSTOMPAPERHEIGHT, 297000},
                                                    {KW_FORMNO, 1},
                                                    {KW_WMSELECTION, 1}}};
  OptionTable table_{};
  CDevMode block_{};

 public:
  SheetSettings settings{table_, block_, {}, {}};
};

}  // namespace zn::test
