// What the stand-in for the second companion module tells about the calls of its dialog.
#pragma once

namespace zn::test {

struct AuthenticationCall {
  int count;
  void* printer;
  char keyName[1024];
  int mayChange;
};

using LastCallFunction = AuthenticationCall*();

}  // namespace zn::test
