// The current user's registry for the time of a test: HKEY_CURRENT_USER, for every module of the
// process, is an empty key of the test's own, gone with the object. Paths are relative to it.
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

  void CreateKey(const std::string& path) const;
  // Creates the key when it is missing. The bytes are stored as they are.
  void Set(const std::string& path, const char* value, DWORD type, const std::string& bytes) const;
  void SetText(const std::string& path, const char* value, const std::string& text) const;
  void DeleteValue(const std::string& path, const char* value) const;
  void Clear() const;

  // Whether there is the key, and the value of it.
  [[nodiscard]] bool Has(const std::string& path, const char* value = nullptr) const;

 private:
  std::string path_;
  HKEY key_ = nullptr;
};

}  // namespace zn::test
