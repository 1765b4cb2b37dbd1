// A compile-time index over the names of a table: finds in one or two steps the row that an ordered
// search would find first.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ddb {

constexpr char UpperCase(char c) noexcept {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

constexpr bool EqualIgnoringCase(std::string_view a, std::string_view b) noexcept {
  if (a == b) {
    return true;
  }
  if (a.size() != b.size()) {
    return false;
  }
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (UpperCase(a[i]) != UpperCase(b[i])) {
      return false;
    }
  }
  return true;
}

// Tags differ in length, in their family's letters and at their ends; names that differ in case
// only have one hash.
constexpr std::uint32_t NameHash(std::string_view name) noexcept {
  const auto size = static_cast<std::uint32_t>(name.size());
  if (size == 0) {
    return 0;
  }
  const auto letter = [&](std::uint32_t i) -> std::uint32_t {
    constexpr unsigned kFoldCase = 0xDF;
    return static_cast<unsigned char>(name[i < size ? i : size - 1]) & kFoldCase;
  };
  // A sum: its products do not wait for one another.
  const std::uint32_t hash = size * 0x9E3779B1U + letter(size - 1) * 0x85EBCA6BU +
                             letter(size - 2) * 0xC2B2AE35U + letter(size - 3) * 0x27D4EB2FU +
                             letter(size / 2) * 0x165667B1U + letter(4) * 0xD3A2646DU +
                             letter(3) * 0xFD7046C5U;
  return hash ^ (hash >> 15);
}

// kSlots: a power of two, well above the number of rows.
template <std::size_t kSlots>
class NameIndex {
 public:
  template <class Table>
  constexpr explicit NameIndex(const Table& table) {
    static_assert((kSlots & (kSlots - 1)) == 0);
    std::uint16_t row = 0;
    for (const auto& entry : table) {
      std::size_t slot = NameHash(entry.name) % kSlots;
      while (rows_[slot] != kFree) {
        slot = (slot + 1) % kSlots;
      }
      rows_[slot] = row++;
    }
  }

  // The row whose name `equal` accepts, or null.
  template <class Table, class Equal>
  constexpr const typename Table::value_type* Find(const Table& table, std::string_view name,
                                                   Equal equal) const noexcept {
    for (std::size_t slot = NameHash(name) % kSlots; rows_[slot] != kFree;
         slot = (slot + 1) % kSlots) {
      if (const auto& entry = table[rows_[slot]]; equal(entry.name, name)) {
        return &entry;
      }
    }
    return nullptr;
  }

 private:
  static constexpr std::uint16_t kFree = 0xFFFF;

  static constexpr std::array<std::uint16_t, kSlots> AllFree() {
    std::array<std::uint16_t, kSlots> rows{};
    rows.fill(kFree);
    return rows;
  }

  std::array<std::uint16_t, kSlots> rows_ = AllFree();
};

}  // namespace ddb
