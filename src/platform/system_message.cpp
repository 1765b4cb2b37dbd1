#include "platform/system_message.h"

#include "platform/handles.h"

namespace zn {

std::string SystemMessage(DWORD error) {
  char* text = nullptr;
  ::FormatMessageA(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, error, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<char*>(&text), 0,
      nullptr);
  const Unique<char*, &::LocalFree> owner(text);
  return text != nullptr ? text : "";
}

}  // namespace zn
