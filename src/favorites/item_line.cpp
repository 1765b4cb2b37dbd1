#include "favorites/item_line.h"

#include <algorithm>

#include "ddb/extended_option.h"
#include "ddb/name_index.h"

namespace zn {
namespace {

constexpr std::size_t kMaxValue = 599;  // bytes; more than any value needs
constexpr std::uint32_t kEndTabs = 2;
constexpr std::size_t kSlots = 4096;  // a power of two, well above the items that a line can hold

// The name under which a reader's field is written: readers take "pg_numbr" for PG_NUMBR, so its
// item has to be found, too. Any other tag is its own name.
std::string_view WrittenName(std::string_view tag) noexcept {
  if (std::ranges::all_of(tag, [](char c) { return ddb::UpperCase(c) == c; })) {
    return tag;
  }
  const ddb::Tag* const field = ddb::FindTag(tag);
  if (field == nullptr) {
    return tag;
  }
  for (const ddb::ExtendedTag& extended : ddb::kExtendedTags) {
    if (!extended.field.IsExtended() && &extended.field.Tag() == field) {
      return extended.name;
    }
  }
  return field->name;
}

}  // namespace

bool ItemReader::ReadPrintOptionOne(Item& item) noexcept {
  const std::size_t start = std::min(line_.find_first_not_of('\t', at_), line_.size());
  at_ = start;
  item.tag = TakeTag();
  const bool hasTag = at_ < line_.size() && line_[at_] == '=';
  item.value = hasTag ? TakeValue() : std::string_view{};
  const bool ended = hasTag && at_ < line_.size() && line_[at_] == '\t';
  item.text = line_.substr(start, at_ - start);
  if (!ended && at_ < line_.size()) {
    ++at_;  // the LF
  }
  return ended;
}

// Up to the "=" or the end of the line.
std::string_view ItemReader::TakeTag() noexcept {
  const std::size_t start = at_;
  bool hasTab = false;
  for (; at_ < line_.size() && line_[at_] != '=' && line_[at_] != '\n'; ++at_) {
    hasTab = hasTab || line_[at_] == '\t';
  }
  std::string_view tag = line_.substr(start, at_ - start);
  if (hasTab) {
    std::size_t size = 0;
    for (const char c : tag) {
      if (c != '\t' && size <= ddb::kMaxTagChars) {
        tag_[size++] = c;
      }
    }
    tag = {tag_.data(), size};
  }
  return tag.size() <= ddb::kMaxTagChars ? tag : std::string_view{};
}

// From the "=" to the TAB or the end of the line.
std::string_view ItemReader::TakeValue() noexcept {
  const std::size_t start = ++at_;
  std::size_t end = start + kMaxValue;
  for (; at_ < line_.size() && line_[at_] != '\t' && line_[at_] != '\n'; ++at_) {
    if (line_[at_] == '\0') {
      end = std::min(end, at_);
    }
  }
  return line_.substr(start, std::min(end, at_) - start);
}

ItemLine::ItemLine(std::string_view old) : slots_(kSlots, kNone) {
  old = old.substr(0, old.find('\n'));
  const std::string_view kept = old.substr(0, kMaxItemLine);
  store_.reserve(2 * kItemLineSize);
  pieces_.reserve(std::size(ddb::kTags));
  ItemReader reader(kept);
  ItemReader::Item item;
  while (reader.ReadPrintOptionOne(item)) {
    const std::size_t end = std::min(kept.find_first_not_of('\t', reader.End()), kept.size());
    Add(Store(WrittenName(item.tag)), Store(item.text), end - reader.End());
  }
  // What the end of the room cut off has no whole value and must not look like an item.
  if (kept.size() < old.size() || item.text.empty()) {
    return;
  }
  if (item.text.find('=') == std::string_view::npos) {
    tail_ = Store(item.text);
    size_ += tail_.size;
  } else if (size_ + item.text.size() + kEndTabs <= kMaxItemLine) {
    Add(Store(WrittenName(item.tag)), Store(item.text), kEndTabs);
  }
}

std::string_view ItemLine::View(Range range) const noexcept {
  return std::string_view(store_).substr(range.start, range.size);
}

ItemLine::Range ItemLine::Store(std::string_view text) {
  const Range range{static_cast<std::uint32_t>(store_.size()),
                    static_cast<std::uint32_t>(text.size())};
  store_.append(text);
  return range;
}

std::size_t ItemLine::Slot(std::string_view tag) const noexcept {
  std::size_t slot = ddb::NameHash(tag) % kSlots;
  while (slots_[slot] != kNone && View(pieces_[slots_[slot]].tag) != tag) {
    slot = (slot + 1) % kSlots;
  }
  return slot;
}

ItemLine::Index ItemLine::Append(Range tag, Range text, std::size_t tabs) {
  const auto index = static_cast<Index>(pieces_.size());
  pieces_.push_back({tag, text, static_cast<std::uint32_t>(tabs), kNone});
  size_ += SizeOf(index);
  return index;
}

void ItemLine::Add(Range tag, Range text, std::size_t tabs) {
  const Index index = Append(tag, text, tabs);
  if (tag.size == 0) {
    return;
  }
  Index* link = &slots_[Slot(View(tag))];
  while (*link != kNone) {
    link = &pieces_[*link].same;
  }
  *link = index;
}

std::size_t ItemLine::SizeOf(Index piece) const noexcept {
  return pieces_[piece].text.size + pieces_[piece].tabs;
}

bool ItemLine::Place(std::string_view tag, std::string_view value) {
  const std::size_t itemSize = tag.size() + 1 + value.size();
  const std::size_t slot = Slot(tag);
  const Index first = slots_[slot];
  std::size_t size = first == kNone ? size_ + itemSize + kEndTabs : size_;
  for (Index piece = first; piece != kNone; piece = pieces_[piece].same) {
    size += itemSize - pieces_[piece].text.size;
  }
  if (size > kMaxItemLine) {
    return false;
  }
  const Range name = Store(tag);
  store_.append(1, '=').append(value);
  const Range item{name.start, static_cast<std::uint32_t>(itemSize)};
  if (first == kNone) {
    slots_[slot] = Append(name, item, kEndTabs);
    return true;
  }
  // A second item of the tag, too: its old value would have the last word at the next load.
  for (Index piece = first; piece != kNone; piece = pieces_[piece].same) {
    pieces_[piece].text = item;
  }
  size_ = size;
  return true;
}

void ItemLine::Remove(std::string_view tag) noexcept {
  for (Index piece = Find(tag); piece != kNone; piece = pieces_[piece].same) {
    size_ -= SizeOf(piece);
    pieces_[piece].tag.size = pieces_[piece].text.size = pieces_[piece].tabs = 0;
  }
}

std::string ItemLine::Text() const {
  std::string text;
  text.reserve(size_);
  for (const Piece& piece : pieces_) {
    text.append(View(piece.text)).append(piece.tabs, '\t');
  }
  return text.append(View(tail_));
}

std::string OneLine(std::string text, bool keepTabs) {
  for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at)) {
    // The CR of a line end goes with it.
    const bool pair = at > 0 && text[at - 1] == '\r';
    text.replace(at - (pair ? 1 : 0), pair ? 2 : 1, 1, ' ');
  }
  if (!keepTabs) {
    std::ranges::replace(text, '\t', ' ');
  }
  return text;
}

}  // namespace zn
