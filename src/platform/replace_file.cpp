#include "platform/replace_file.h"

#include <cstdio>

#include "platform/unique.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace zn {

bool CanCreateFile(const char* path) noexcept {
  return UniqueFile(std::fopen(path, "wb")) != nullptr;
}

bool ReplaceInOneStep(const char* from, const char* to) noexcept {
#ifdef _WIN32
  return ::MoveFileExA(from, to, MOVEFILE_REPLACE_EXISTING) != FALSE;
#else
  return std::rename(from, to) == 0;
#endif
}

}  // namespace zn
