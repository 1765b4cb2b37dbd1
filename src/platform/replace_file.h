// Replacing a file in one step, so that there is always a whole one.
#pragma once

#include <string>

namespace zn {

// `from` takes the place of `to`, or gets its name when there is none. False, and both as they
// were, when that is impossible.
bool ReplaceInOneStep(const char* from, const char* to) noexcept;

// The new file until it replaces the other one; removed if it never does.
class DraftFile {
 public:
  // An empty one, whatever stood there before.
  explicit DraftFile(std::string path);
  ~DraftFile();
  DraftFile(const DraftFile&) = delete;
  DraftFile& operator=(const DraftFile&) = delete;

  [[nodiscard]] bool IsCreated() const noexcept { return isThere_; }
  [[nodiscard]] const char* Path() const noexcept { return path_.c_str(); }
  [[nodiscard]] bool Replace(const char* other) noexcept;

 private:
  std::string path_;
  bool isThere_;
};

}  // namespace zn
