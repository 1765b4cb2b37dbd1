#include "user_registry.h"

#include <gtest/gtest.h>

namespace zn::test {
namespace {

constexpr char kPath[] = "Software\\ZnTest\\oemps";

}  // namespace

UserRegistry::UserRegistry() {
  ::RegDeleteTreeA(HKEY_CURRENT_USER, kPath);
  EXPECT_EQ(::RegCreateKeyA(HKEY_CURRENT_USER, kPath, &key_), ERROR_SUCCESS);
  EXPECT_EQ(::RegOverridePredefKey(HKEY_CURRENT_USER, key_), ERROR_SUCCESS);
}

UserRegistry::~UserRegistry() {
  ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
  ::RegCloseKey(key_);
  ::RegDeleteTreeA(HKEY_CURRENT_USER, kPath);
}

void UserRegistry::Create(const std::wstring& path) {
  HKEY key = nullptr;
  ASSERT_EQ(::RegCreateKeyW(HKEY_CURRENT_USER, path.c_str(), &key), ERROR_SUCCESS);
  ::RegCloseKey(key);
}

void UserRegistry::SetText(const std::wstring& path, const char* value, const std::string& text) {
  HKEY key = nullptr;
  ASSERT_EQ(::RegCreateKeyW(HKEY_CURRENT_USER, path.c_str(), &key), ERROR_SUCCESS);
  ::RegSetValueExA(key, value, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>(text.size() + 1));
  ::RegCloseKey(key);
}

bool UserRegistry::Has(const std::wstring& path) {
  HKEY key = nullptr;
  const bool found = ::RegOpenKeyW(HKEY_CURRENT_USER, path.c_str(), &key) == ERROR_SUCCESS;
  ::RegCloseKey(key);
  return found;
}

}  // namespace zn::test
