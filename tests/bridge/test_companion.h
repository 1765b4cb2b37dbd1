// A companion module whose behaviour a test sets and whose calls it sees. The test holds the module
// loaded and reaches this record through the export "Control".
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "bridge/companion_abi.h"

namespace zn::test {

struct CompanionControl {
  // What the functions do.
  int result = 1;
  std::string text;  // written without a terminator when it fills the buffer
  int options = 0;   // GetPrintOptionStringList answers indexes below this
  std::vector<companion_abi::StringRecord> names;
  int nameCount = 0;
  std::uint8_t deletedRow = 0;
  int selection = 0;
  void (*whileSummaryIsOpen)() = nullptr;

  // What they were given.
  std::vector<int> ids;
  std::vector<int> indexes;
  unsigned long size = 0;
  std::vector<std::string> texts;
  std::vector<const void*> pointers;
  std::vector<int> numbers;
  int releases = 0;
};

using ControlFunction = CompanionControl*();

}  // namespace zn::test
