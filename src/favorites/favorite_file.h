// Favourite files: a short header, a comment line, the item line that carries the print option
// record, and a page-size line. All lines end with LF; the text is in the ANSI code page.
//
//   1
//   0
//   0
//   Comment=for the fair
//   EXT_NUP=1		PG_NUMBR=3		PG_DUPBF=2
//   PageSize=A4
//
// Recovery: lines 3, 4 and 6 may be missing; items without "=" or without their TABs and items that
// nobody knows are skipped; saving over a file keeps the unknown ones where they stand.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "favorites/setting_source.h"

namespace zn {

inline constexpr std::size_t kMaxComment = 255;       // bytes
inline constexpr std::size_t kMaxPageSizeName = 255;  // bytes

// The key texts as the string table yields them; empty when it does not.
struct FavoriteKeys {
  std::string comment = "Comment=";
  std::string pageSize = "PageSize=";
};

class CFavoriteFileManager {
 public:
  explicit CFavoriteFileManager(FavoriteKeys keys = {});

  // True when the two mandatory lines were read; the entry is as it was otherwise. What the file
  // does not hold keeps the value it has in the entry. Of a file beyond 1 MB only that is read.
  bool LoadFavoriteFromPath(SettingSource& entry, const char* path);
  bool LoadFavoriteFromMemory(SettingSource& entry, std::string_view file) const;

  // Writes the file, keeping the unknown items of what stands there, or at `oldPath`, now. False
  // when it could not be written whole; what was written until then stays. False, and nothing
  // written, when the old file is there but cannot be read whole.
  bool SaveFavoriteFromPath(const SettingSource& entry, const char* path,
                            const char* oldPath = nullptr);

  // The text of that file; `oldFile` is what stands there now, empty when nothing does.
  [[nodiscard]] std::string SaveFavoriteToMemory(const SettingSource& entry,
                                                 std::string_view oldFile) const;

  // The item line that a new file would get, into `out`: cut to its size, always terminated.
  void WritePrintOption(const SettingSource& entry, std::span<char> out) const;

 private:
  // A view of contents_, cut at 1 MB; nothing when it cannot be read: errno is ENOENT when there is
  // no such file.
  [[nodiscard]] std::optional<std::string_view> ReadFile(const char* path);
  // What begins with the old file's item line; empty when it has none.
  [[nodiscard]] std::string_view SavePrintOptionInfo(std::string_view oldFile) const;

  FavoriteKeys keys_;
  std::vector<char> contents_;
};

}  // namespace zn
