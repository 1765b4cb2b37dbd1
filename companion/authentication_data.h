// What the authentication dialog edits: the user's data for one printer in the registry, and the
// printer's management method.
#pragma once

#include <windows.h>

#include <string>

namespace zn::companion {

struct AuthenticationData {
  // Most characters that a job can carry.
  static constexpr int kNameLimit = 32;
  static constexpr int kPasswordLimit = 24;
  static constexpr int kAccountLimit = 32;

  DWORD method = 0;  // 0: jobs carry no authentication
  bool enteredName = false;
  std::string name;
  std::string password;  // as the user types it
  std::string accountId;
};

// `printerKey` names the user's key for the printer. What cannot be read is empty.
[[nodiscard]] AuthenticationData ReadAuthenticationData(HANDLE printer, const char* printerKey);

// False when the user's values could not be written.
[[nodiscard]] bool WriteAuthenticationData(HANDLE printer, const char* printerKey,
                                           const AuthenticationData& data);

}  // namespace zn::companion
