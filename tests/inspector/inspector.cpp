#include "tests/inspector/inspector.h"

#include <algorithm>
#include <cstdlib>

#ifdef _WIN32
#include <windows.h>
#else
#include <sys/wait.h>
#endif

namespace zn::test {
namespace {

std::string Quoted(const std::string& word) {
  return '"' + word + '"';
}

#ifdef _WIN32

std::string Program() {
  char path[MAX_PATH] = "";
  ::GetModuleFileNameA(nullptr, path, MAX_PATH);
  return std::filesystem::path(path).replace_filename("zninspect.exe").string();
}

// The command processor takes the outermost quotes away.
int Run(const std::string& line) {
  return std::system(Quoted(line).c_str());
}

#else

std::string Program() {
  return std::filesystem::read_symlink("/proc/self/exe").replace_filename("zninspect").string();
}

int Run(const std::string& line) {
  const int status = std::system(line.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

#endif

}  // namespace

bool Outcome::IsOneLineError() const {
  return output.empty() && error.starts_with("zninspect: ") && error.find('\n') == error.size() - 1;
}

Outcome RunInspector(const std::vector<std::string>& words) {
  const TempFolder folder;
  std::string line = Quoted(Program());
  for (const std::string& word : words) {
    line += ' ' + Quoted(word);
  }
  line += " >" + Quoted(folder.Path("out")) + " 2>" + Quoted(folder.Path("error"));
  Outcome outcome{Run(line), folder.Read("out"), folder.Read("error")};
  std::erase(outcome.output, '\r');
  std::erase(outcome.error, '\r');
  return outcome;
}

std::string Inspect(const std::vector<std::string>& words) {
  const Outcome outcome = RunInspector(words);
  EXPECT_EQ(outcome.exitCode, 0) << testing::PrintToString(words);
  EXPECT_EQ(outcome.error, "");
  return outcome.output;
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

}  // namespace zn::test
