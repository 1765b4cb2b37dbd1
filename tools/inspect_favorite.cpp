// zninspect favorite, zninspect record: what a favourite file or a fresh record holds.
#include <cstdio>
#include <string>

#include "ddb/extended_option.h"
#include "ddb/password.h"
#include "ddb/tag_text.h"
#include "favorites/favorite_file.h"
#include "tools/commands.h"
#include "tools/shown_text.h"

namespace zn::inspect {
namespace {

void PrintItem(std::string_view tag, std::string_view value) {
  std::string line(tag);
  line.append(1, '=').append(EscapeControls(value)).append(1, '\n');
  std::fwrite(line.data(), 1, line.size(), stdout);
}

// The exchange serves both directions, so it wants an entry of its own.
void PrintEntry(SettingSource entry) {
  constexpr bool kRead = false;
  constexpr bool kTranslateMediaCodes = true;
  std::string value;
  std::printf("number1=%d\nnumber2=%d\nnumber3=%d\n", entry.number1, entry.number2, entry.number3);
  PrintItem("comment", entry.comment);
  PrintItem("page_size", entry.pageSizeName);
  for (const ddb::ExtendedTag& tag : ddb::kExtendedTags) {
    if (std::string_view(tag.name).starts_with("EXT_")) {
      ddb::ExchangeExtTag(tag.name, value, entry.option, kRead, kTranslateMediaCodes);
      PrintItem(tag.name, value);
    }
  }
  for (const ddb::Tag& tag : ddb::kTags) {
    if (tag.kind != ddb::kIgnored) {
      ddb::ExchangeTag(tag.name, value, entry.option, kRead, kTranslateMediaCodes);
      PrintItem(tag.name, ddb::IsPassword(tag) ? PasswordNote(value) : value);
    }
  }
}

}  // namespace

int RunFavorite(Arguments arguments) {
  const bool save = arguments.size() == 3 && std::string_view(arguments[1]) == "--save";
  if (arguments.size() != 1 && !save) {
    return Fail(kUsage, "usage: zninspect favorite FILE [--save OUT]");
  }
  CFavoriteFileManager files;
  SettingSource entry;
  if (!files.LoadFavoriteFromPath(entry, arguments[0])) {
    return Fail(kFailed, std::string("cannot load ") + arguments[0]);
  }
  if (!save) {
    PrintEntry(entry);
    return kOk;
  }
  if (!files.SaveFavoriteFromPath(entry, arguments[2])) {
    return Fail(kFailed, std::string("cannot save ") + arguments[2]);
  }
  return kOk;
}

int RunRecord(Arguments arguments) {
  if (arguments.size() != 1 || std::string_view(arguments[0]) != "--default") {
    return Fail(kUsage, "usage: zninspect record --default");
  }
  PrintEntry(SettingSource{});
  return kOk;
}

}  // namespace zn::inspect
