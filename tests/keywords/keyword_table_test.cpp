#include "keywords/keyword_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zn::test {
namespace {

constexpr std::uint32_t kOdd = 0xDEADBEEF;
constexpr KeywordId kLastRecordId = 336;

TEST(KeywordTable, EveryNameLeadsBackToItsIdAndNothingThatOnlyBeginsAlike) {
  for (KeywordId id = 0; id < KW_MAX; ++id) {
    const std::string name = GetKeywordName(id);
    EXPECT_EQ(GetKeywordId(name), id) << name;
    EXPECT_EQ(GetKeywordId(name + "x"), kNoKeyword);
    EXPECT_EQ(GetKeywordId(name + '\0'), kNoKeyword);
  }
  EXPECT_STREQ(GetKeywordName(KW_MAX), "");
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
        Row{"ZNImpositionPaginationTempFile", 178}, Row{"collate", kNoKeyword},
        Row{"Collat", kNoKeyword}, Row{"*Collate", kNoKeyword}, Row{"", kNoKeyword},
        Row{"\xFF", kNoKeyword}}) {
    EXPECT_EQ(GetKeywordId(row.keyword), row.id) << row.keyword;
  }
}

TEST(OptionCodes, IndexAndCodeOfUnevenLists) {
  struct Row {
    KeywordId id;
    std::uint32_t index, code;
  };
  for (const Row& row :
       {Row{KW_BRIGHTNESS, 0, 10}, Row{KW_BRIGHTNESS, 10, 0}, Row{KW_IMAGECALIBRATION, 0, 201},
        Row{KW_CMYKSIMULATION, 114, 119}, Row{KW_RGBCOLORCORRECT, 8, 11},
        Row{KW_IMPOSITIONTEMPLATEFILE, 499, 500}, Row{KW_MEDIATYPE, 6, 4},
        Row{KW_MEDIATYPEBYPASS, 6, 3}, Row{KW_BOOKLETPAPERSIZE, 33, 20},
        Row{KW_REPEATPRINTPAPERSIZE, 32, 20}, Row{KW_OUTPUTPAPERSIZE, 43, 73},
        Row{KW_PAGESIZE, 0, 62}, Row{330, 2, 2}}) {
    std::uint32_t code = kOdd;
    std::uint32_t index = kOdd;
    EXPECT_TRUE(GetOptionCode(row.id, row.index, code) && GetOptionIndex(row.id, row.code, index));
    EXPECT_EQ(code, row.code) << row.id;
    EXPECT_EQ(index, row.index) << row.id;
  }
}

TEST(OptionCodes, EveryListConvertsThereAndBackAndNoFurther) {
  for (KeywordId id = 0; id <= kLastRecordId; ++id) {
    const auto codes = GetOptionCodeList(id);
    std::uint32_t out = kOdd;
    EXPECT_FALSE(GetOptionCode(id, static_cast<std::uint32_t>(codes.size()), out)) << id;
    EXPECT_FALSE(GetOptionCode(id, 0xFFFFFFFF, out)) << id;
    EXPECT_FALSE(GetOptionIndex(id, 0xFFFFFFFF, out)) << id;
    EXPECT_EQ(out, kOdd) << "a miss leaves the output alone";
    for (std::uint32_t index = 0; index < codes.size(); ++index) {
      ASSERT_TRUE(GetOptionIndex(id, codes[index], out));
      EXPECT_EQ(out, index) << "id " << id << " has code " << codes[index] << " twice";
    }
  }
}

TEST(OptionCodes, IdsWithoutAListHaveTwoCodes) {
  for (const KeywordId id : {KeywordId{KW_DUPLEX}, KeywordId{KW_MAX}, KeywordId{329},
                             KeywordId{331}, KeywordId{336}, KeywordId{337}, kNoKeyword}) {
    const auto codes = GetOptionCodeList(id);
    EXPECT_EQ(std::vector(codes.begin(), codes.end()), (std::vector<std::uint32_t>{0, 1})) << id;
  }
}

}  // namespace
}  // namespace zn::test
