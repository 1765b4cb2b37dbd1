#include "favorites/favorite_tag_list.h"

#include <algorithm>
#include <array>
#include <span>

#include "ddb/extended_option.h"
#include "favorites/settings_table.h"

namespace zn {
namespace {

// Collects tags once each, in the order of their first mention.
class TagCollector {
 public:
  constexpr void AddExtended(std::size_t row) {
    Add(ddb::kExtendedTags[row].name, seenExtended_[row]);
  }

  // Every name under which a reader finds the field: an old item of a name that is left out would
  // have the last word at the next load.
  constexpr void AddField(const ddb::Tag& field) {
    for (std::size_t row = 0; row < ddb::kExtendedTags.size(); ++row) {
      const ddb::RecordField& extended = ddb::kExtendedTags[row].field;
      if (!extended.IsExtended() && extended.Tag().name == std::string_view(field.name)) {
        AddExtended(row);
      }
    }
    // Tags of one field stand side by side.
    const std::size_t row = &field - ddb::kTags.data();
    for (std::size_t i = row - (row > 0); i < std::min(row + 2, ddb::kTags.size()); ++i) {
      const ddb::Tag& tag = ddb::kTags[i];
      if (tag.offset == field.offset && tag.kind == field.kind && !IsExtendedName(tag.name)) {
        Add(tag.name, seenTags_[i]);
      }
    }
  }

  constexpr void AddSettings(Reach reach) {
    for (const SettingRow& row : settings::kRows) {
      if (row.IsMapped() && row.reach == reach && !row.field.IsExtended()) {
        AddField(row.field.Tag());
      }
    }
  }

  [[nodiscard]] constexpr std::size_t Size() const { return size_; }
  [[nodiscard]] constexpr std::string_view operator[](std::size_t i) const { return list_[i]; }

 private:
  constexpr void Add(std::string_view name, bool& seen) {
    if (!seen) {
      seen = true;
      list_[size_++] = name;
    }
  }

  static constexpr bool IsExtendedName(std::string_view name) {
    return std::ranges::find(ddb::kExtendedTags, name, &ddb::ExtendedTag::name) !=
           ddb::kExtendedTags.end();
  }

  std::array<std::string_view, ddb::kTags.size()> list_{};
  std::size_t size_ = 0;
  std::array<bool, ddb::kTags.size()> seenTags_{};
  std::array<bool, ddb::kExtendedTags.size()> seenExtended_{};
};

consteval TagCollector CollectTags() {
  TagCollector tags;
  for (std::size_t row = 0; row < ddb::kExtendedTags.size(); ++row) {
    if (ddb::kExtendedTags[row].name.starts_with("EXT_")) {
      tags.AddExtended(row);
    }
  }
  // What a page can change comes before the rest: a line that is full ends the list.
  tags.AddSettings(Reach::Page);
  tags.AddSettings(Reach::Favorite);
  for (const SettingText& text : settings::kTexts) {
    if (text.reach == Reach::Favorite) {
      tags.AddField(*text.tag);
    }
  }
  return tags;
}

constexpr auto kTagList = [] {
  constexpr TagCollector kCollected = CollectTags();
  std::array<std::string_view, kCollected.Size()> list{};
  for (std::size_t i = 0; i < list.size(); ++i) {
    list[i] = kCollected[i];
  }
  return list;
}();

static_assert(std::ranges::none_of(kTagList, [](std::string_view tag) {
  return std::ranges::find(kNeverWritten, tag) != kNeverWritten.end();
}));

}  // namespace

std::span<const std::string_view> GetFavoriteTagList() noexcept {
  return kTagList;
}

}  // namespace zn
