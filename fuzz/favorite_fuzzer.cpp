// Favourite files of any content: loading is safe, and what was loaded comes back from the file
// that is saved over them.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "favorites/favorite_file.h"
#include "favorites/favorite_tag_list.h"
#include "favorites/item_line.h"
#include "tests/favorites/reload_check.h"

namespace {

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

// Whether the line had room for every listed item; the rest keeps old values then.
bool IsComplete(zn::SettingSource& entry, std::string_view file) {
  for (const std::string_view tag : zn::GetFavoriteTagList()) {
    const std::string item = std::string(tag) + "=";
    if (ddb::ComesBack(tag, entry.option) && !zn::test::ListedValue(entry, tag).empty() &&
        file.find(item) == std::string_view::npos) {
      return false;
    }
  }
  return true;
}

// The same through a file.
void CheckPath(const zn::SettingSource& loaded, std::string_view file, std::string_view saved) {
  static const std::string path = "/dev/shm/zn-favorite-" + std::to_string(::getpid()) + ".pfj";
  std::ofstream(path, std::ios::binary)
      .write(file.data(), static_cast<std::streamsize>(file.size()));
  zn::CFavoriteFileManager files;
  zn::SettingSource entry;
  Require(files.LoadFavoriteFromPath(entry, path.c_str()) && entry.comment == loaded.comment);
  Require(files.SaveFavoriteFromPath(entry, path.c_str()));
  std::ifstream written(path, std::ios::binary);
  Require(std::string(std::istreambuf_iterator<char>(written), {}) == saved);
  std::array<char, zn::kItemLineSize> line;
  files.WritePrintOption(entry, line);
  Require(std::ranges::find(line, '\0') != line.end());
  std::remove(path.c_str());
}

// A file of any content: loading and saving are safe, and the lines around the items come back.
void CheckFile(std::string_view file) {
  const zn::CFavoriteFileManager files;
  zn::SettingSource entry;
  if (!files.LoadFavoriteFromMemory(entry, file)) {
    return;
  }
  Require(entry.comment.size() <= zn::kMaxComment);
  const std::string saved = files.SaveFavoriteToMemory(entry, file);
  Require(saved.size() < zn::kItemLineSize + 600);
  zn::SettingSource again;
  Require(files.LoadFavoriteFromMemory(again, saved));
  Require(again.number1 == entry.number1 && again.number2 == entry.number2 &&
          again.number3 == entry.number3 && again.comment == entry.comment &&
          again.pageSizeName == entry.pageSizeName);
  Require(files.SaveFavoriteToMemory(entry, saved) == saved);
  CheckPath(entry, file, saved);
}

// Items of any content: every listed value comes back. The last item gets its TABs here; saving
// would make an item of it that was none for the first load.
void CheckItems(std::string_view items) {
  std::string file = "0\n0\n0\nComment=\n";
  file.append(items.substr(0, items.find('\n'))).append("\t\t\n");
  const zn::CFavoriteFileManager files;
  zn::SettingSource entry;
  Require(files.LoadFavoriteFromMemory(entry, file));
  const std::string saved = files.SaveFavoriteToMemory(entry, file);
  zn::SettingSource again;
  Require(files.LoadFavoriteFromMemory(again, saved));
  if (IsComplete(entry, saved)) {
    Require(zn::test::LostSetting(entry, again).empty());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  CheckFile(text);
  CheckItems(text);
  return 0;
}
