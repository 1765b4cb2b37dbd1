// A folder of its own for one test, removed with everything in it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

namespace zn {

class TempFolder {
 public:
  TempFolder() {
    std::random_device random;
    folder_ = std::filesystem::temp_directory_path() / ("zn" + std::to_string(random()));
    std::filesystem::create_directories(folder_);
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  [[nodiscard]] std::string Path() const { return folder_.string(); }
  [[nodiscard]] std::string Path(const std::string& name) const {
    return (folder_ / name).string();
  }

  std::string Write(const std::string& name, std::string_view bytes) const {
    std::ofstream file(folder_ / name, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    EXPECT_TRUE(file.flush()) << "cannot write " << Path(name);
    return Path(name);
  }

  [[nodiscard]] std::string Read(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    EXPECT_TRUE(file) << "cannot read " << Path(name);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace zn
