#include "identity/printer_identity.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <utility>
#include <vector>

#include "platform/double_byte.h"
#include "platform/handles.h"
#include "platform/registry.h"
#include "platform/trace.h"

namespace zn {
namespace {

constexpr char kSource[] = "oemps\\devmode";
constexpr std::size_t kNameSize = 1024;  // of names and key names, terminator included
constexpr char kGuidValue[] = "GuidPrinter";
constexpr std::string_view kMarker = "\\CSR|";
constexpr std::string_view kBareMarker = "CSR|";

bool Contains(std::string_view text, std::string_view wanted) {
  return FindText(text, wanted) != std::string_view::npos;
}

// The text behind the last backslash. One in the first position is not considered.
std::string_view ShortName(std::string_view printerName) {
  const std::size_t backslash = FindLastOf(printerName, "\\");
  return backslash != 0 ? printerName.substr(backslash + 1) : printerName;  // npos + 1 is 0
}

// The part behind the last comma; the whole text when it has none.
const char* BehindLastComma(const std::string& text) {
  return text.c_str() + text.rfind(',') + 1;
}

std::string JoinKeyName(std::string_view shortName, std::string_view guid) {
  std::string keyName(shortName);
  keyName.append(guid);
  keyName.resize(std::min(keyName.size(), kNameSize - 1));
  return keyName;
}

std::string ConnectionPath(const std::string& parentKey, std::string_view connection) {
  return (parentKey + '\\').append(connection);
}

[[maybe_unused]] std::string LocalTimeText(const FILETIME& time) {
  FILETIME local{};
  SYSTEMTIME parts{};
  ::FileTimeToLocalFileTime(&time, &local);
  ::FileTimeToSystemTime(&local, &parts);
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%04d/%02d/%02d %02d:%02d:%02d", parts.wYear,
                parts.wMonth, parts.wDay, parts.wHour, parts.wMinute, parts.wSecond);
  return text.data();
}

// The subkeys in enumeration order; none when the key cannot be opened.
std::vector<std::string> Subkeys(const char* parentKey) {
  [[maybe_unused]] constexpr char kFunction[] = "CDevMode::GetSearchRegistryKeyServer";
  std::vector<std::string> names;
  const UniqueKey parent = OpenUserKey(parentKey, KEY_ENUMERATE_SUB_KEYS);
  if (!parent) {
    return names;
  }
  LSTATUS status = ERROR_SUCCESS;
  for (DWORD index = 0;; ++index) {
    std::array<char, kNameSize> name;
    DWORD length = name.size();
    FILETIME written{};
    status = ::RegEnumKeyExA(parent.get(), index, name.data(), &length, nullptr, nullptr, nullptr,
                             &written);
    if (status != ERROR_SUCCESS) {
      break;
    }
    names.emplace_back(name.data(), length);
    ZN_TRACE_TEXT(kSource, kFunction, "SubkeyName: %s, LastWriteTime: %s\n", names.back().c_str(),
                  LocalTimeText(written).c_str());
  }
  ZN_TRACE_TEXT(kSource, kFunction, "%s",
                status == ERROR_NO_MORE_ITEMS ? "ERROR_NO_MORE_ITEMS" : "RegEnumKeyEx error");
  ZN_TRACE_TEXT(kSource, kFunction, "keyList = %d", static_cast<int>(names.size()));
  return names;
}

bool IsGuidOf(const std::string& path, const std::string& guid) {
  const UniqueKey key = OpenUserKey(path, KEY_QUERY_VALUE);
  if (!key) {
    return false;
  }
  const std::optional<std::string> stored = ReadText(key.get(), kGuidValue, kNameSize - 1);
  return stored && ::lstrcmpiA(stored->c_str(), guid.c_str()) == 0;
}

}  // namespace

std::string GetPrinterKeyName(std::string_view printerName) {
  const bool isClientSide = Contains(printerName, kMarker);
  ZN_TRACE_TEXT(kSource, "hrOEMDevMode", "\\CRS| is %s the printer name",
                isClientSide ? "in" : "not in");
  return isClientSide ? GetClientAuthenticatInfo(printerName) : GetAuthenticatInfo(printerName);
}

std::string GetAuthenticatInfo(std::string_view printerName) {
  const std::string_view shortName = ShortName(printerName);
  const std::string connection = GetSearchRegistryKeyServer(kConnectionsKey, shortName);
  std::string keyName =
      JoinKeyName(shortName, GetGuidPrinter(ConnectionPath(kConnectionsKey, connection)));
  ZN_TRACE_TEXT(kSource, "CDevMode::GetAuthenticatInfo", "strPrinterName = %s",
                std::string(printerName).c_str());
  ZN_TRACE_TEXT(kSource, "CDevMode::GetAuthenticatInfo", "dstRegKey = %s", keyName.c_str());
  return keyName;
}

std::string GetClientAuthenticatInfo(std::string_view printerName) {
  [[maybe_unused]] constexpr char kFunction[] = "CDevMode::GetClientAuthenticatInfo";
  std::string_view identity = ShortName(printerName);
  if (const std::size_t marker = FindText(identity, kBareMarker);
      marker != std::string_view::npos) {
    identity.remove_prefix(marker + kBareMarker.size());
  }
  const std::string connection = GetSearchRegistryKeyClient(kConnectionsKey, identity);
  if (connection.empty()) {
    ZN_TRACE_TEXT(kSource, kFunction, "%s() connection not found\n", kFunction);
    return JoinKeyName(identity, {});
  }
  return GetAuthenticatInfo(BehindLastComma(connection));
}

std::string GetDeletePrinterName(std::string_view printerName) {
  [[maybe_unused]] constexpr char kFunction[] = "GetDeletePrinterName";
  const std::size_t comma = printerName.rfind(',');
  if (comma == std::string_view::npos) {
    ZN_TRACE_TEXT("oemui", kFunction, ", Not Found\n");
  }
  const std::string_view connection = printerName.substr(0, comma);
  const std::size_t backslash = FindText(connection, "\\");
  if (backslash == std::string_view::npos) {
    ZN_TRACE_TEXT("oemui", kFunction, "backslash Not Found\n");
  }
  const std::string_view name = connection.substr(backslash + 1);  // npos + 1 is 0
  // The first backslash may be the marker's own.
  return Contains(connection, kMarker) ? GetClientAuthenticatInfo(name) : GetAuthenticatInfo(name);
}

std::string GetSearchRegistryKeyServer(const char* parentKey, std::string_view shortName) {
  for (std::string& connection : Subkeys(parentKey)) {
    if (Contains(connection, shortName)) {
      ZN_TRACE_TEXT(kSource, "CDevMode::GetSearchRegistryKeyServer", "%s", connection.c_str());
      return std::move(connection);
    }
  }
  return {};
}

std::string GetSearchRegistryKeyClient(const char* parentKey, std::string_view identity) {
  if (identity.empty()) {
    return {};
  }
  const std::vector<std::string> connections = Subkeys(parentKey);
  const std::string wanted(identity);
  auto found = std::ranges::find_if(connections, [&](const std::string& name) {
    return IsGuidOf(ConnectionPath(parentKey, name), wanted);
  });
  if (found == connections.end()) {
    found = std::ranges::find_if(connections, [&](const std::string& name) {
      return ::lstrcmpiA(BehindLastComma(name), wanted.c_str()) == 0;
    });
  }
  return found != connections.end() ? *found : std::string();
}

std::string GetGuidPrinter(const std::string& keyPath) {
  // Looking a printer up creates its connection's key: other parts of the driver look for it there.
  const UniqueKey key = CreateUserKey(keyPath, KEY_ALL_ACCESS);
  return key ? ReadText(key.get(), kGuidValue, kNameSize - 1).value_or("") : std::string();
}

}  // namespace zn
