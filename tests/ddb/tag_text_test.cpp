// One tag at a time: value text into the record and back.
#include "ddb/tag_text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "ddb/tag_table.h"

namespace ddb {
namespace {

std::string Written(CPrintOption& record, const std::string& tag, bool translate = true) {
  std::string text = "(untouched)";
  ExchangeTag(tag, text, record, false, translate);
  return text;
}

void Read(CPrintOption& record, const std::string& tag, std::string value, bool translate = true) {
  ExchangeTag(tag, value, record, true, translate);
}

TEST(ExchangeTag, ReadsEachKindByItsRules) {
  struct Row {
    const char* tag;
    std::string value, written;
  };
  // clang-format off
  const Row rows[] = {
      {"CL_CMODE", "12abc", "12"}, {"CL_CMODE", "2147483648", "0"}, {"CL_CMODE", "-3", "-3"},
      {"CL_CMODE", "", "0"}, {"pg_numbr", "0", "1"}, {"PG_NUMBR", "12000", "9999"},
      {"PG_NUMBR", "abc", "1"}, {"PG_NUMBR", "9999", "9999"}, {"PG_PPSIZEX", "210.004", "210.00"},
      {"PG_PPSIZEX", "0", "0.0"}, {"PG_PPSIZEX", "0.05", "0.05"},
      {"PG_PPSIZEX", "-0.01", "42949672.95"}, {"OUT_PPSWM", "12.34", "12.3"},
      {"OUT_PPSWM", "0.0", "0.0"}, {"BUILD_COVER_FRONT", "5", "1"}, {"BUILD_COVER_FRONT", "-1", "1"},
      {"BUILD_COVER_REVERSE", "x", "0"}, {"CBS_PRT", "2", "2"}, {"CBS_PRT", "-1", "-1"},
      {"CBS_PRT", "7", "-1"}, {"CBS_PRT", "6", "2"}, {"CBS_PG", "16382", "16382"},
      {"CBS_PG", "-1", "-1"}, {"CBS_PG", "16385", "1"}, {"PG_RTEXT", "1-3, 5 = x", "1-3, 5 = x"},
      {"GR_TITLE", std::string(40, 't'), std::string(31, 't')},
      {"BS_COMMENT", std::string(512, 'c'), std::string(512, 'c')},
  };
  // clang-format on
  for (const Row& row : rows) {
    CPrintOption record;
    Read(record, row.tag, row.value);
    EXPECT_EQ(Written(record, row.tag), row.written) << row.tag << " " << row.value;
  }
}

TEST(ExchangeTag, UnknownTagsLeaveTheRecordAlone) {
  const CPrintOption fresh;
  CPrintOption record;
  for (const char* tag :
       {"EXT_NUP", "PG_SIZEX", "PG_SIZEY", "PG-NUMBR", "PG_NUMB", "BUILD_COVER_REVERSEX", ""}) {
    Read(record, tag, "5");
    EXPECT_EQ(Written(record, tag), "(untouched)") << tag;
  }
  const auto bytesOf = [](const CPrintOption& option) {
    return std::string_view(reinterpret_cast<const char*>(&option.m_Body), sizeof option.m_Body);
  };
  EXPECT_TRUE(bytesOf(record) == bytesOf(fresh));
}

TEST(ExchangeTag, MarkIsRaisedByReadingTheMarkedTexts) {
  CPrintOption record;
  EXPECT_EQ(record.m_Body.ST_.FNAME.set, 0);
  Read(record, "ST_FNAME", "");
  EXPECT_EQ(record.m_Body.ST_.FNAME.set, 1);
  Read(record, "ST_NAME", std::string(600, 'n'));
  EXPECT_EQ(record.m_Body.ST_.NAME.set, 1);
  EXPECT_EQ(record.m_Body.ST_.NAME.text[510], '\0');
  Read(record, "SP_FMPAS", std::string(64, 's'));
  Read(record, "SP_FMPAS", "ab");  // leaves nothing of the longer one
  EXPECT_EQ(std::string_view(record.m_Body.SP_FMPAS.text, sizeof record.m_Body.SP_FMPAS.text),
            "ab" + std::string(63, '\0'));
  EXPECT_EQ(record.m_Body.SP_FMPAS.set, 0);
}

TEST(ExchangeTag, MediaCodesAreTranslatedOnlyOnRequest) {
  for (const char* tag : {"PG_PTYPE", "PG_PTYPEB"}) {
    for (const auto& [inFile, inRecord] :
         {std::pair("0", "10"), {"1", "0"}, {"11", "5"}, {"12", "12"}, {"-1", "-1"}}) {
      CPrintOption record;
      Read(record, tag, inFile);
      EXPECT_EQ(Written(record, tag, false), inRecord);
      EXPECT_EQ(Written(record, tag), inFile);
      Read(record, tag, inFile, false);
      EXPECT_EQ(Written(record, tag, false), inFile);
    }
  }
}

TEST(ExchangeTag, PackedPartsKeepEachOther) {
  CPrintOption record;
  Read(record, "CBS_PG", "5");
  EXPECT_EQ(record.m_Body.CBS_PRT, (5 << 2) | 3);
  Read(record, "CBS_PRT", "1");
  EXPECT_EQ(record.m_Body.CBS_PRT, (5 << 2) | 1);
  record.m_Body.CBS_PRT = 0x7FFF0000;
  Read(record, "CBS_PG", "-1");
  EXPECT_EQ(record.m_Body.CBS_PRT, 0x7FFFFFFC);
}

TEST(ExchangeTag, UnterminatedTextsEndWithTheirField) {
  CPrintOption record;
  constexpr Tag kTitle = TagNamed("GR_TITLE");
  std::memset(reinterpret_cast<char*>(&record.m_Body) + kTitle.offset, 'x', kTitle.maxChars + 1);
  EXPECT_EQ(Written(record, "GR_TITLE"), std::string(31, 'x'));
}

}  // namespace
}  // namespace ddb
