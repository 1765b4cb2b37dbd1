// Which names a favourite can have.
#include "favorites/favorite_name.h"

#include <gtest/gtest.h>

#include <array>

namespace zn {
namespace {

using Fault = FavoriteNameFault;

TEST(FavoriteName, WhatNoFileCanHaveIsRefused) {
  const std::array<std::string, 2> reserved{"standard", ""};
  const std::string wide = "\x8D\xFC";  // a character of two bytes
  std::string widest;
  for (int i = 0; i < 13; ++i) {
    widest += wide;
  }
  const struct {
    std::string name;
    std::uint32_t codePage;
    Fault fault;
  } rows[] = {
      {"fair", 932, Fault::None},
      {"a.b ", 932, Fault::None},
      {"", 932, Fault::Unusable},
      {std::string(27, 'x'), 932, Fault::None},
      {std::string(28, 'x'), 932, Fault::Unusable},
      {widest, 932, Fault::None},
      {widest + wide, 932, Fault::Unusable},
      {"standard", 932, Fault::Reserved},
      {"Standard", 932, Fault::None},
      {"   ", 932, Fault::Unusable},
      {" \x81\x40", 932, Fault::Unusable},
      {" \x81\x40", 1252, Fault::None},
      {"\xA1\x40", 950, Fault::Unusable},
      {"\xA1\xA1", 936, Fault::Unusable},
      {"\x95\x5C\x8E\x7C", 932, Fault::None},  // second bytes like "\" and "|"
      {"\x95\x5C", 1252, Fault::Unusable},
      {"x\x95", 932, Fault::Unusable},  // half a character
      {"..\\x", 932, Fault::Unusable},
      {"a:b", 932, Fault::Unusable},
      {"a\x1Fz", 932, Fault::Unusable},
      {"a\x7Fz", 932, Fault::Unusable},
      {"CON", 932, Fault::Unusable},
      {"nul", 932, Fault::Unusable},
      {"LPT1 . ", 932, Fault::Unusable},
      {"com0.x", 932, Fault::Unusable},
      {"CONIN$", 932, Fault::Unusable},
      {"COM", 932, Fault::None},
      {"COM10", 932, Fault::None},
      {"CONTACT", 932, Fault::None},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(CheckFavoriteName(row.name, reserved, row.codePage), row.fault)
        << '"' << row.name << "\" in " << row.codePage;
  }
  for (const char forbidden : {'\\', '/', ':', '*', '?', '"', '<', '>', '|'}) {
    EXPECT_EQ(CheckFavoriteName(std::string("a") + forbidden, reserved, 932), Fault::Unusable);
  }
}

}  // namespace
}  // namespace zn
