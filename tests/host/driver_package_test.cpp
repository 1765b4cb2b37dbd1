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
#include "temp_folder.h"
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
    EXPECT_TRUE(::SetupInstallFilesFromInfSectionA(inf_, nullptr, queue, section.c_str(), nullptr,
                                                   SP_COPY_NEWER));
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

TEST_F(HostTest, PackageInstallsAndItsPreferencesOpen) {
  const Inf inf;
  const std::string models =
      inf.Field("Manufacturer", nullptr, 1) + "." + inf.Field("Manufacturer", nullptr, 2);
  const std::string section = inf.Field(models, nullptr, 1);
  EXPECT_EQ(inf.Field(models, nullptr, 0), host::kSampleDriver);
  EXPECT_EQ(inf.Field("Version", "CatalogFile", 1), "zn5050.cat");

  const TempFolder folder;
  inf.InstallFiles(section, folder.Path());
  const std::set<std::string> files = DriverFiles();
  EXPECT_THAT(files, ::testing::Contains("samples/" + std::string(host::kSampleDriver) + ".cps"));
  for (const std::string& file : files) {
    const std::string name = std::filesystem::path(file).filename().string();
    EXPECT_TRUE(ReadWholeFile(folder.Path(name)) == ReadWholeFile(Dist(file))) << file;
  }
  const std::filesystem::directory_iterator installed(folder.Path());
  EXPECT_EQ(static_cast<std::size_t>(std::distance(begin(installed), end(installed))),
            files.size());

  std::array<char, MAX_PATH> plugInName{};
  ::GetPrivateProfileStringA("OEMFiles", "OEMConfigFile1", "", plugInName.data(), plugInName.size(),
                             folder.Path("zn5050.ini").c_str());
  const std::string module = folder.Path(plugInName.data());
  EXPECT_EQ(VersionText(module, "FileVersion"), inf.Field("Version", "DriverVer", 2));
  EXPECT_EQ(VersionText(module, "OriginalFilename"), plugInName.data());

  // The queue's driver is the installed one, for host and plug-in.
  FakeDriverPath::path = folder.Path("driver.dll");
  FakeDriverPath::data = folder.Path(inf.Field(section, "DataFile", 1));
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
