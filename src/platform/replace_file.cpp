#include "platform/replace_file.h"

#include <cstdio>
#include <utility>

#include "platform/unique.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace zn {

bool ReplaceInOneStep(const char* from, const char* to) noexcept {
#ifdef _WIN32
  return ::MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING) != FALSE;
#else
  return std::rename(from, to) == 0;
#endif
}

DraftFile::DraftFile(std::string path)
    : path_(std::move(path)), isThere_(UniqueFile(std::fopen(path_.c_str(), "wb")) != nullptr) {}

DraftFile::~DraftFile() {
  if (isThere_) {
    std::remove(path_.c_str());
  }
}

bool DraftFile::Replace(const char* other) noexcept {
  isThere_ = !ReplaceInOneStep(path_.c_str(), other);
  return !isThere_;
}

}  // namespace zn
