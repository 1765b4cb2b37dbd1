// dist/ as the system's set-up engine reads and installs it, and the sheet of what it installed.
#include <windows.h>
// This must come behind windows.h.
#include <setupapi.h>

#include <filesystem>
#include <set>
#include <sstream>

#include "companion/call_counter.h"
#include "fake_driver_path.h"
#include "host/base/files.h"
#include "tests/host/host_fixture.h"

namespace zn::test {
namespace {

using host::ReadWholeFile;

constexpr DWORD kDriverFolderId = 66000;

std::string Dist(const std::string& name) {
  return host::ProgramFolder() + ZN_DIST "/" + name;
}

class Inf {
 public:
  Inf() : inf_(::SetupOpenInfFileA(Dist("zn5050.inf").c_str(), "Printer", INF_STYLE_WIN4, &line_)) {
    EXPECT_NE(inf_, INVALID_HANDLE_VALUE) << "line " << line_ << ", error " << ::GetLastError();
  }
  ~Inf() { ::SetupCloseInfFile(inf_); }
  Inf(const Inf&) = delete;
  Inf& operator=(const Inf&) = delete;

  // Of the section's line with that key; a null key: of its first line.
  [[nodiscard]] std::string Field(const std::string& section, const char* key, DWORD index) const {
    INFCONTEXT line{};
    char text[MAX_PATH] = "";
    EXPECT_TRUE(::SetupFindFirstLineA(inf_, section.c_str(), key, &line) &&
                ::SetupGetStringFieldA(&line, index, text, sizeof text, nullptr))
        << section << ", field " << index;
    return text;
  }

  void InstallFiles(const std::string& section, const std::string& folder) const {
    ASSERT_TRUE(::SetupSetDirectoryIdA(inf_, kDriverFolderId, folder.c_str()));
    const HSPFILEQ queue = ::SetupOpenFileQueue();
    EXPECT_TRUE(
        ::SetupInstallFilesFromInfSectionA(inf_, nullptr, queue, section.c_str(), nullptr, 0));
    EXPECT_TRUE(::SetupCommitFileQueueA(nullptr, queue, &Notify, nullptr));
    ::SetupCloseFileQueue(queue);
  }

 private:
  static UINT CALLBACK Notify(PVOID, UINT event, UINT_PTR first, UINT_PTR) {
    if (event == SPFILENOTIFY_COPYERROR) {
      ADD_FAILURE() << "cannot copy " << reinterpret_cast<FILEPATHS_A*>(first)->Source;
      return FILEOP_ABORT;
    }
    return FILEOP_DOIT;
  }

  UINT line_ = 0;
  HINF inf_;
};

// What the package's list of checksums names and the printer needs.
std::set<std::string> DriverFiles() {
  std::set<std::string> files;
  std::istringstream sums(ReadWholeFile(Dist("SHA256SUMS")).value_or(""));
  for (std::string sum, name; sums >> sum && std::getline(sums >> std::ws, name);) {
    if (!name.ends_with(".inf") && !name.ends_with(".debug")) {
      files.insert(name);
    }
  }
  return files;
}

std::string VersionText(const std::string& module, const char* name) {
  std::array<std::byte, 4096> memory{};
  void* text = nullptr;
  UINT length = 0;
  EXPECT_TRUE(::GetFileVersionInfoA(module.c_str(), 0, memory.size(), memory.data()) &&
              ::VerQueryValueA(memory.data(),
                               (std::string("\\StringFileInfo\\041104B0\\") + name).c_str(), &text,
                               &length));
  return text != nullptr ? static_cast<const char*>(text) : "";
}

class PackageTest : public HostTest {
 protected:
  PackageTest() {
    char folder[MAX_PATH] = "";
    DWORD need = 0;
    EXPECT_TRUE(::GetPrinterDriverDirectoryA(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                             sizeof folder, &need));
    folder_ = folder;
    RemoveFiles();
  }
  ~PackageTest() override { RemoveFiles(); }

  [[nodiscard]] std::string Installed(const std::string& file) const {
    return folder_ + "\\" + std::filesystem::path(file).filename().string();
  }

  std::string folder_;
  const std::set<std::string> files_ = DriverFiles();

 private:
  void RemoveFiles() const {
    for (const std::string& file : files_) {
      ::DeleteFileA(Installed(file).c_str());
    }
  }
};

TEST_F(PackageTest, InstallsAndItsPreferencesOpen) {
  const Inf inf;
  const std::string models =
      inf.Field("Manufacturer", nullptr, 1) + "." + inf.Field("Manufacturer", nullptr, 2);
  const std::string section = inf.Field(models, nullptr, 1);
  EXPECT_EQ(inf.Field(models, nullptr, 0), host::kSampleDriver);

  inf.InstallFiles(section, folder_);
  EXPECT_THAT(files_, ::testing::Contains("samples/" + std::string(host::kSampleDriver) + ".cps"));
  for (const std::string& file : files_) {
    EXPECT_TRUE(ReadWholeFile(Installed(file)) == ReadWholeFile(Dist(file))) << file;
  }

  std::array<char, MAX_PATH> plugInName{};
  ::GetPrivateProfileStringA("OEMFiles", "OEMConfigFile1", "", plugInName.data(), plugInName.size(),
                             Installed("zn5050.ini").c_str());
  const std::string module = Installed(plugInName.data());
  EXPECT_EQ(VersionText(module, "FileVersion"), inf.Field("Version", "DriverVer", 2));
  EXPECT_EQ(VersionText(module, "OriginalFilename"), plugInName.data());

  // The queue's driver is the installed one, for host and plug-in, which is loaded from there.
  FakeDriverPath::path = Installed("driver.dll");
  FakeDriverPath::data = Installed(inf.Field(section, "DataFile", 1));
  const FakeDriverPath inHost;
  const host::Queue queue(queue_->Name());
  host::PlugIn plugIn(module);
  const FakeDriverPath inPlugIn(plugIn.Module());
  const companion::CallCounter companions;
  host::DocumentSheet sheet(plugIn, queue, host::DocumentSheet::StartDevMode(plugIn, queue));
  sheet.Open();
  ASSERT_EQ(sheet.Sheet().PageCount(), kPages);
  for (int page = 0; page < kPages; ++page) {
    EXPECT_NE(sheet.Sheet().ShowPage(page), nullptr) << page;
  }
  sheet.Sheet().PressCancel();
  sheet.Finish();
  EXPECT_THAT(sheet.Faults(), ::testing::IsEmpty());
  EXPECT_GT(companions[companion::Call::Load], 0);
}

}  // namespace
}  // namespace zn::test
