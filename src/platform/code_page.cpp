#include "platform/code_page.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace zn {

std::uint32_t SystemCodePage() noexcept {
#ifdef _WIN32
  return ::GetACP();
#else
  return kJapaneseCodePage;  // what this system is made for
#endif
}

}  // namespace zn
