// Reads of the spooler's variable-sized records: ask the size, allocate, ask again.
#pragma once

#include <windows.h>
// This must come behind windows.h.
#include <winspool.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace zn {

// A spooler answer's memory: a fixed record and, behind it, the texts, DEVMODE and other data that
// it points to. Some zero bytes follow, so that a text without its terminator still ends.
struct SpoolerMemory {
  std::unique_ptr<std::byte[]> bytes;
  std::size_t size = 0;  // without the zero bytes
};

// One spooler call on `object`; answers like GetPrinterA.
using SpoolerQuery = BOOL (*)(HANDLE object, DWORD level, BYTE* memory, DWORD size, DWORD* need);

// Empty when the call fails, asks for more than 4 MB, or never stops asking for more memory. The
// memory is at least `fixedSize` bytes.
[[nodiscard]] SpoolerMemory AskSpooler(SpoolerQuery query, HANDLE object, DWORD level,
                                       std::size_t fixedSize) noexcept;

BOOL QueryPrinter(HANDLE printer, DWORD level, BYTE* memory, DWORD size, DWORD* need);
BOOL QueryPrinterDriver(HANDLE printer, DWORD level, BYTE* memory, DWORD size, DWORD* need);

// The record that one call answers at one level.
template <class Record, SpoolerQuery kQuery, DWORD kLevel>
class SpoolerRecord {
 public:
  // Empty when it cannot be read.
  explicit SpoolerRecord(HANDLE object) noexcept
      : memory_(AskSpooler(kQuery, object, kLevel, sizeof(Record))) {}

  explicit operator bool() const noexcept { return memory_.bytes != nullptr; }

  [[nodiscard]] const Record& operator*() const noexcept {
    return *reinterpret_cast<const Record*>(memory_.bytes.get());
  }
  [[nodiscard]] const Record* operator->() const noexcept { return &**this; }

  // How many bytes of the answer there are from `position` on; 0 when it lies outside.
  [[nodiscard]] std::size_t BytesFrom(const void* position) const noexcept {
    const auto begin = reinterpret_cast<std::uintptr_t>(memory_.bytes.get());
    const auto at = reinterpret_cast<std::uintptr_t>(position);
    return at >= begin && at - begin < memory_.size ? memory_.size - (at - begin) : 0;
  }

 private:
  SpoolerMemory memory_;
};

using PrinterInfo2 = SpoolerRecord<PRINTER_INFO_2A, &QueryPrinter, 2>;
using PrinterInfo8 = SpoolerRecord<PRINTER_INFO_8A, &QueryPrinter, 8>;  // the global default
using PrinterInfo9 = SpoolerRecord<PRINTER_INFO_9A, &QueryPrinter, 9>;  // the user's default
using DriverInfo2 = SpoolerRecord<DRIVER_INFO_2A, &QueryPrinterDriver, 2>;

}  // namespace zn
