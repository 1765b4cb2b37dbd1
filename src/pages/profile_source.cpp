#include "pages/profile_source.h"

#include <string>

#include "platform/double_byte.h"
#include "platform/spooler.h"
#include "session/job_values.h"

namespace zn {
namespace {

// The folder of `path` without a backslash at its end; empty when the path has none.
std::string FolderOf(std::string_view path) {
  const std::size_t backslash = FindLastOf(path, "\\");
  return std::string(path.substr(0, backslash != path.npos ? backslash : 0));
}

}  // namespace

bool UpdateProfile(CProfileInfo& profile, const SheetContext& sheet) {
  const std::uint32_t codePage = SystemCodePage();
  const DriverInfo2 driver(sheet.hPrinter);
  const std::string folder =
      driver && driver->pDataFile != nullptr ? FolderOf(driver->pDataFile) : std::string();
  if (folder.empty()) {
    return profile.ReadProfile("", codePage);
  }
  std::string name(DeviceProfileOf(sheet));
  if (name == TextOf(sheet.driverName)) {
    name.append(".cps");  // a dot in a driver's name begins no extension
  }
  return profile.UpdateProfile(folder.c_str(), name.c_str(), codePage);
}

}  // namespace zn
