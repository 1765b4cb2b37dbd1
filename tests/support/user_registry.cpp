#include "user_registry.h"

#include <gtest/gtest.h>

#include "platform/handles.h"

namespace zn::test {
namespace {

UniqueKey Open(const std::string& path) {
  HKEY key = nullptr;
  ::RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_ALL_ACCESS, &key);
  return UniqueKey(key);
}

using Enumerate = LSTATUS (*)(HKEY key, DWORD index, char* name, DWORD* length);

std::vector<std::string> Names(HKEY key, Enumerate enumerate) {
  std::vector<std::string> names;
  char name[1024];
  for (DWORD length = sizeof name;
       enumerate(key, static_cast<DWORD>(names.size()), name, &length) == ERROR_SUCCESS;
       length = sizeof name) {
    names.emplace_back(name, length);
  }
  return names;
}

}  // namespace

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
  for (const std::string& name : Subkeys("")) {
    EXPECT_EQ(::RegDeleteTreeA(key_, name.c_str()), ERROR_SUCCESS) << name;
  }
}

bool UserRegistry::Has(const std::string& path) const {
  return Open(path) != nullptr;
}

std::vector<std::string> UserRegistry::Subkeys(const std::string& path) const {
  return Names(Open(path).get(), [](HKEY key, DWORD index, char* name, DWORD* length) {
    return ::RegEnumKeyExA(key, index, name, length, nullptr, nullptr, nullptr, nullptr);
  });
}

std::optional<std::vector<std::string>> UserRegistry::Values(const std::string& path) const {
  const UniqueKey key = Open(path);
  if (!key) {
    return std::nullopt;
  }
  return Names(key.get(), [](HKEY opened, DWORD index, char* name, DWORD* length) {
    return ::RegEnumValueA(opened, index, name, length, nullptr, nullptr, nullptr, nullptr);
  });
}

}  // namespace zn::test
