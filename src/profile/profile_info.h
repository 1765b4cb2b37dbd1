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
  static constexpr int kTrayCount = 7;
  static constexpr int kOutputCount = 5;
  static constexpr int kPaperNameCount = 20;
  static constexpr int kWatermarkCount = 100;
  static constexpr int kStapleItem = 13;  // of Items(): staples have no query of their own

  enum ItemType : std::uint32_t { kFlag = 0, kValue = 1, kReserved = 2 };

  struct Item {
    std::string key;        // reserved items: empty
    std::string value;      // flag items: the expected value; value items: the text read
    std::uint32_t type;     // ItemType
    std::uint32_t present;  // 0 or 1
  };
  using ItemTable = std::array<Item, kItemCount>;

  CProfileInfo();

  // Reads "<directory>\<name>.cps" (the separator is the platform's). A folder or an extension in
  // `name` is stripped. `ansiCodePage` picks the process's locale. Returns true when a file was
  // read; false after falling back to everything installed.
  // Of a line longer than 1 MB the rest is passed over.
  bool UpdateProfile(const char* directory, const char* name, unsigned ansiCodePage);

  // The same on a file path as it stands.
  bool ReadProfile(const char* path, unsigned ansiCodePage);

  // 1 on success, 0 on a bad argument (the output is left alone).
  // Automatic (always 1), Tray1 to Tray3, Tray6, Tray7, bypass; listcnt must be 7.
  int GetTrayConfig(std::uint32_t* list, int listcnt) const;
  // Standard (always 1), stacker tray, stacker top tray, finisher, finisher, 0; listcnt must be 5,
  // the list has room for six.
  int GetOutputConfig(std::uint32_t* list, int listcnt) const;
  // No punch (always 1), then whether there is a punch unit; listcnt at least 1.
  int GetPunchConfig(std::uint32_t* list, int listcnt) const;
  // The whole text, empty when the profile gave none. `index` from 0; an index beyond the list
  // reads the items that follow, one beyond the table is a bad argument.
  int GetCustomPaperNameConfig(std::string* text, int index) const;
  int GetWaterMarkConfig(std::string* text, int index) const;

  [[nodiscard]] const ItemTable& Items() const { return m_Item; }

 private:
  void Reset();
  bool FallBackToEverything();
  [[nodiscard]] std::uint32_t IsPresent(int item) const { return m_Item[item].present; }
  [[nodiscard]] const std::string* ValueAt(int firstItem, int index) const;

  ItemTable m_Item;
};

}  // namespace zn
