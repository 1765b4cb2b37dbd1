// A file takes another's place whole, or both stay.
#include "platform/replace_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/temp_folder.h"

namespace zn {
namespace {

TEST(ReplaceFile, TakesThePlaceOrLeavesBothAsTheyWere) {
  const TempFolder folder;
  const std::string from = folder.Write("from", "new");
  std::filesystem::create_directories(folder.Path("full/inside"));
  EXPECT_FALSE(ReplaceInOneStep(from.c_str(), folder.Path("full").c_str()));
  EXPECT_FALSE(ReplaceInOneStep(folder.Path("none").c_str(), from.c_str()));
  EXPECT_EQ(folder.Read("from"), "new");
  EXPECT_TRUE(std::filesystem::exists(folder.Path("full/inside")));
  folder.Write("to", "old and longer");
  EXPECT_TRUE(ReplaceInOneStep(from.c_str(), folder.Path("to").c_str()));
  EXPECT_EQ(folder.Read("to"), "new");
  EXPECT_FALSE(std::filesystem::exists(from));
}

}  // namespace
}  // namespace zn
