// Profile files of any content: the answers are those of the item by item walk.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "profile/profile_info.h"
#include "tests/profile/reference_walk.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const int file = memfd_create("profile", 0);
  static const std::string path = "/proc/self/fd/" + std::to_string(file);
  if (ftruncate(file, 0) != 0 || pwrite(file, data, size, 0) != static_cast<ssize_t>(size)) {
    std::abort();
  }
  zn::CProfileInfo profile;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (!profile.ReadProfile(path.c_str(), 932) ||
      zn::test::FirstDifference(profile.Items(), zn::test::WalkProfile(text)) >= 0) {
    std::abort();
  }
  return 0;
}
