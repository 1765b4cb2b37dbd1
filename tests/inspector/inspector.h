// Runs the real zninspect, which stands beside the test program, and looks at what it says.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace zn::test {

struct Outcome {
  int exitCode = -1;
  std::string output;  // line ends are \n
  std::string error;

  // Usage and failure are told in exactly one line, with nothing on stdout.
  [[nodiscard]] bool IsOneLineError() const;
};

[[nodiscard]] Outcome RunInspector(const std::vector<std::string>& words);

// The lines of a text, without their ends.
[[nodiscard]] std::vector<std::string> Lines(std::string_view text);

// A folder for one test, gone with the object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] std::string Path(std::string_view name) const;
  // Answers the path.
  std::string Write(std::string_view name, std::string_view bytes) const;
  // Empty when the file is not there.
  [[nodiscard]] std::string Read(std::string_view name) const;
  [[nodiscard]] bool Has(std::string_view name) const;

 private:
  std::filesystem::path folder_;
};

}  // namespace zn::test
