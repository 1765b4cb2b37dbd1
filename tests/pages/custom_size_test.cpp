// The numbers of the custom paper size dialog.
#include "pages/custom_size.h"

#include <gtest/gtest.h>

#include <string>

namespace zn {
namespace {

using enum PaperUnit;
using enum Dimension;

CustomSize Sized(PaperUnit unit, std::uint32_t width, std::uint32_t height, bool isTurned) {
  CustomSize size;
  size.ChangeUnit(unit, isTurned);
  size.Set(Width, width);
  size.Set(Height, height);
  size.UpdateLargest(isTurned);
  return size;
}

std::string Shown(const CustomSize& size) {
  return size.Text(Width) + RangeText(size, Width) + size.Text(Height) + RangeText(size, Height);
}

TEST(CustomSizeTest, TextsBecomeWholeThousandths) {
  const struct {
    std::string text;
    std::uint32_t value;
  } rows[] = {
      {"210.00", 210000},
      {" 25.4", 25400},
      {"12.99", 12990},
      {"935.43", 935430},
      {"660.4", 660400},
      {"1.0009", 1000},
      {".5", 500},
      {"1e2", 100000},
      {"8,27", 8000},
      {"", 0},
      {"-5", 0},
      {"wide", 0},
      {".", 0},
      {"\x82\x51\x82\x50", 0},
      {"4294967296", 2147483647},
      {"1e999", 2147483647},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ParseThousandths(row.text), row.value) << row.text;
  }
}

// A sheet fed turned may be long where it is longer; else in the other direction.
TEST(CustomSizeTest, SizesAreKeptOrBroughtToTheNearestLimit) {
  const struct {
    PaperUnit unit;
    std::uint32_t width, height;
    bool isTurned;
    bool isInRange;
    const char* repaired;
  } rows[] = {
      {Millimeter, 660400, 330000, true, true, "660.40(25.40, 660.40)330.00(25.40, 330.00)"},
      {Millimeter, 330000, 660400, true, true, "330.00(25.40, 330.00)660.40(25.40, 660.40)"},
      {Millimeter, 660401, 25399, true, false, "660.40(25.40, 660.40)25.40(25.40, 330.00)"},
      {Millimeter, 420000, 25400, false, false, "330.00(25.40, 330.00)25.40(25.40, 660.40)"},
      {Millimeter, 330001, 330001, false, false, "330.00(25.40, 660.40)330.00(25.40, 330.00)"},
      {Inch, 17000, 11000, true, true, "17.00(1.00, 26.00)11.00(1.00, 12.99)"},
      {Inch, 999, 12991, true, false, "1.00(1.00, 12.99)12.99(1.00, 26.00)"},
      {Point, 2147483647, 0, false, false, "935.43(72.00, 935.43)72.00(72.00, 1872.00)"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.repaired);
    CustomSize size = Sized(row.unit, row.width, row.height, row.isTurned);
    EXPECT_EQ(size.IsInRange(Width) && size.IsInRange(Height), row.isInRange);
    size.Repair();
    EXPECT_EQ(Shown(size), row.repaired);
  }
}

TEST(CustomSizeTest, UnitsChangeThereAndBackWithoutDrift) {
  CustomSize size = Sized(Millimeter, 210005, 297000, true);
  const struct {
    PaperUnit unit;
    const char* shown;
    std::uint32_t width;
  } rows[] = {
      {Inch, "8.27(1.00, 12.99)11.69(1.00, 26.00)", 8268},
      {Point, "595.29(72.00, 935.43)841.89(72.00, 1872.00)", 595289},
      {Inch, "8.27(1.00, 12.99)11.69(1.00, 26.00)", 8268},
      {Millimeter, "210.01(25.40, 330.00)297.00(25.40, 660.40)", 210005},
  };
  for (const auto& row : rows) {
    size.ChangeUnit(row.unit, true);
    EXPECT_EQ(Shown(size), row.shown);
    EXPECT_EQ(size.Value(Width), row.width);
  }
}

// Single precision and twice a half: what is stored can be a thousandth more than what was entered.
TEST(CustomSizeTest, MillimetersGoInAndOut) {
  const struct {
    PaperUnit unit;
    std::uint32_t millimeters;
    const char* shown;
    std::uint32_t value, out;
  } rows[] = {{Millimeter, 297000, "297.00", 297001, 297002},
              {Inch, 297000, "11.69", 11693, 297003},
              {Point, 210000, "595.27", 595275, 210002},
              {Millimeter, 4294967295, "4294967.50", 2147483647, 2147483647}};
  for (const auto& row : rows) {
    CustomSize size = Sized(row.unit, 0, 0, false);
    size.SetMillimeters(Height, row.millimeters);
    EXPECT_EQ(size.Text(Height), row.shown);
    EXPECT_EQ(size.Value(Height), row.value);
    EXPECT_EQ(size.InMillimeters(Height), row.out);
  }
}

}  // namespace
}  // namespace zn
