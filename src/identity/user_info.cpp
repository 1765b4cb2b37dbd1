#include "identity/user_info.h"

#include <array>
#include <optional>
#include <vector>

#include "identity/printer_identity.h"
#include "platform/registry.h"
#include "platform/system_message.h"
#include "platform/trace.h"

namespace zn {
namespace {

constexpr char kSource[] = "oemps\\devmode";
[[maybe_unused]] constexpr char kKeyNameTrace[] = "regSubKeyName = %s\n";
constexpr char kRootKey[] = "Software\\Zentrik\\ZN Print Driver Data";
constexpr char kUserInfoKey[] = "UserInfo";
constexpr std::size_t kTextLimit = 255;
constexpr DWORD kUserNameSize = 257;  // bytes, terminator included

// In the order in which they are read.
enum UserValue : std::size_t { kSpecify, kOwnerName, kOwnerPassword, kAccount, kUserValueCount };
constexpr std::array<const char*, kUserValueCount> kUserValues{
    "SpecifyJobOwnerName_User", "JobOwnerName_User", "JobOwnerNamePassword_User", "AccountID_User"};

// In the order in which they are deleted; the user's copy of the method goes with them.
constexpr auto kDeletedValues =
    std::to_array<const char*>({"AccountID_User", "JobOwnerName_User", "JobOwnerNamePassword_User",
                                "SpecifyJobOwnerName_User", "ManageMethod"});

std::string PrinterKeyPath(const std::string& printerKeyName) {
  return std::string(kRootKey) + '\\' + printerKeyName;
}

// Without a name the paths would be those of the root; the registry skips repeated backslashes.
bool NamesPrinter(const std::string& printerKeyName) {
  return printerKeyName.find_first_not_of('\\') != std::string::npos;
}

UniqueKey OpenUserInfo(const std::string& printerKeyName) {
  if (!NamesPrinter(printerKeyName)) {
    return nullptr;
  }
  return OpenUserKey(PrinterKeyPath(printerKeyName) + '\\' + kUserInfoKey, KEY_ALL_ACCESS);
}

std::string LogonName() {
  std::array<char, kUserNameSize> name{};
  DWORD size = name.size();
  return ::GetUserNameA(name.data(), &size) != FALSE ? std::string(name.data()) : std::string();
}

// The printer-wide management method; only the first byte of the value counts.
std::optional<std::uint32_t> ReadManagementMethod(HANDLE printer) {
  constexpr char kKey[] = "PrinterDriverData";
  constexpr char kValue[] = "ManageMethod";
  constexpr DWORD kLargest = 64 << 10;  // the size comes from the server
  DWORD size = 0;
  const DWORD asked = ::GetPrinterDataExA(printer, kKey, kValue, nullptr, nullptr, 0, &size);
  if ((asked != ERROR_SUCCESS && asked != ERROR_MORE_DATA) || size == 0 || size > kLargest) {
    return std::nullopt;
  }
  std::vector<BYTE> data(size);
  if (::GetPrinterDataExA(printer, kKey, kValue, nullptr, data.data(), size, &size) !=
          ERROR_SUCCESS ||
      size == 0) {
    return std::nullopt;
  }
  return data.front();
}

using UserTexts = std::array<std::string, kUserValueCount>;

// All four values, or nothing.
std::optional<UserTexts> ReadUserTexts(HKEY userInfo) {
  UserTexts texts;
  bool areComplete = true;
  for (std::size_t value = 0; value < kUserValueCount; ++value) {
    if (std::optional<std::string> text = ReadText(userInfo, kUserValues[value], kTextLimit)) {
      texts[value] = std::move(*text);
    } else {
      areComplete = false;
      ZN_TRACE_TEXT(kSource, "OverWriteRegistryData", "%s() %s", "OverWriteRegistryData",
                    SystemMessage(::GetLastError()).c_str());
    }
  }
  return areComplete ? std::optional(std::move(texts)) : std::nullopt;
}

}  // namespace

bool OverWriteRegistryData(const PRINTER_INFO_2A& printerInfo, CDevMode& block, HANDLE printer,
                           const std::string& printerKeyName) {
  if (printerInfo.pPrinterName == nullptr || *printerInfo.pPrinterName == '\0') {
    return false;
  }
  const std::optional<std::uint32_t> method = ReadManagementMethod(printer);
  const UniqueKey userInfo = OpenUserInfo(printerKeyName);
  if (!userInfo) {
    ZN_TRACE_TEXT(kSource, "OverWriteRegistryData", kKeyNameTrace, printerKeyName.c_str());
    block.SetAuthenticationData(method.value_or(0), "LoginName", {}, {}, {}, LogonName());
    return true;
  }
  const std::optional<UserTexts> texts = ReadUserTexts(userInfo.get());
  if (!method || !texts) {
    ZN_TRACE_TEXT(kSource, "OverWriteRegistryData", kKeyNameTrace, printerKeyName.c_str());
    return false;
  }
  block.SetAuthenticationData(*method, (*texts)[kSpecify], (*texts)[kOwnerName],
                              (*texts)[kOwnerPassword], (*texts)[kAccount], LogonName());
  return true;
}

bool OverWriteRegistryAuthenticationInfo(CDevMode& block, const PRINTER_INFO_2A& printerInfo,
                                         HANDLE printer, const std::string& printerKeyName) {
  OverWriteRegistryData(printerInfo, block, printer, printerKeyName);
  return true;
}

void PrinterEventDelete(const char* printerName) {
  const std::string printerKeyName = GetDeletePrinterName(printerName);
  ZN_TRACE_TEXT(kSource, "PrinterEventDelete", kKeyNameTrace, printerKeyName.c_str());
  if (!NamesPrinter(printerKeyName)) {
    return;
  }
  if (const UniqueKey userInfo = OpenUserInfo(printerKeyName)) {
    for (const char* value : kDeletedValues) {
      ::RegDeleteValueA(userInfo.get(), value);
    }
  }
  // A key that still holds other subkeys stays.
  if (const UniqueKey printer = OpenUserKey(PrinterKeyPath(printerKeyName), KEY_ALL_ACCESS)) {
    ::RegDeleteKeyA(printer.get(), kUserInfoKey);
  }
  if (const UniqueKey root = OpenUserKey(kRootKey, KEY_ALL_ACCESS)) {
    ::RegDeleteKeyA(root.get(), printerKeyName.c_str());
  }
}

}  // namespace zn
