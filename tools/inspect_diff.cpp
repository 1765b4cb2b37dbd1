// zninspect diff: what differs between two favourites, two settings blocks, or one of each.
#include <algorithm>
#include <optional>

#include "favorites/favorite_file.h"
#include "favorites/sheet_settings.h"
#include "session/session_tables.h"
#include "tools/block_fields.h"
#include "tools/commands.h"
#include "tools/inputs.h"
#include "tools/record_items.h"
#include "tools/shown_text.h"

namespace zn::inspect {
namespace {

constexpr int kDiffer = 1;

// One of the two.
struct Side {
  std::optional<SettingSource> favorite;
  BlockPointer block;
};

bool ReadSide(const char* path, Side& side) {
  if (!HasExtension(path, ".pfj")) {
    side.block = ReadBlock(path);
  }
  CFavoriteFileManager files;
  return side.block || files.LoadFavoriteFromPath(side.favorite.emplace(), path);
}

struct Differences {
  Json rows = Json::array();

  void Add(std::string_view name, Json a, Json b) {
    rows.push_back({{"name", name}, {"a", std::move(a)}, {"b", std::move(b)}});
  }
};

void CompareBlocks(const CDevMode& a, const CDevMode& b, Differences& differences) {
  for (const DevModeField& field : DevModeFields()) {
    const auto bytes = [&](const CDevMode& block) {
      return block.Bytes().subspan(field.offset, field.width);
    };
    const bool isSame = field.kind == FieldKind::Text
                            ? a.GetText(field.offset) == b.GetText(field.offset)
                            : std::ranges::equal(bytes(a), bytes(b));
    if (!isSame) {
      differences.Add(field.name, ShownField(a, field), ShownField(b, field));
    }
  }
}

void CompareItem(const RecordItem& item, SettingSource& a, SettingSource& b,
                 Differences& differences) {
  if (TextOf(item, a) != TextOf(item, b)) {
    differences.Add(NameOf(item), ShownSetting(item, a), ShownSetting(item, b));
  }
}

void CompareFavorites(SettingSource& a, SettingSource& b, Differences& differences) {
  const auto headOfB = HeadOf(b);
  for (std::size_t i = 0; const auto& [name, value] : HeadOf(a)) {
    if (const Json& other = headOfB[i++].second; value != other) {
      differences.Add(name, value, other);
    }
  }
  for (const RecordItem& item : RecordItems()) {
    if (!item.isAlias) {
      CompareItem(item, a, b, differences);
    }
  }
}

// The choices of the lists that the device supplies, as a sheet takes them from its block.
OptionTable OptionsOf(const CDevMode& block) {
  OptionTable options{};
  for (const DeviceList& list : kDeviceLists) {
    if (list.offset != 0) {
      const std::uint32_t value = block.GetDWord(list.offset);
      options[list.id].currentSelection = value - std::min<std::uint32_t>(value, list.first);
    }
  }
  return options;
}

// Whether both a block and a favourite's file say something of the item.
bool IsInBoth(const RecordItem& item) {
  if (item.text != nullptr) {
    return item.text->reach <= Reach::Favorite;
  }
  const auto isList = [&](const DeviceList& list) {
    return list.offset != 0 && list.id == item.setting->id;
  };
  return item.setting != nullptr && item.setting->reach <= Reach::Favorite &&
         (item.setting->id >= KW_MAX || std::ranges::any_of(kDeviceLists, isList));
}

// Whether applying the favourite to a sheet says something of the item: what it does not specify,
// or says by a value that is out of range, leaves the sheet as it is.
bool IsApplied(const RecordItem& item, const SettingSource& favorite) {
  return item.text != nullptr ||
         SelectionOfValue(*item.setting, item.setting->field.Get(favorite.option)).has_value();
}

void CompareWithBlock(SettingSource& favorite, CDevMode& block, bool blockIsFirst,
                      Differences& differences) {
  OptionTable options = OptionsOf(block);
  SettingSource source;
  TakeCurrent(source, {.options = options, .jobValues = block, .forms = {}});
  for (const RecordItem& item : RecordItems()) {
    if (!item.isAlias && IsInBoth(item) && IsApplied(item, favorite)) {
      CompareItem(item, blockIsFirst ? source : favorite, blockIsFirst ? favorite : source,
                  differences);
    }
  }
}

}  // namespace

int RunDiff(Arguments arguments, const Output& out) {
  if (arguments.size() != 2) {
    return kMisused;
  }
  Side sides[2];
  for (std::size_t i = 0; i < 2; ++i) {
    if (!ReadSide(arguments[i], sides[i])) {
      FailOnFile(out, arguments[i], "is neither a favourite nor a settings block");
      return kUsage;
    }
  }
  auto& [a, b] = sides;
  Differences differences;
  if (a.block && b.block) {
    CompareBlocks(*a.block, *b.block, differences);
  } else if (a.favorite && b.favorite) {
    CompareFavorites(*a.favorite, *b.favorite, differences);
  } else {
    CompareWithBlock(a.favorite ? *a.favorite : *b.favorite, a.block ? *a.block : *b.block,
                     a.block != nullptr, differences);
  }
  const bool areEqual = differences.rows.empty();
  out.PutRows({{"a", Utf8OfWord(arguments[0])},
               {"b", Utf8OfWord(arguments[1])},
               {"differences", std::move(differences.rows)}},
              "differences");
  return areEqual ? kOk : kDiffer;
}

}  // namespace zn::inspect
