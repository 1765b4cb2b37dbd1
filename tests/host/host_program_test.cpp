// znhost as its user calls it.
#include <windows.h>
// This must come behind windows.h.
#include <prsht.h>

#include <algorithm>
#include <cstdio>
#include <utility>

#include "host/base/files.h"
#include "res/resource_ids.h"
#include "tests/host/host_fixture.h"

namespace zn::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr DWORD kPatience = 60'000;  // milliseconds until a sheet counts as missing

struct Outcome {
  int code;
  std::string output;  // both streams; line ends are \n
};

// A run of the program.
class HostProgram {
 public:
  explicit HostProgram(const std::string& words)
      : pipe_(::_popen(
            ("\"\"" + host::ProgramFolder() + "znhost.exe\" " + words + " 2>&1\"").c_str(), "r")) {}
  ~HostProgram() {
    if (pipe_ != nullptr) {  // the test gave up: an open sheet would be waited for
      ::PostMessageA(sheet_, WM_CLOSE, 0, 0);
      ::_pclose(pipe_);
    }
  }
  HostProgram(const HostProgram&) = delete;
  HostProgram& operator=(const HostProgram&) = delete;

  // Waits for the sheet of the queue and shows one of its pages; null when there is none.
  HWND ShowPage(const std::string& queue, int index) {
    const ULONGLONG end = ::GetTickCount64() + kPatience;
    Search search{queue, nullptr};
    while (search.found == nullptr && ::GetTickCount64() < end) {
      ::Sleep(50);
      ::EnumWindows(&FindSheet, reinterpret_cast<LPARAM>(&search));
    }
    sheet_ = search.found;
    ::SendMessageA(sheet_, PSM_SETCURSEL, static_cast<WPARAM>(index), 0);
    return reinterpret_cast<HWND>(::SendMessageA(sheet_, PSM_GETCURRENTPAGEHWND, 0, 0));
  }
  void PressOk() { ::SendMessageA(sheet_, WM_COMMAND, IDOK, 0); }

  Outcome Finish() {
    std::string output;
    char part[256];
    while (std::fgets(part, sizeof part, pipe_) != nullptr) {
      output += part;
    }
    return {::_pclose(std::exchange(pipe_, nullptr)), output};
  }

 private:
  struct Search {
    const std::string& queue;
    HWND found;
  };
  static BOOL CALLBACK FindSheet(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    char title[128]{};
    ::GetWindowTextA(window, title, sizeof title);
    if (::IsWindowVisible(window) && std::string_view(title).starts_with(search.queue + ' ')) {
      search.found = window;
    }
    return search.found == nullptr;
  }

  FILE* pipe_;
  HWND sheet_ = nullptr;
};

Outcome RunHost(const std::string& words) {
  return HostProgram(words).Finish();
}

class HostProgramTest : public HostTest {
 protected:
  HostProgramTest() {
    char folder[MAX_PATH]{};
    ::GetTempPathA(sizeof folder, folder);
    file_ = folder + std::string("zn host test.devmode");
    ::DeleteFileA(file_.c_str());
  }
  ~HostProgramTest() override { ::DeleteFileA(file_.c_str()); }

  [[nodiscard]] std::string PrefsWords() const {
    return "prefs --queue \"" + queue_->Name() + "\" --devmode \"" + file_ + '"';
  }

  std::string file_;
};

TEST_F(HostProgramTest, DevModeFileCarriesTheSettingsFromSheetToSheet) {
  for (const bool stored : {false, true}) {
    SCOPED_TRACE(stored ? "second sheet" : "first sheet");
    HostProgram program(PrefsWords());
    const HWND page = program.ShowPage(queue_->Name(), kJobPage);
    if (stored) {
      EXPECT_EQ(Chosen(page, IDC_JOB_COLOR_MODE), 1);
      EXPECT_EQ(TextOf(page, IDC_JOB_NAME), "report");
    } else {
      Choose(page, IDC_JOB_COLOR_MODE, 1);
      Click(page, IDC_JOB_NAME_ENTERED);
      Enter(page, IDC_JOB_NAME, "report");
    }
    program.PressOk();
    const auto [code, output] = program.Finish();
    EXPECT_EQ(code, 0);
    EXPECT_THAT(Lines(output, "closed:"), ElementsAre("OK"));
    EXPECT_THAT(Lines(output, "stored:"), ElementsAre(file_));
    const std::vector<std::string> changes(stored ? 0 : 1, "ColorModel: CMYK -> Gray");
    EXPECT_EQ(Lines(output, "update"), changes);
    EXPECT_EQ(Lines(output, "option"), changes);
    if (stored) {
      EXPECT_THAT(Lines(output, "block"), IsEmpty());
    } else {
      EXPECT_THAT(Lines(output, "block"), Contains("2160 job name: \"\" -> \"report\""));
    }
  }
}

TEST_F(HostProgramTest, FailuresGetOneLineAndExitCodeOne) {
  const auto expectFailure = [](const std::string& words, const std::string& message) {
    const auto [code, output] = RunHost(words);
    EXPECT_EQ(code, 1);
    EXPECT_EQ(output, "znhost: " + message + '\n');
  };
  expectFailure("prefs --queue \"no such queue\"", "no such queue: no such queue");
  ASSERT_TRUE(host::WriteWholeFile(file_, "no DEVMODE"));
  expectFailure(PrefsWords(), "not a DEVMODE of this host: " + file_);
  ::DeleteFileA(file_.c_str());
  ::CreateDirectoryA(file_.c_str(), nullptr);
  expectFailure(PrefsWords(), "cannot read " + file_);
  ::RemoveDirectoryA(file_.c_str());
}

TEST_F(HostProgramTest, BadWordsGetOneLineAndExitCodeTwo) {
  for (const char* words :
       {"", "dance", "soak 0", "load 0", "soak five", "soak 2 --shots x", "soak 2 --queue",
        "prefs --shots", "prefs --devmod x", "prefs --read-only", "props --devmode x",
        "event delete", "install --shots x"}) {
    const auto [code, output] = RunHost(words);
    EXPECT_EQ(code, 2) << words;
    EXPECT_TRUE(output.starts_with("znhost: ")) << words;
    EXPECT_EQ(std::ranges::count(output, '\n'), 1) << words << ": " << output;
  }
}

TEST_F(HostProgramTest, SoakReportsTimesLoadsAndNoGrowth) {
  const auto [code, output] = RunHost("soak 5 --queue \"" + queue_->Name() + '"');
  EXPECT_EQ(code, 0) << output;
  for (const char* line : {"rounds: 5\n", "\nopen: ", "\ncompanion loads: ", "\nGDI objects: ",
                           "\nwindows: ", "\nhandles: ", "\nheap blocks: "}) {
    EXPECT_THAT(output, HasSubstr(line));
  }
}

}  // namespace
}  // namespace zn::test
