#include "favorites/favorite_tag_list.h"

#include <algorithm>
#include <array>
#include <span>

#include "favorites/settings_table.h"

namespace zn {
namespace {

// Collects tags once each, in the order of their first mention.
class TagCollector {
 public:
  constexpr void AddExtended(const ddb::ExtendedTag& row) { Add({row.name, &row, nullptr}); }

  // Every name under which a reader finds the field; one that is left out of a file would let an
  // old item of that name speak last.
  constexpr void AddField(const ddb::Tag& field) {
    for (const ddb::ExtendedTag& row : ddb::kExtendedTags) {
      if (row.IsField() && row.Field().name == field.name) {
        AddExtended(row);
      }
    }
    for (const ddb::Tag& tag : ddb::kTags) {
      if (tag.offset == field.offset && tag.kind == field.kind && !IsExtendedName(tag.name)) {
        Add({tag.name, nullptr, &tag});
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
  [[nodiscard]] constexpr const ListedTag& operator[](std::size_t i) const { return tags_[i]; }

 private:
  static constexpr bool IsExtendedName(std::string_view name) {
    return std::ranges::find(ddb::kExtendedTags, name, &ddb::ExtendedTag::name) !=
           ddb::kExtendedTags.end();
  }

  constexpr void Add(const ListedTag& tag) {
    const auto present = std::span<const ListedTag>(tags_).first(size_);
    if (std::ranges::find(present, tag.name, &ListedTag::name) == present.end()) {
      tags_[size_++] = tag;
    }
  }

  std::array<ListedTag, ddb::kTags.size()> tags_{};
  std::size_t size_ = 0;
};

consteval TagCollector CollectTags() {
  TagCollector tags;
  for (const ddb::ExtendedTag& row : ddb::kExtendedTags) {
    if (row.name.starts_with("EXT_")) {
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
  std::array<ListedTag, kCollected.Size()> list{};
  for (std::size_t i = 0; i < list.size(); ++i) {
    list[i] = kCollected[i];
  }
  return list;
}();

}  // namespace

std::span<const ListedTag> GetFavoriteTagList() noexcept {
  return kTagList;
}

}  // namespace zn
