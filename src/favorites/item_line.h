// The item line of a favourite: TAG=VALUE items, each followed by two TABs. Reading it item by
// item, and rebuilding an old line so that items which nobody knows stay where they are.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ddb/tag_table.h"

namespace zn {

inline constexpr std::size_t kItemLineSize = 5000;  // bytes, terminator included
inline constexpr std::size_t kMaxItemLine = kItemLineSize - 1;

// Walks an item line. A TAB before the "=" is skipped, one behind it ends the item; the line ends
// with its LF, and text that no TAB has ended by then is no item.
class ItemReader {
 public:
  struct Item {
    std::string_view tag;    // empty when it is longer than any tag
    std::string_view value;  // cut to what a reader's buffer holds
    std::string_view text;   // the whole item as it stands, without the TABs around it
  };

  explicit ItemReader(std::string_view line) noexcept : line_(line) {}

  // False at the end of the line; `item.text` is then what no TAB has ended, its tag and value set
  // if there is a "=". `item.tag` is valid until the next call.
  bool ReadPrintOptionOne(Item& item) noexcept;

  // After the last item: the offset behind the line's LF, or of the end of the text.
  [[nodiscard]] std::size_t End() const noexcept { return at_; }

 private:
  std::string_view TakeTag() noexcept;
  std::string_view TakeValue() noexcept;

  std::string_view line_;
  std::size_t at_ = 0;
  std::array<char, ddb::kMaxTagChars + 1> tag_;  // of a tag with TABs in it
};

// An item line under construction, never longer than kMaxItemLine.
class ItemLine {
 public:
  // `old`: the line to build upon, up to its LF. What does not fit is left out, item by item.
  explicit ItemLine(std::string_view old = {});

  // Whether the line holds an item that a reader takes for this tag.
  [[nodiscard]] bool Has(std::string_view tag) const noexcept { return Find(tag) != kNone; }

  // Replaces the tag's items where they stand, or appends one. False, and nothing changed, when the
  // line would become too long.
  bool Place(std::string_view tag, std::string_view value);

  // Takes the tag's items out of the line.
  void Remove(std::string_view tag) noexcept;

  [[nodiscard]] std::string Text() const;

 private:
  using Index = std::uint16_t;
  static constexpr Index kNone = 0xFFFF;

  struct Range {  // of store_
    std::uint32_t start;
    std::uint32_t size;
  };
  struct Piece {
    Range tag;
    Range text;
    std::uint32_t tabs;  // behind it
    Index same;          // the next piece of the same tag
  };

  [[nodiscard]] std::string_view View(Range range) const noexcept;
  Range Store(std::string_view text);
  [[nodiscard]] std::size_t Slot(std::string_view tag) const noexcept;
  [[nodiscard]] Index Find(std::string_view tag) const noexcept { return slots_[Slot(tag)]; }
  // Puts a piece behind the others; Add makes it known by its tag, too.
  Index Append(Range tag, Range text, std::size_t tabs);
  void Add(Range tag, Range text, std::size_t tabs);
  [[nodiscard]] std::size_t SizeOf(Index piece) const noexcept;

  std::string store_;  // the texts of all pieces
  std::vector<Piece> pieces_;
  std::vector<Index> slots_;  // hash table over the first piece of each tag
  Range tail_{};              // old text without a "=": no item, stays at the end
  std::size_t size_ = 0;
};

// `text` with each TAB (unless `keepTabs`) and each line end as one blank.
[[nodiscard]] std::string OneLine(std::string text, bool keepTabs = false);

}  // namespace zn
