#include "platform/spooler.h"

#include <algorithm>
#include <new>

namespace zn {
namespace {

constexpr DWORD kLargestAnswer = 4u << 20;
constexpr std::size_t kZeroBytes = 8;
constexpr int kMaxRounds = 4;  // the record may grow between two calls, but not for ever

}  // namespace

SpoolerMemory AskSpooler(SpoolerQuery query, HANDLE object, DWORD level,
                         std::size_t fixedSize) noexcept {
  DWORD need = 0;  // some failing calls leave it alone
  query(object, level, nullptr, 0, &need);
  DWORD size = 0;
  for (int round = 0; round < kMaxRounds && need > size && need <= kLargestAnswer; ++round) {
    size = std::max(need, static_cast<DWORD>(fixedSize));
    std::unique_ptr<std::byte[]> bytes(new (std::nothrow) std::byte[size + kZeroBytes]());
    if (!bytes) {
      break;
    }
    need = 0;
    if (query(object, level, reinterpret_cast<BYTE*>(bytes.get()), size, &need) != FALSE) {
      return {std::move(bytes), size};
    }
  }
  return {};
}

BOOL QueryPrinter(HANDLE printer, DWORD level, BYTE* memory, DWORD size, DWORD* need) {
  return ::GetPrinterA(printer, level, memory, size, need);
}

BOOL QueryPrinterDriver(HANDLE printer, DWORD level, BYTE* memory, DWORD size, DWORD* need) {
  return ::GetPrinterDriverA(printer, nullptr, level, memory, size, need);
}

}  // namespace zn
