// Loading and saving favourites, against general readers of key=value files on the same items.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <glib.h>
#include <ini.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "favorites/favorite_file.h"
#include "favorites/favorites_store.h"
#include "favorites/item_line.h"

namespace {

// A favourite whose item line is nearly full: the listed items and some of a newer version.
std::string FullFavorite() {
  const zn::CFavoriteFileManager files;
  const zn::SettingSource entry;
  std::string line(zn::kItemLineSize, '\0');
  files.WritePrintOption(entry, line);
  line.resize(line.find('\0'));
  for (int i = 0; line.size() < 4900; ++i) {
    line += "NEW_ITEM" + std::to_string(i) + "=" + std::to_string(i * i) + "\t\t";
  }
  return "1\n0\n0\nComment=for the spring fair\n" + line + "\nPageSize=A3 wide\n";
}

// The same items, one to a line.
std::string AsKeyFile(std::string_view favorite) {
  std::string text = "[favorite]\n";
  zn::ItemReader reader(favorite.substr(favorite.find("EXT_")));
  zn::ItemReader::Item item;
  while (reader.ReadPrintOptionOne(item)) {
    text.append(item.text).append(1, '\n');
  }
  return text;
}

void Load(benchmark::State& state) {
  const std::string file = FullFavorite();
  const zn::CFavoriteFileManager files;
  zn::SettingSource entry;
  for (auto _ : state) {
    benchmark::DoNotOptimize(files.LoadFavoriteFromMemory(entry, file));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(Load)->Name("favorites/load");

// What the basic page does for each favourite: a record of its own, too.
void LoadFresh(benchmark::State& state) {
  const std::string file = FullFavorite();
  const zn::CFavoriteFileManager files;
  for (auto _ : state) {
    zn::SettingSource entry;
    benchmark::DoNotOptimize(files.LoadFavoriteFromMemory(entry, file));
    benchmark::ClobberMemory();
  }
}
BENCHMARK(LoadFresh)->Name("favorites/load_fresh");

struct FreeKeyFile {
  void operator()(GKeyFile* file) const { g_key_file_free(file); }
};
using UniqueKeyFile = std::unique_ptr<GKeyFile, FreeKeyFile>;

UniqueKeyFile LoadKeyFile(const std::string& text) {
  UniqueKeyFile file(g_key_file_new());
  if (!g_key_file_load_from_data(file.get(), text.data(), text.size(), G_KEY_FILE_NONE, nullptr)) {
    std::abort();
  }
  return file;
}

void LoadGKeyFile(benchmark::State& state) {
  const std::string text = AsKeyFile(FullFavorite());
  for (auto _ : state) {
    benchmark::DoNotOptimize(LoadKeyFile(text));
  }
}
BENCHMARK(LoadGKeyFile)->Name("favorites/load_gkeyfile");

void LoadInih(benchmark::State& state) {
  const std::string text = AsKeyFile(FullFavorite());
  const auto take = [](void* count, const char*, const char*, const char*) {
    ++*static_cast<int*>(count);
    return 1;
  };
  for (auto _ : state) {
    int count = 0;
    if (ini_parse_string(text.c_str(), take, &count) != 0) {
      std::abort();
    }
    benchmark::DoNotOptimize(count);
  }
}
BENCHMARK(LoadInih)->Name("favorites/load_inih");

void LoadAndSave(benchmark::State& state, std::string_view oldFile, const std::string& file) {
  const zn::CFavoriteFileManager files;
  for (auto _ : state) {
    zn::SettingSource entry;
    files.LoadFavoriteFromMemory(entry, file);
    benchmark::DoNotOptimize(files.SaveFavoriteToMemory(entry, oldFile));
  }
}

void SaveFresh(benchmark::State& state) {
  LoadAndSave(state, {}, FullFavorite());
}
BENCHMARK(SaveFresh)->Name("favorites/save_fresh");

void Resave(benchmark::State& state) {
  const std::string file = FullFavorite();
  LoadAndSave(state, file, file);
}
BENCHMARK(Resave)->Name("favorites/resave");

void SaveGKeyFile(benchmark::State& state) {
  const std::string text = AsKeyFile(FullFavorite());
  for (auto _ : state) {
    const UniqueKeyFile file = LoadKeyFile(text);
    gsize size = 0;
    gchar* saved = g_key_file_to_data(file.get(), &size, nullptr);
    benchmark::DoNotOptimize(saved);
    g_free(saved);
  }
}
BENCHMARK(SaveGKeyFile)->Name("favorites/save_gkeyfile");

// A folder of full favourites, removed when the program ends.
class Folder {
 public:
  explicit Folder(int count) {
    const std::string file = FullFavorite();
    if (mkdtemp(path_) == nullptr) {
      std::abort();
    }
    for (int i = 0; i < count; ++i) {
      names_.push_back(std::string(path_) + "/favorite " + std::to_string(i) + ".pfj");
      std::ofstream(names_.back(), std::ios::binary) << file;
    }
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  [[nodiscard]] const char* Path() const { return path_; }
  [[nodiscard]] const std::vector<std::string>& Names() const { return names_; }

 private:
  char path_[32] = "/tmp/zn_favorites_XXXXXX";
  std::vector<std::string> names_;
};

// Made once for all rounds.
template <int kFiles>
const Folder& FolderOf() {
  static const Folder folder(kFiles);
  return folder;
}

template <int kFiles>
void LoadFolder(benchmark::State& state) {
  const Folder& folder = FolderOf<kFiles>();
  zn::CFavoriteFileManager files;
  for (auto _ : state) {
    for (const std::string& name : folder.Names()) {
      zn::SettingSource entry;
      benchmark::DoNotOptimize(files.LoadFavoriteFromPath(entry, name.c_str()));
    }
  }
}
BENCHMARK(LoadFolder<1000>)->Name("favorites/folder_1000");
BENCHMARK(LoadFolder<10000>)->Name("favorites/folder_10000");

// What the opening of the page waits for: the names only.
template <int kFiles>
void OpenFolder(benchmark::State& state) {
  const Folder& folder = FolderOf<kFiles>();
  for (auto _ : state) {
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(folder.Path())) {
      names.push_back(file.path().filename().string());
    }
    zn::FavoritesStore store(folder.Path(), ".pfj");
    store.SetFiles(names);
    if (store.Count() != kFiles) {
      state.SkipWithError("favourites are missing");
    }
  }
}
BENCHMARK(OpenFolder<1000>)->Name("favorites/open_1000");

template <int kFiles>
void ReadFolder(benchmark::State& state) {
  const Folder& folder = FolderOf<kFiles>();
  char bytes[8192];
  for (auto _ : state) {
    for (const std::string& name : folder.Names()) {
      const int file = open(name.c_str(), O_RDONLY);
      benchmark::DoNotOptimize(read(file, bytes, sizeof bytes));
      close(file);
    }
  }
}
BENCHMARK(ReadFolder<1000>)->Name("favorites/read_1000");

}  // namespace
