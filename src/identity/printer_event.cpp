#include "identity/printer_event.h"

#include <windows.h>

#include <array>
#include <clocale>
#include <cstdlib>
#include <optional>
#include <string>

#include "identity/user_info.h"
#include "platform/system_message.h"
#include "platform/trace.h"

namespace zn {
namespace {

constexpr char kSource[] = "intrface";
constexpr char kFunction[] = "IOemUI::PrinterEvent";
constexpr std::size_t kPrinterNameSize = 1024;  // bytes, terminator included

// The character-type locale of the C runtime for the time of a conversion; the process that the
// plug-in is a guest of gets its own back.
class CharacterLocale {
 public:
  explicit CharacterLocale(const char* name) : previous_(std::setlocale(LC_CTYPE, nullptr)) {
    std::setlocale(LC_CTYPE, name);
  }
  ~CharacterLocale() { std::setlocale(LC_CTYPE, previous_.c_str()); }
  CharacterLocale(const CharacterLocale&) = delete;
  CharacterLocale& operator=(const CharacterLocale&) = delete;

 private:
  std::string previous_;
};

// Cut to the size that the rest of the system keeps for printer names.
std::optional<std::string> ToMultiByte(const wchar_t* name) {
  const CharacterLocale japanese("JPN");
  std::array<char, kPrinterNameSize> text;
  const std::size_t length =
      name != nullptr ? std::wcstombs(text.data(), name, text.size() - 1) : std::size_t(-1);
  if (length == std::size_t(-1)) {
    return std::nullopt;
  }
  return std::string(text.data(), length);
}

void TraceComputerName() {
  char name[256] = "";
  DWORD size = sizeof name;
  if (::GetComputerNameA(name, &size) == FALSE) {
    ZN_TRACE_TEXT(kSource, kFunction, "GetComputerName failed.");
  }
  ZN_TRACE_TEXT(kSource, kFunction, " %s() PrinterName=%s\n", kFunction, name);
}

}  // namespace

void CleanUpDeletedPrinter(const wchar_t* printerName) {
  TraceComputerName();
  const std::optional<std::string> name = ToMultiByte(printerName);
  if (!name) {
    [[maybe_unused]] const DWORD error = ::GetLastError();
    ZN_TRACE_TEXT(kSource, kFunction, " %s() ErrorNo=%d Error=%s\n", kFunction,
                  static_cast<int>(error), SystemMessage(error).c_str());
    return;
  }
  ZN_TRACE_TEXT(kSource, kFunction, " %s() printerName=%s\n", kFunction, name->c_str());
  PrinterEventDelete(name->c_str());
}

}  // namespace zn
