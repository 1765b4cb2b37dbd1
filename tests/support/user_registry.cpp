#include "user_registry.h"

#include <gtest/gtest.h>

namespace zn::test {
UserRegistry::UserRegistry()
    : path_("Software\\ZnTest\\" + std::to_string(::GetCurrentProcessId())) {
  ::RegDeleteTreeA(HKEY_CURRENT_USER, path_.c_str());
  EXPECT_EQ(::RegCreateKeyA(HKEY_CURRENT_USER, path_.c_str(), &key_), ERROR_SUCCESS);
  EXPECT_EQ(::RegOverridePredefKey(HKEY_CURRENT_USER, key_), ERROR_SUCCESS);
}

UserRegistry::~UserRegistry() {
  EXPECT_EQ(::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr), ERROR_SUCCESS);
  ::RegCloseKey(key_);
  ::RegDeleteTreeA(HKEY_CURRENT_USER, path_.c_str());
}

void UserRegistry::CreateKey(const std::string& path) const {
  HKEY key = nullptr;
  EXPECT_EQ(::RegCreateKeyA(HKEY_CURRENT_USER, path.c_str(), &key), ERROR_SUCCESS) << path;
  ::RegCloseKey(key);
}

void UserRegistry::Set(const std::string& path, const char* value, DWORD type,
                       const std::string& bytes) const {
  EXPECT_EQ(::RegSetKeyValueA(HKEY_CURRENT_USER, path.c_str(), value, type, bytes.data(),
                              static_cast<DWORD>(bytes.size())),
            ERROR_SUCCESS);
}

void UserRegistry::SetText(const std::string& path, const char* value,
                           const std::string& text) const {
  Set(path, value, REG_SZ, text + '\0');
}

void UserRegistry::DeleteValue(const std::string& path, const char* value) const {
  EXPECT_EQ(::RegDeleteKeyValueA(HKEY_CURRENT_USER, path.c_str(), value), ERROR_SUCCESS) << value;
}

void UserRegistry::Clear() const {
  EXPECT_EQ(::RegDeleteTreeA(key_, nullptr), ERROR_SUCCESS);
}

bool UserRegistry::Has(const std::string& path, const char* value) const {
  HKEY key = nullptr;
  const bool found =
      ::RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) == ERROR_SUCCESS;
  const bool holds = value == nullptr || ::RegQueryValueExA(key, value, nullptr, nullptr, nullptr,
                                                            nullptr) == ERROR_SUCCESS;
  ::RegCloseKey(key);
  return found && holds;
}

}  // namespace zn::test
