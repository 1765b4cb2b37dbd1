// Stands in for the second companion module: remembers the last call of its dialog.
#include "test_authentication.h"

#include <cstring>

namespace {

zn::test::AuthenticationCall g_call{};

}  // namespace

extern "C" int OpenDialog(void* printer, char* keyName, int mayChange) {
  ++g_call.count;
  g_call.printer = printer;
  std::strncpy(g_call.keyName, keyName, sizeof g_call.keyName - 1);
  g_call.mayChange = mayChange;
  return 0;
}

extern "C" zn::test::AuthenticationCall* LastCall() {
  return &g_call;
}
