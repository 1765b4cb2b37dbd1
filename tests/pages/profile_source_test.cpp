// Where the profile of a real queue is looked for.
#include "pages/profile_source.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "session/job_values.h"
#include "test_queue.h"

namespace zn {
namespace {

class ProfileSourceTest : public ::testing::Test {
 protected:
  // A profile in the driver's data folder with one watermark, named like the file.
  void WriteProfile(const std::string& name) {
    written_.push_back(queue_.DriverFolder() + name + ".cps");
    std::ofstream(written_.back()) << "Watermark1=" << name << '\n';
  }
  ~ProfileSourceTest() override {
    for (const std::string& path : written_) {
      std::remove(path.c_str());
    }
  }

  // The name of the profile that was read, or "none".
  std::string Read() {
    CProfileInfo profile;
    std::string text = "none";
    if (UpdateProfile(profile, *sheet_)) {
      profile.GetWaterMarkConfig(&text, 0);
    }
    return text;
  }

  test::TestQueue queue_;
  std::unique_ptr<SheetContext> sheet_ = std::make_unique<SheetContext>();
  std::vector<std::string> written_;
};

TEST_F(ProfileSourceTest, TheSheetNamesTheProfileElseTheDriverDoes) {
  sheet_->hPrinter = queue_.Handle();
  std::strcpy(sheet_->driverName, "zn_test driver 1.5");
  EXPECT_EQ(Read(), "none");
  WriteProfile("zn_test driver 1.5");
  WriteProfile("zn_test device");
  EXPECT_EQ(Read(), "zn_test driver 1.5");
  for (const char* name : {"zn_test device", "D:\\x\\zn_test device.cps"}) {
    SetDeviceProfile(*sheet_, name);
    EXPECT_EQ(Read(), "zn_test device") << name;
  }
  SetDeviceProfile(*sheet_, "zn_test driver 1.5");
  EXPECT_EQ(Read(), "zn_test driver 1.5");
  SetDeviceProfile(*sheet_, std::string(260, 'x'));
  EXPECT_EQ(Read(), "none");
}

TEST_F(ProfileSourceTest, PrintersThatCannotBeAskedHaveNoProfile) {
  WriteProfile("zn_test device");
  SetDeviceProfile(*sheet_, "zn_test device");
  CProfileInfo profile;
  EXPECT_FALSE(UpdateProfile(profile, *sheet_));
  EXPECT_EQ(profile.Items()[0].present, 1U);
}

}  // namespace
}  // namespace zn
