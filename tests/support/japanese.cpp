#include "japanese.h"

#include <windows.h>

namespace zn::test {

std::string Japanese(const char* utf8) {
  wchar_t wide[512];
  char text[1024];
  ::MultiByteToWideChar(CP_UTF8, 0, utf8, -1, wide, 512);
  ::WideCharToMultiByte(932, 0, wide, -1, text, sizeof text, nullptr, nullptr);
  return text;
}

}  // namespace zn::test
