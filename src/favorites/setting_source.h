// A setting source: a set of job settings as a print option record, with the names that go with it.
// The current settings of a sheet, its default settings and each favourite are one.
#pragma once

#include <cstdint>
#include <string>

#include "ddb/print_option.h"
#include "platform/code_page.h"

namespace zn {

struct SettingSource {
  // Of a favourite's file, which alone gives them a meaning.
  std::int32_t number1 = 0;
  std::int32_t number2 = 0;
  std::int32_t number3 = 0;  // 0 to 9
  std::string comment;
  std::string pageSizeName;
  std::string folder;
  std::string name;  // file name without extension
  ddb::CPrintOptionEx option{SystemCodePage() == kJapaneseCodePage};
};

}  // namespace zn
