// zninspect favorite, zninspect record: what a favourite file or a fresh record holds.
#include <string>

#include "favorites/favorite_file.h"
#include "tools/commands.h"
#include "tools/inputs.h"
#include "tools/record_items.h"

namespace zn::inspect {
namespace {

constexpr const char* kNoFavorite = "cannot be loaded as a favourite";

void DescribeEntry(SettingSource& entry, Json& record) {
  for (const auto& [name, value] : HeadOf(entry)) {
    Append(record, name, value);
  }
  Json settings = Json::object();
  Json items = Json::object();
  for (const RecordItem& item : RecordItems()) {
    if (!item.isAlias && (item.setting != nullptr || item.text != nullptr)) {
      Json shown = ShownSetting(item, entry);
      if (!shown.is_null() && shown != Json("")) {
        Append(settings, NameOf(item), std::move(shown));
      }
    }
    Append(items, item.tag, ShownItem(item, TextOf(item, entry)));
  }
  Append(record, "settings", std::move(settings));
  Append(record, "items", std::move(items));
}

std::string DescribeFavorite(const char* path, Json& record) {
  static CFavoriteFileManager files;
  SettingSource entry;
  if (!files.LoadFavoriteFromPath(entry, path)) {
    return kNoFavorite;
  }
  DescribeEntry(entry, record);
  return {};
}

int Save(const char* from, const char* to, const Output& out) {
  CFavoriteFileManager files;
  SettingSource entry;
  if (!files.LoadFavoriteFromPath(entry, from)) {
    return FailOnFile(out, from, kNoFavorite);
  }
  if (!files.SaveFavoriteFromPath(entry, to)) {
    return FailOnFile(out, to, "cannot be saved");
  }
  return TellWritten(out, to);
}

}  // namespace

int RunFavorite(Arguments arguments, const Output& out) {
  if (arguments.size() == 3 && std::string_view(arguments[1]) == "--save") {
    return Save(arguments[0], arguments[2], out);
  }
  const auto isFavorite = [](const std::string& path) { return HasExtension(path, ".pfj"); };
  return DescribeEach(arguments, isFavorite, &DescribeFavorite, out);
}

int RunRecord(Arguments arguments, const Output& out) {
  if (arguments.size() != 1 || std::string_view(arguments[0]) != "--default") {
    return kMisused;
  }
  SettingSource entry;
  Json record = Json::object();
  DescribeEntry(entry, record);
  out.Put(record);
  return kOk;
}

}  // namespace zn::inspect
