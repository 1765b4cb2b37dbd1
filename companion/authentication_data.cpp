#include "companion/authentication_data.h"

#include <winspool.h>

#include <array>

#include "ddb/password.h"
#include "platform/handles.h"

namespace zn::companion {
namespace {

constexpr char kEnterName[] = "EnterName";
constexpr char kLoginName[] = "LoginName";
constexpr char kMethodValue[] = "ManageMethod";
constexpr char kMethodKey[] = "PrinterDriverData";
constexpr DWORD kMaxValue = 256;  // bytes that readers of the values provide

// The text values of the user's key.
struct TextValue {
  const char* name;
  std::string AuthenticationData::*field;
};
constexpr TextValue kTextValues[] = {
    {"JobOwnerName_User", &AuthenticationData::name},
    {"JobOwnerNamePassword_User", &AuthenticationData::password},
    {"AccountID_User", &AuthenticationData::accountId},
};
constexpr char kSpecifyValue[] = "SpecifyJobOwnerName_User";

std::string UserInfoPath(const char* printerKey) {
  return std::string("Software\\Zentrik\\ZN Print Driver Data\\") + printerKey + "\\UserInfo";
}

std::string ReadText(HKEY key, const char* name) {
  std::array<char, kMaxValue + 1> text{};
  DWORD size = kMaxValue;
  if (::RegGetValueA(key, nullptr, name, RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
      ERROR_SUCCESS) {
    return {};
  }
  return text.data();
}

bool WriteText(HKEY key, const char* name, const std::string& text) {
  return ::RegSetValueExA(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>(text.size() + 1)) == ERROR_SUCCESS;
}

DWORD ReadMethod(HANDLE printer) {
  DWORD method = 0;
  DWORD type = 0;
  DWORD need = 0;
  return ::GetPrinterDataExA(printer, kMethodKey, kMethodValue, &type,
                             reinterpret_cast<BYTE*>(&method), sizeof method,
                             &need) == ERROR_SUCCESS
             ? method & 0xFF
             : 0;
}

}  // namespace

AuthenticationData ReadAuthenticationData(HANDLE printer, const char* printerKey) {
  AuthenticationData data;
  data.method = ReadMethod(printer);
  HKEY opened = nullptr;
  if (::RegOpenKeyExA(HKEY_CURRENT_USER, UserInfoPath(printerKey).c_str(), 0, KEY_READ, &opened) !=
      ERROR_SUCCESS) {
    return data;
  }
  const UniqueKey key(opened);
  data.enteredName = ReadText(key.get(), kSpecifyValue) == kEnterName;
  for (const TextValue& value : kTextValues) {
    data.*value.field = ReadText(key.get(), value.name);
  }
  ddb::UnscramblePassword(data.password);
  return data;
}

bool WriteAuthenticationData(HANDLE printer, const char* printerKey,
                             const AuthenticationData& data) {
  HKEY created = nullptr;
  if (::RegCreateKeyExA(HKEY_CURRENT_USER, UserInfoPath(printerKey).c_str(), 0, nullptr, 0,
                        KEY_WRITE, nullptr, &created, nullptr) != ERROR_SUCCESS) {
    return false;
  }
  const UniqueKey key(created);
  AuthenticationData stored = data;
  ddb::ScramblePassword(stored.password);
  bool written = WriteText(key.get(), kSpecifyValue, data.enteredName ? kEnterName : kLoginName) &&
                 WriteText(key.get(), kMethodValue, std::to_string(data.method));
  for (const TextValue& value : kTextValues) {
    written = written && WriteText(key.get(), value.name, stored.*value.field);
  }
  // The printer's own value needs administrator rights; without them the method stays.
  ::SetPrinterDataExA(printer, kMethodKey, kMethodValue, REG_DWORD,
                      reinterpret_cast<BYTE*>(&stored.method), sizeof stored.method);
  return written;
}

}  // namespace zn::companion
