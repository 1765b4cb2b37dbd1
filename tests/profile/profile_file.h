// A profile file in a folder of its own, removed with it.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

namespace zn::test {

class ProfileFolder {
 public:
  ProfileFolder()
      : folder_(std::filesystem::temp_directory_path() /
                ("zn_profile_" + std::to_string(std::random_device{}()))) {
    std::filesystem::create_directory(folder_);
  }
  ~ProfileFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  ProfileFolder(const ProfileFolder&) = delete;
  ProfileFolder& operator=(const ProfileFolder&) = delete;

  [[nodiscard]] std::string Path() const { return folder_.string(); }

  // The path of the written file.
  [[nodiscard]] std::string Write(std::string_view fileName, std::string_view text) const {
    const std::filesystem::path path = folder_ / fileName;
    std::ofstream(path, std::ios::binary).write(text.data(), std::ssize(text));
    return path.string();
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace zn::test
