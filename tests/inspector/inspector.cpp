#include "tests/inspector/inspector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <iterator>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;  // NOLINT(readability-redundant-declaration)
#endif

namespace zn::test {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

#ifdef _WIN32

fs::path ProgramFolder() {
  wchar_t path[MAX_PATH] = L"";
  ::GetModuleFileNameW(nullptr, path, MAX_PATH);
  return fs::path(path).parent_path();
}

int ProcessId() {
  return static_cast<int>(::GetCurrentProcessId());
}

HANDLE OpenInheritable(const fs::path& path) {
  SECURITY_ATTRIBUTES inherit{sizeof inherit, nullptr, TRUE};
  return ::CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherit, CREATE_ALWAYS,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

// The words must not hold quotes or end in a backslash.
int RunProgram(const fs::path& program, const std::vector<std::string>& words, const fs::path& out,
               const fs::path& error) {
  std::string line = "\"" + program.string() + "\"";
  for (const std::string& word : words) {
    line += " \"" + word + "\"";
  }
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = OpenInheritable(out);
  startup.hStdError = OpenInheritable(error);
  PROCESS_INFORMATION process{};
  const BOOL started = ::CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                        nullptr, &startup, &process);
  ::CloseHandle(startup.hStdOutput);
  ::CloseHandle(startup.hStdError);
  if (started == FALSE) {
    return -1;
  }
  ::WaitForSingleObject(process.hProcess, INFINITE);
  DWORD exitCode = 0;
  ::GetExitCodeProcess(process.hProcess, &exitCode);
  ::CloseHandle(process.hThread);
  ::CloseHandle(process.hProcess);
  return static_cast<int>(exitCode);
}

constexpr char kProgramName[] = "zninspect.exe";

#else

fs::path ProgramFolder() {
  return fs::read_symlink("/proc/self/exe").parent_path();
}

int ProcessId() {
  return ::getpid();
}

int RunProgram(const fs::path& program, const std::vector<std::string>& words, const fs::path& out,
               const fs::path& error) {
  constexpr int kCreate = O_WRONLY | O_CREAT | O_TRUNC;
  std::string name = program.string();
  std::vector<std::string> copies = words;
  std::vector<char*> arguments{name.data()};
  for (std::string& word : copies) {
    arguments.push_back(word.data());
  }
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out.c_str(), kCreate, 0600);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, error.c_str(), kCreate, 0600);
  pid_t child = 0;
  const int failed =
      posix_spawn(&child, name.c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  if (failed != 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) {
    return -1;
  }
  return WEXITSTATUS(status);
}

constexpr char kProgramName[] = "zninspect";

#endif

std::string WithPlainLineEnds(std::string text) {
#ifdef _WIN32
  for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos;) {
    text.erase(at, 1);
  }
#endif
  return text;
}

}  // namespace

bool Outcome::IsOneLineError() const {
  return output.empty() && error.starts_with("zninspect: ") && Lines(error).size() == 1 &&
         error.back() == '\n';
}

Outcome RunInspector(const std::vector<std::string>& words) {
  const TemporaryFolder folder;
  const fs::path program = ProgramFolder() / kProgramName;
  Outcome outcome;
  outcome.exitCode = RunProgram(program, words, folder.Path("out"), folder.Path("error"));
  EXPECT_NE(outcome.exitCode, -1) << program << " does not run";
  outcome.output = WithPlainLineEnds(folder.Read("out"));
  outcome.error = WithPlainLineEnds(folder.Read("error"));
  return outcome;
}

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

TemporaryFolder::TemporaryFolder() {
  static std::atomic<int> count{0};
  folder_ = fs::temp_directory_path() /
            ("zninspect" + std::to_string(ProcessId()) + "_" + std::to_string(++count));
  fs::create_directories(folder_);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

std::string TemporaryFolder::Path(std::string_view name) const {
  return (folder_ / name).string();
}

std::string TemporaryFolder::Write(std::string_view name, std::string_view bytes) const {
  const fs::path path = folder_ / name;
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  EXPECT_TRUE(file) << path;
  return path.string();
}

std::string TemporaryFolder::Read(std::string_view name) const {
  return ReadFile(folder_ / name);
}

bool TemporaryFolder::Has(std::string_view name) const {
  return fs::exists(folder_ / name);
}

}  // namespace zn::test
