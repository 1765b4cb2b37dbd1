#include "keywords/keyword_table.h"

#include <gtest/gtest.h>

#include <string>

namespace zn::test {
namespace {

TEST(KeywordTable, NamesAreFoundWholeOnly) {
  for (KeywordId id = 0; id < KW_MAX; ++id) {
    const std::string name = GetKeywordName(id);
    EXPECT_EQ(GetKeywordId(name), id) << name;
    for (const std::string& other : {name + "x", name + '\0', '*' + name}) {
      EXPECT_EQ(GetKeywordId(other), kNoKeyword) << other;
    }
  }
  EXPECT_EQ(GetKeywordId(""), kNoKeyword);
  EXPECT_STREQ(GetKeywordName(KW_MAX), "");
}

TEST(OptionCodes, EveryListConvertsThereAndBackAndNoFurther) {
  constexpr std::uint32_t kOdd = 0xDEADBEEF;
  constexpr KeywordId kLastRecordId = 336;
  for (KeywordId id = 0; id <= kLastRecordId; ++id) {
    const auto codes = GetOptionCodeList(id);
    std::uint32_t out = kOdd;
    EXPECT_FALSE(GetOptionCode(id, static_cast<std::uint32_t>(codes.size()), out)) << id;
    EXPECT_FALSE(GetOptionCode(id, 0xFFFFFFFF, out)) << id;
    EXPECT_FALSE(GetOptionIndex(id, 0xFFFFFFFF, out)) << id;
    EXPECT_EQ(out, kOdd) << "a miss leaves the output alone";
    for (std::uint32_t index = 0; index < codes.size(); ++index) {
      ASSERT_TRUE(GetOptionCode(id, index, out));
      EXPECT_EQ(out, codes[index]);
      ASSERT_TRUE(GetOptionIndex(id, codes[index], out));
      EXPECT_EQ(out, index) << "id " << id << " has code " << codes[index] << " twice";
    }
  }
}

}  // namespace
}  // namespace zn::test
