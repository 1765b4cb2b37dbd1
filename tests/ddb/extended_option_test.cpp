// The extended tags: their own table, lookup and digit scan.
#include "ddb/extended_option.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace ddb {
namespace {

std::string Written(CPrintOptionEx& record, const char* tag) {
  std::string text;
  return ExchangeExtTag(tag, text, record, false, false) ? text : "(unknown)";
}

bool Read(CPrintOptionEx& record, const char* tag, std::string value) {
  return ExchangeExtTag(tag, value, record, true, false);
}

TEST(ExchangeExtTag, ReadsWithItsOwnDigitScan) {
  struct Row {
    const char *tag, *value, *written;
  };
  // clang-format off
  const Row rows[] = {
      {"EXT_PSLLV", "2", "2"}, {"EXT_NUP", "1x2", "102"}, {"EXT_NUP", "-5", "5"},
      {"EXT_NUP", "5-", "50"}, {"EXT_NUP", "", "0"},
      {"EXT_NUP", "4294967295", "-1"}, {"EXT_NUP", "4294967301", "5"},
      {"EXT_NUP", "2147483648", "-2147483648"}, {"GR_DEPTH", "30", "50"}, {"GR_DEPTH", "600", "600"},
      {"GR_DEPTH", "2400", "1200"}, {"GR_DEPTH", "4294967295", "-1"},
      {"GR_DEPTH", "4294967294", "50"}, {"GR_DEPTH", "-1", "50"}, {"PG_NUMBR", "0", "1"},
      {"PG_NUMBR", "10000", "9999"}, {"PG_NUMBR", "4294967295", "1"}, {"PG_MAGNI", "0", "0"},
      {"PG_MAGNI", "99999", "99999"},
  };
  // clang-format on
  for (const Row& row : rows) {
    CPrintOptionEx record(true);
    EXPECT_TRUE(Read(record, row.tag, row.value));
    EXPECT_EQ(Written(record, row.tag), row.written) << row.tag << " " << row.value;
    EXPECT_EQ(ComesBack(row.tag, record), row.written[0] != '-') << row.value;
  }
}

TEST(ExchangeExtTag, KnowsItsTagsInUpperCaseOnly) {
  const CPrintOptionEx fresh(true);
  EXPECT_FALSE(ComesBack("PG_NUMBR", fresh));  // 0 would come back as 1
  CPrintOptionEx record(true);
  for (const char* tag : {"ext_nup", "EXT_NU", "EXT_NUPB", "PG_PSIZE", "PG_PPSIZEX", ""}) {
    EXPECT_FALSE(Read(record, tag, "5")) << tag;
    EXPECT_EQ(Written(record, tag), "(unknown)") << tag;
  }
  EXPECT_EQ(std::memcmp(&record.m_Body, &fresh.m_Body, sizeof record.m_Body), 0);
  EXPECT_EQ(record.m_Extended, fresh.m_Extended);
}

}  // namespace
}  // namespace ddb
