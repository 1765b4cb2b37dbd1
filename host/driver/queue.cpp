#include "host/driver/queue.h"

#include <array>
#include <vector>

#include "host/base/files.h"
#include "host/base/host_error.h"
#include "platform/spooler.h"

namespace zn::host {
namespace {

constexpr char kDescriptionFile[] = "ZN5050.ppd";
constexpr char kEnglishDescription[] = "ZN5050-english.ppd";
constexpr char kDriverFile[] = "wineps.drv";
constexpr int kDriverVersion = 3;  // user-mode drivers

// What lies beside the driver's own files: plug-in, satellite and companions, and as a text the
// device profile with the driver's name.
constexpr const char* kModules[] = {"Zn55psu1.dll", "Zn55psu1ENU.dll", "Zn55psu1UI.dll",
                                    "Zn55psu1ui2.dll"};
constexpr char kProfileFile[] = "ZN Lumera 5050.cps";

char* Writable(const char* text) {
  return const_cast<char*>(text);
}

std::string DriverDirectory() {
  std::array<char, MAX_PATH> folder{};
  DWORD need = 0;
  if (!::GetPrinterDriverDirectoryA(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder.data()),
                                    static_cast<DWORD>(folder.size()), &need)) {
    ThrowSystemError("cannot find the driver folder");
  }
  return std::string(folder.data()) + "\\";
}

std::string FromUtf8(std::string_view text) {
  const int length =
      ::MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                        length);
  return AnsiText(wide);
}

// The sample's texts are UTF-8; installed ones are in the ANSI code page, as the system's drivers
// and the plug-in read them.
std::string ReadSampleText(const char* file) {
  const auto text = ReadWholeFile(ProgramFolder() + file);
  if (!text) {
    throw HostError("cannot read " + ProgramFolder() + file);
  }
  return FromUtf8(*text);
}

void Install(const std::string& folder, const char* file, std::string_view text) {
  if (!WriteWholeFile(folder + file, text)) {
    throw HostError("cannot write " + folder + file);
  }
}

// A module that is there already is left alone: another process may have loaded it.
void InstallModule(const std::string& source, const std::string& target) {
  const auto wanted = ReadWholeFile(source);
  if (!wanted) {
    throw HostError("cannot read " + source);
  }
  if (ReadWholeFile(target) != wanted && !WriteWholeFile(target, *wanted)) {
    throw HostError("cannot write " + target);
  }
}

std::string DescriptionText() {
  const bool isJapanese = PRIMARYLANGID(::GetUserDefaultUILanguage()) == LANG_JAPANESE;
  std::string text = ReadSampleText(isJapanese ? kDescriptionFile : kEnglishDescription);
  constexpr std::string_view kEncoding = "*LanguageEncoding: UTF-8";
  if (const std::size_t at = text.find(kEncoding); at != std::string::npos) {
    text.replace(at, kEncoding.size(),
                 isJapanese ? "*LanguageEncoding: 90ms-RKSJ" : "*LanguageEncoding: WindowsANSI");
  }
  return text;
}

void AddDriver() {
  DRIVER_INFO_3A driver{};
  driver.cVersion = kDriverVersion;
  driver.pName = Writable(kSampleDriver);
  driver.pEnvironment = Writable("Windows x64");
  driver.pDriverPath = Writable(kDriverFile);
  driver.pConfigFile = Writable(kDriverFile);
  driver.pDataFile = Writable(kDescriptionFile);
  driver.pDefaultDataType = Writable("RAW");
  if (!::AddPrinterDriverExA(nullptr, 3, reinterpret_cast<BYTE*>(&driver), APD_COPY_NEW_FILES)) {
    ThrowSystemError("cannot add the driver");
  }
}

void AddQueue(const std::string& name) {
  HANDLE existing = nullptr;
  if (::OpenPrinterA(Writable(name.c_str()), &existing, nullptr)) {
    ::ClosePrinter(existing);
    return;
  }
  PRINTER_INFO_2A printer{};
  printer.pPrinterName = Writable(name.c_str());
  printer.pPortName = Writable("FILE:");
  printer.pDriverName = Writable(kSampleDriver);
  printer.pPrintProcessor = Writable("WinPrint");
  printer.pDatatype = Writable("RAW");
  const UniquePrinter added(::AddPrinterA(nullptr, 2, reinterpret_cast<BYTE*>(&printer)));
  if (!added) {
    ThrowSystemError("cannot add the queue");
  }
}

}  // namespace

void InstallQueue(const std::string& name) {
  const std::string folder = DriverDirectory();
  const std::string description = DescriptionText();
  Install(folder, kDescriptionFile, description);
  AddDriver();
  const std::string versionFolder = folder + std::to_string(kDriverVersion) + "\\";
  // A driver that was there already keeps its files otherwise.
  Install(versionFolder, kDescriptionFile, description);
  Install(versionFolder, kProfileFile, ReadSampleText(kProfileFile));
  for (const char* module : kModules) {
    InstallModule(ProgramFolder() + module, versionFolder + module);
  }
  AddQueue(name);
}

Queue::Queue(const std::string& name) : name_(name) {
  HANDLE printer = nullptr;
  if (!::OpenPrinterA(Writable(name.c_str()), &printer, nullptr)) {
    throw HostError("no such queue: " + name);
  }
  printer_.reset(printer);
  const DriverInfo2 driver(printer);
  if (!driver) {
    ThrowSystemError("cannot read the queue's driver");
  }
  const std::string driverPath = driver->pDriverPath;
  driverFolder_ = driverPath.substr(0, driverPath.rfind('\\') + 1);
  description_ = PrinterDescription::ReadFile(driver->pDataFile);
  if (!description_ || description_->Features().empty() ||
      description_->Features().size() > ItemSelections::kMaxFeatures) {
    throw HostError(std::string("cannot use the printer description ") + driver->pDataFile);
  }
}

std::wstring Queue::WideName() const {
  return WideText(name_);
}

std::optional<QueueDevMode> Queue::StoredDevMode() const {
  DWORD need = 0;
  ::GetPrinterW(Handle(), 9, nullptr, 0, &need);
  std::vector<std::byte> memory(need);
  if (need < sizeof(PRINTER_INFO_9W) ||
      !::GetPrinterW(Handle(), 9, reinterpret_cast<BYTE*>(memory.data()), need, &need)) {
    return std::nullopt;
  }
  const DEVMODEW* stored = reinterpret_cast<PRINTER_INFO_9W*>(memory.data())->pDevMode;
  const auto* bytes = reinterpret_cast<const std::byte*>(stored);
  const bool inside = bytes >= memory.data() && bytes < memory.data() + memory.size();
  return inside ? QueueDevMode::FromPublic(
                      stored, static_cast<std::size_t>(memory.data() + memory.size() - bytes))
                : std::nullopt;
}

void Queue::Store(QueueDevMode& devmode) const {
  PRINTER_INFO_9W user{&devmode.Public()};
  if (!::SetPrinterW(Handle(), 9, reinterpret_cast<BYTE*>(&user), 0)) {
    ThrowSystemError("cannot store the DEVMODE");
  }
}

}  // namespace zn::host
