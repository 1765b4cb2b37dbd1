// Reading a device profile, against splitting the same lines and looking at nothing.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "profile/profile_info.h"

namespace {

// A profile in which every second line is of use, as long as it has to be.
std::string MakeProfile(long lines) {
  static constexpr std::string_view kKinds[] = {
      "; settings of the device controller\r\n",
      "HasOption_InputSlot=Tray3\r\n",
      "DefaultResolution=1200x1200dpi\r\n",
      "CustomPaperName7=Coated 157 glossy\r\n",
      "[Finishing and output]\r\n",
      "Watermark42=CONFIDENTIAL\r\n",
      "HasOption_ZNStaple=false\r\n",
      "PageRegion=A3 Rotated\r\n",
      "TrappingProfile100=Default trapping\r\n",
      "SomeUnknownKey=value of it\r\n",
  };
  std::string text;
  for (long line = 0; line < lines; ++line) {
    text += kKinds[static_cast<std::size_t>(line) % std::size(kKinds)];
  }
  return text;
}

// A file that is removed when the program ends.
class ProfileFile {
 public:
  explicit ProfileFile(std::string_view text) {
    const int file = mkstemp(path_);
    if (file < 0 || write(file, text.data(), text.size()) != std::ssize(text)) {
      std::abort();
    }
    close(file);
  }
  ~ProfileFile() { unlink(path_); }
  ProfileFile(const ProfileFile&) = delete;
  ProfileFile& operator=(const ProfileFile&) = delete;

  [[nodiscard]] const char* Path() const { return path_; }

 private:
  char path_[64] = "/tmp/zn_profile_bench_XXXXXX";
};

template <long kLines>
void ReadProfile(benchmark::State& state) {
  const ProfileFile file(MakeProfile(kLines));
  zn::CProfileInfo profile;
  for (auto _ : state) {
    if (!profile.ReadProfile(file.Path(), 932)) {
      state.SkipWithError("not read");
    }
  }
}

// The text is in memory already: the reference does not even read the file.
void SplitLines(benchmark::State& state) {
  const std::string text = MakeProfile(100000);
  for (auto _ : state) {
    const char* end = text.data() + text.size();
    for (const char* line = text.data(); line != end;) {
      const auto* lineFeed =
          static_cast<const char*>(std::memchr(line, '\n', static_cast<std::size_t>(end - line)));
      benchmark::DoNotOptimize(line);
      line = lineFeed + 1;
    }
  }
}

BENCHMARK(ReadProfile<10000>)->Name("profile/lines_10000");
BENCHMARK(ReadProfile<100000>)->Name("profile/lines_100000");
BENCHMARK(SplitLines)->Name("profile/memchr_100000");

}  // namespace
