// The current user's registry, empty and thrown away after the test.
#pragma once

#include <windows.h>

#include <string>

namespace zn::test {

class UserRegistry {
 public:
  UserRegistry();
  ~UserRegistry();
  UserRegistry(const UserRegistry&) = delete;
  UserRegistry& operator=(const UserRegistry&) = delete;

  static void Create(const std::wstring& path);
  static void SetText(const std::wstring& path, const char* value, const std::string& text);
  [[nodiscard]] static bool Has(const std::wstring& path);

 private:
  HKEY key_ = nullptr;
};

}  // namespace zn::test
