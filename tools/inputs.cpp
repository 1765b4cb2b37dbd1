#include "tools/inputs.h"

#include <dirent.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "ddb/name_index.h"
#include "platform/unique.h"
#include "tools/shown_text.h"

namespace zn::inspect {
namespace {

using UniqueFolder = Unique<DIR*, &::closedir>;

// Sorted paths of what is in the folder; nothing when `path` is none.
std::optional<std::vector<std::string>> FilesIn(const std::string& path,
                                                bool (*understands)(const std::string& path)) {
  const UniqueFolder folder(::opendir(path.c_str()));
  if (!folder) {
    return std::nullopt;
  }
  std::vector<std::string> files;
  while (const dirent* const entry = ::readdir(folder.get())) {
    std::string file = path + '/' + entry->d_name;
    if (understands(file)) {
      files.push_back(std::move(file));
    }
  }
  std::ranges::sort(files);
  return files;
}

}  // namespace

bool HasExtension(std::string_view path, std::string_view extension) {
  return path.size() > extension.size() &&
         ddb::EqualIgnoringCase(path.substr(path.size() - extension.size()), extension);
}

int FailOnFile(const Output& out, const char* path, std::string_view message) {
  return out.Fail(kFailed, {{"file", Utf8OfWord(path)}}, Utf8OfWord(path), message);
}

int TellWritten(const Output& out, const char* path) {
  out.PutJsonOnly({{"file", Utf8OfWord(path)}});
  return kOk;
}

int DescribeEach(Arguments paths, bool (*understands)(const std::string& path), Describe describe,
                 const Output& out) {
  const auto isOption = [](std::string_view word) { return word.starts_with("--"); };
  if (paths.empty() || std::ranges::any_of(paths, isOption)) {
    return kMisused;
  }
  int code = kOk;
  for (const std::string path : paths) {
    const auto files = FilesIn(path, understands);
    for (const std::string& file : files.value_or(std::vector{path})) {
      Json record = {{"file", Utf8OfWord(file)}};
      const std::string error = describe(file.c_str(), record);
      if (error.empty()) {
        out.Put(record);
      } else {
        code = FailOnFile(out, file.c_str(), error);
      }
    }
  }
  return code;
}

}  // namespace zn::inspect
