// CProfileInfo: what the device profile (".cps") says about trays, finishers, outputs, paper names,
// watermarks and trapping profiles, and the questions that the pages ask of it.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace zn {

class CProfileInfo {
 public:
  static constexpr int kItemCount = 256;

  struct Item {
    std::string key;
    std::string value;      // flag items: the expected value; value items: the text read
    std::uint32_t type;     // 0 flag, 1 value
    std::uint32_t present;  // 0 or 1
  };

  CProfileInfo();

  // Reads "<directory>\<name>.cps" (the separator is the platform's). A folder or an extension in
  // `name` is stripped. `ansiCodePage` picks the process's locale. Returns true when a file was
  // read; false after falling back to everything installed.
  bool UpdateProfile(const char* directory, const char* name, unsigned ansiCodePage);

  // The same on a file path as it stands.
  bool ReadProfile(const char* path, unsigned ansiCodePage);

  // 1 on success, 0 on a bad argument (the list is left alone).
  int GetTrayConfig(std::uint32_t* list, int listcnt) const;    // listcnt must be 7
  int GetOutputConfig(std::uint32_t* list, int listcnt) const;  // listcnt 5; writes six values
  int GetPunchConfig(std::uint32_t* list, int listcnt) const;   // listcnt at least 1
  int GetCustomPaperNameConfig(std::string* text, int index) const;
  int GetWaterMarkConfig(std::string* text, int index) const;

  [[nodiscard]] const std::array<Item, kItemCount>& Items() const { return m_Item; }

 private:
  std::array<Item, kItemCount> m_Item;
};

}  // namespace zn
