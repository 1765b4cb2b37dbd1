#include "session/keyword_table.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

namespace zn::test {
namespace {

constexpr std::uint32_t kOdd = 0xDEADBEEF;
constexpr KeywordId kLastRecordId = 336;

TEST(KeywordTable, EveryNameLeadsBackToItsId) {
  std::set<std::string> names;
  for (KeywordId id = 0; id < KW_MAX; ++id) {
    const std::string name = GetKeywordName(id);
    EXPECT_EQ(GetKeywordId(name), id) << name;
    EXPECT_TRUE(names.insert(name).second) << name;
    // Nothing that only begins alike is taken for it.
    EXPECT_EQ(GetKeywordId(name + "x"), kNoKeyword);
    EXPECT_EQ(GetKeywordId(name + '\0'), kNoKeyword);
  }
}

TEST(KeywordTable, LookupIsExact) {
  struct Row {
    const char* keyword;
    KeywordId id;
  };
  for (const Row& row :
       {Row{"Collate", 9}, Row{"NupBorder", 265}, Row{"ZNRGBGamma", 0},
        Row{"MediaType", KW_MEDIATYPE}, Row{"ZNMediaType", KW_ZNMEDIATYPE},
        Row{"ZNChgPageSize", KW_OUTPUTPAPERSIZE}, Row{"ZNClearProcessRegisterdPattern", 216},
        Row{"ZNComposionOfDivisionImage", 64}, Row{"ZNContrasts", 77},
        Row{"ZNImpositionPaginationTempFile", 178}, Row{"PageSize", KW_PAGESIZE},
        Row{"collate", kNoKeyword}, Row{"Collat", kNoKeyword}, Row{"Collate ", kNoKeyword},
        Row{"*Collate", kNoKeyword}, Row{"", kNoKeyword}, Row{"\xFF", kNoKeyword}}) {
    EXPECT_EQ(GetKeywordId(row.keyword), row.id) << row.keyword;
  }
  EXPECT_STREQ(GetKeywordName(KW_MAX), "");
  EXPECT_STREQ(GetKeywordName(kNoKeyword), "");
}

TEST(OptionCodes, IndexAndCodeOfUnevenLists) {
  struct Row {
    KeywordId id;
    std::uint32_t index, code;
  };
  const Row rows[] = {
      {KW_DUPLEX, 1, 1},
      {KW_BRIGHTNESS, 0, 10},
      {KW_BRIGHTNESS, 10, 0},
      {KW_IMAGECALIBRATION, 0, 201},
      {KW_IMAGECALIBRATION, 100, 100},
      {KW_CMYKSIMULATION, 15, 20},
      {KW_CMYKSIMULATION, 114, 119},
      {KW_RGBCOLORCORRECT, 8, 11},
      {KW_PUNCH, 5, 13},
      {KW_STAPLE, 21, 37},
      {KW_IMPOSITIONTEMPLATEFILE, 499, 500},
      {KW_MEDIATYPE, 6, 4},
      {KW_ZNMEDIATYPE, 6, 3},
      {KW_MEDIATYPE, 34, 342},
      {KW_BOOKLETPAPERSIZE, 33, 20},
      {KW_OUTPUTPAPERSIZE, 43, 73},
      {KW_PAGESIZE, 0, 62},
      {330, 2, 2},
  };
  for (const Row& row : rows) {
    std::uint32_t code = kOdd;
    std::uint32_t index = kOdd;
    EXPECT_TRUE(GetOptionCode(row.id, row.index, code) && GetOptionIndex(row.id, row.code, index));
    EXPECT_EQ(code, row.code) << row.id;
    EXPECT_EQ(index, row.index) << row.id;
  }
}

TEST(OptionCodes, MissesLeaveTheOutputAlone) {
  for (KeywordId id = 0; id <= kLastRecordId + 2; ++id) {
    const auto codes = GetOptionCodeList(id);
    for (const std::uint32_t index : {static_cast<std::uint32_t>(codes.size()), 0xFFFFFFFFU}) {
      std::uint32_t code = kOdd;
      EXPECT_FALSE(GetOptionCode(id, index, code)) << id;
      EXPECT_EQ(code, kOdd);
    }
    std::uint32_t index = kOdd;
    EXPECT_FALSE(GetOptionIndex(id, 0xFFFFFFFF, index)) << id;
    EXPECT_EQ(index, kOdd);
  }
  std::uint32_t index = kOdd;
  EXPECT_FALSE(GetOptionIndex(KW_IMAGECALIBRATION, 0, index));
  EXPECT_EQ(index, kOdd);
}

TEST(OptionCodes, EveryListConvertsThereAndBack) {
  for (KeywordId id = 0; id <= kLastRecordId; ++id) {
    const auto codes = GetOptionCodeList(id);
    for (std::uint32_t index = 0; index < codes.size(); ++index) {
      std::uint32_t back = kOdd;
      ASSERT_TRUE(GetOptionIndex(id, codes[index], back));
      EXPECT_EQ(back, index) << "id " << id << " has code " << codes[index] << " twice";
    }
  }
}

TEST(OptionCodes, IdsWithoutAListHaveTwoCodes) {
  for (const KeywordId id : {KeywordId{KW_DUPLEX}, KeywordId{KW_MAX}, KeywordId{329},
                             KeywordId{331}, KeywordId{336}, KeywordId{337}, kNoKeyword}) {
    const auto codes = GetOptionCodeList(id);
    ASSERT_EQ(codes.size(), 2U) << id;
    EXPECT_EQ(codes[0], 0U);
    EXPECT_EQ(codes[1], 1U);
  }
}

}  // namespace
}  // namespace zn::test
