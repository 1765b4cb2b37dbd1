// A real printer queue of the test's own: driver, printer description with the papers A4, A3 and
// B5, and queue are installed by the constructor and removed by the destructor.
#pragma once

#include <windows.h>

#include <cstddef>
#include <span>
#include <string>

#include "platform/handles.h"

namespace zn::test {

class TestQueue {
 public:
  TestQueue();
  ~TestQueue();
  TestQueue(const TestQueue&) = delete;
  TestQueue& operator=(const TestQueue&) = delete;

  [[nodiscard]] HANDLE Handle() const { return printer_.get(); }
  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const std::string& DriverName() const { return driver_; }
  // Where the spooler keeps the driver's files, with a backslash at the end.
  [[nodiscard]] const std::string& DriverFolder() const { return folder_; }

  // Stores a full DEVMODEW, private part included, as the default.
  void StoreDevMode(std::span<const std::byte> devMode);

 private:
  std::string name_;
  std::string driver_;
  std::string folder_;
  std::string description_;
  UniquePrinter printer_;
};

}  // namespace zn::test
