#include "test_queue.h"

#include <gtest/gtest.h>

#include <fstream>

namespace zn::test {
namespace {

constexpr const char* kDescription = R"ppd(*PPD-Adobe: "4.3"
*OpenUI *PageSize: PickOne
*DefaultPageSize: A4
*PageSize A4/A4: ""
*PageSize A3/A3: ""
*PageSize B5/B5: ""
*CloseUI: *PageSize
*ImageableArea A4/A4: "0 0 595 842"
*ImageableArea A3/A3: "0 0 842 1191"
*ImageableArea B5/B5: "0 0 516 729"
*PaperDimension A4/A4: "595 842"
*PaperDimension A3/A3: "842 1191"
*PaperDimension B5/B5: "516 729"
)ppd";

// Test programs run side by side in one system.
std::string OwnName(const char* stem) {
  return stem + std::to_string(::GetCurrentProcessId());
}

std::string SpoolerFolder() {
  char folder[MAX_PATH] = "";
  DWORD need = 0;
  EXPECT_TRUE(::GetPrinterDriverDirectoryA(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                           sizeof folder, &need));
  return folder;
}

void InstallDriver(std::string& name, std::string& description) {
  char module[] = "wineps.drv";
  char dataType[] = "RAW";
  DRIVER_INFO_3A driver{};
  driver.cVersion = 3;
  driver.pName = name.data();
  driver.pDriverPath = module;
  driver.pConfigFile = module;
  driver.pDataFile = description.data();
  driver.pDefaultDataType = dataType;
  EXPECT_TRUE(::AddPrinterDriverExA(nullptr, 3, reinterpret_cast<BYTE*>(&driver),
                                    APD_COPY_NEW_FILES | APD_COPY_FROM_DIRECTORY))
      << ::GetLastError();
}

HANDLE InstallPrinter(std::string& name, std::string& driver) {
  char port[] = "FILE:";
  char processor[] = "WinPrint";
  char dataType[] = "RAW";
  PRINTER_INFO_2A printer{};
  printer.pPrinterName = name.data();
  printer.pPortName = port;
  printer.pDriverName = driver.data();
  printer.pPrintProcessor = processor;
  printer.pDatatype = dataType;
  return ::AddPrinterA(nullptr, 2, reinterpret_cast<BYTE*>(&printer));
}

}  // namespace

TestQueue::TestQueue() : name_(OwnName("zn-test-")), driver_(OwnName("ZN Test Driver ")) {
  const std::string folder = SpoolerFolder();
  folder_ = folder + "\\3\\";
  description_ = folder + "\\" + OwnName("zntest") + ".ppd";
  std::ofstream(description_) << kDescription;
  InstallDriver(driver_, description_);
  printer_.reset(InstallPrinter(name_, driver_));
  EXPECT_NE(printer_, nullptr) << ::GetLastError();
}

TestQueue::~TestQueue() {
  if (printer_) {
    EXPECT_TRUE(::DeletePrinter(printer_.get()));
    printer_.reset();
  }
  EXPECT_TRUE(::DeletePrinterDriverA(nullptr, nullptr, driver_.data()));
  ::DeleteFileA(description_.c_str());
  ::DeleteFileA((folder_ + OwnName("zntest") + ".ppd").c_str());
}

void TestQueue::StoreDevMode(std::span<const std::byte> devMode) {
  PRINTER_INFO_9W info = {reinterpret_cast<DEVMODEW*>(const_cast<std::byte*>(devMode.data()))};
  ASSERT_TRUE(::SetPrinterW(printer_.get(), 9, reinterpret_cast<BYTE*>(&info), 0))
      << ::GetLastError();
}

}  // namespace zn::test
