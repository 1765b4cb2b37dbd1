// Numbers as text: the rules of stream extraction, in every locale.
#include "ddb/number_text.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

namespace ddb {
namespace {

TEST(NumberText, IntegersAreTakenFromTheFront) {
  struct Row {
    std::string text;
    std::int32_t value;
  };
  // clang-format off
  const Row rows[] = {
      {"", 0}, {"0", 0}, {"12abc", 12}, {" \t\n\v\f\r7", 7}, {"+5", 5}, {"-5", -5}, {"+-5", 0},
      {"- 5", 0}, {"abc", 0}, {"0x10", 0}, {"007", 7}, {"1.9", 1}, {std::string("1\0002", 3), 1},
      {"2147483647", 2147483647}, {"2147483648", 0},
      {"-2147483648", -2147483647 - 1}, {"-2147483649", 0},
      {"4294967301", 0}, {"18446744073709551621", 0},  // 5 in 32 and in 64 bits
      {std::string(500, '9'), 0}, {std::string(500, '0') + "3", 3},
  };
  // clang-format on
  for (const Row& row : rows) {
    EXPECT_EQ(ParseInteger(row.text), row.value) << row.text;
  }
}

TEST(NumberText, FractionsAreTakenFromTheFront) {
  struct Row {
    std::string text;
    double value;
  };
  // clang-format off
  const Row rows[] = {
      {"", 0.0}, {".", 0.0}, {"x1", 0.0}, {"inf", 0.0}, {"nan", 0.0}, {"--1", 0.0}, {"0x10", 0.0},
      {"21.0", 21.0}, {" 0.125mm", 0.125}, {"5.", 5.0}, {".5", 0.5}, {"+.25", 0.25}, {"-1.5", -1.5},
      {"1.2.3", 1.2}, {"1,5", 1.0}, {"1e2", 100.0}, {"1E-2x", 0.01}, {"2e+1", 20.0}, {"1e", 0.0},
      {"1e+", 0.0}, {"1e-400", 0.0}, {"0e99999999", 0.0}, {"1e-99999999999", 0.0},
      {"123456789012345678901234567890", 123456789012345678901234567890.0},
      {"0." + std::string(400, '0') + "1e401", 1.0}, {std::string(1000, '0') + "7.5", 7.5},
      {"1" + std::string(900, '0') + "e-900", 1.0},
  };
  // clang-format on
  for (const Row& row : rows) {
    EXPECT_EQ(ParseFraction(row.text), row.value) << row.text;
  }
}

TEST(NumberText, FractionsAreTheNearestDoubleOfAnyDigits) {
  std::mt19937 random(20261121);
  for (int i = 0; i < 20000; ++i) {
    std::string text;
    const auto digits = 1 + random() % 25;
    const auto point = random() % (digits + 1);
    for (unsigned d = 0; d < digits; ++d) {
      text.append(d == point ? "." : "").append(1, static_cast<char>('0' + random() % 10));
    }
    if (random() % 3 == 0) {
      text += "e" + std::to_string(static_cast<int>(random() % 60) - 30);
    }
    EXPECT_EQ(ParseFraction(text), std::strtod(text.c_str(), nullptr)) << text;
  }
}

TEST(NumberText, UnitsAreRoundedAndReducedTo32Bits) {
  struct Row {
    const char* text;
    int units;
    std::int32_t value;
  };
  // clang-format off
  const Row rows[] = {
      {"21.0", 100, 2100}, {"0.125", 100, 13}, {"210.004", 100, 21000}, {"12.34", 10, 123},
      {"12.35", 10, 124}, {"abc", 10, 0}, {"-0.5", 100, -50}, {"-0.125", 100, -12},  // rounded up
      {"21474836.47", 100, 2147483647}, {"21474836.48", 100, -2147483647 - 1},
      {"42949672.95", 100, -1}, {"429496729.5", 10, -1}, {"42949672.96", 100, 0},
      {"42949673.01", 100, 5}, {"1e300", 100, 0}, {"1e400", 100, 0},
  };
  // clang-format on
  for (const Row& row : rows) {
    EXPECT_EQ(ParseUnits(row.text, row.units), row.value) << row.text;
  }
}

TEST(NumberText, UnitsAreWrittenAsPrintfWouldAndComeBack) {
  std::mt19937 random(7);
  std::array<char, 16> out;
  for (int i = 0; i < 10000; ++i) {
    const auto value = static_cast<std::int32_t>(i < 300 ? i - 150 : random());
    for (const int places : {1, 2}) {
      char expected[32];
      std::snprintf(expected, sizeof expected, "%.*f", value == 0 ? 1 : places,
                    static_cast<std::uint32_t>(value) / std::pow(10, places));
      const std::string_view text = FormatUnits(value, places, out);
      EXPECT_EQ(text, expected) << value;
      EXPECT_EQ(ParseUnits(text, places == 1 ? 10 : 100), value);
    }
    EXPECT_EQ(ParseInteger(FormatInteger(value, out)), value);
  }
}

TEST(NumberText, TheProgramsLocaleDoesNotMatter) {
  const char* found = nullptr;
  for (const char* name : {"de_DE.UTF-8", "de_DE", "deu", "fr_FR.UTF-8", "fra"}) {
    found = found != nullptr ? found : std::setlocale(LC_ALL, name);
  }
  std::array<char, 16> out;
  EXPECT_EQ(ParseUnits("12.34", 100), 1234);
  EXPECT_EQ(ParseFraction("1234567890.12345678901"), 1234567890.12345678901);
  EXPECT_EQ(FormatUnits(1234, 2, out), "12.34");
  std::setlocale(LC_ALL, "C");
  if (found == nullptr) {
    GTEST_SKIP() << "no locale with a decimal comma here";
  }
}

}  // namespace
}  // namespace ddb
