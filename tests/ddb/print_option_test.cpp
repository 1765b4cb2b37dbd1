// The record as a block: persistent image, copying, the contract with the companion.
#include "ddb/print_option.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "ddb/tag_table.h"

namespace ddb {
namespace {

constexpr PersistentSize kBodySize = 16548;
constexpr PersistentSize kExtendedSize = 19112;

TEST(PrintOption, ExtensionStartsUnspecified) {
  const CPrintOptionEx record(false);
  EXPECT_THAT(record.m_Extension.codes, ::testing::Each(-1));
  EXPECT_EQ(record.m_Extension.limit, 0x7FFFFFFF);
  EXPECT_THAT(record.m_Extension.reserved, ::testing::Each(0));
}

// What the companion module, built by another compiler, does with the pointer it gets.
TEST(PrintOption, AnswersThroughTheFourSlotsInOrder) {
  CPrintOptionEx record(true);
  CPrintOption* object = &record;
  ASSERT_EQ(static_cast<void*>(object), static_cast<void*>(&record));
  EXPECT_EQ(reinterpret_cast<char*>(&record.m_Body) - reinterpret_cast<char*>(object),
            static_cast<std::ptrdiff_t>(sizeof(void*)));

  using GetSize = PersistentSize (*)(CPrintOption*);
  using GetFlag = bool (*)(CPrintOption*);
  void** slots = *reinterpret_cast<void***>(object);
  EXPECT_EQ(reinterpret_cast<GetSize>(slots[2])(object), kExtendedSize);
  EXPECT_FALSE(reinterpret_cast<GetFlag>(slots[3])(object));
}

void ExpectSizeCheck(CPrintOption& record, PersistentSize size, PersistentSize image) {
  std::vector<unsigned char> buffer(kExtendedSize + 1, 0xCD);
  PersistentSize inOut = size;
  EXPECT_EQ(record.GetPersistentSize(), image);
  for (const bool save : {true, false}) {
    try {
      save ? record.SaveTo(buffer.data(), &inOut) : record.LoadFrom(buffer.data(), size);
      EXPECT_GE(size, image);
    } catch (DdbErrT error) {
      EXPECT_EQ(error, 6);
      EXPECT_LT(size, image);
    }
  }
  EXPECT_EQ(inOut, size < image ? size : image);
  EXPECT_EQ(buffer[0] == 0xCD, size < image);
  EXPECT_EQ(buffer[image], 0xCD);
  EXPECT_EQ(record.m_Body.PG_RANGE, -1);
}

TEST(PrintOption, ThrowsForBuffersBelowItsImage) {
  for (const PersistentSize size :
       {0U, kBodySize - 1, kBodySize, kExtendedSize - 1, kExtendedSize, kExtendedSize + 1}) {
    SCOPED_TRACE(size);
    CPrintOption base;
    CPrintOptionEx extended(true);
    ExpectSizeCheck(base, size, kBodySize);
    ExpectSizeCheck(extended, size, kExtendedSize);
  }
}

TEST(PrintOption, ImageHoldsExtensionThenBodyAndNothingElse) {
  CPrintOptionEx from(true);
  from.m_Body.PG_NUMBR = 0x01020304;
  from.m_Body.reserved[83] = 9;
  from.m_Extension.codes[0] = 7;
  from.m_Extended[EXT_NUP] = 4;
  std::vector<unsigned char> image(kExtendedSize);
  PersistentSize size = kExtendedSize;
  from.SaveTo(image.data(), &size);
  EXPECT_EQ(image[0], 7);
  EXPECT_EQ(image[2564], 4);  // PG_NUMBR, low byte first

  CPrintOptionEx to(false);
  to.LoadFrom(image.data(), size);
  EXPECT_EQ(std::memcmp(&to.m_Body, &from.m_Body, sizeof to.m_Body), 0);
  EXPECT_EQ(std::memcmp(&to.m_Extension, &from.m_Extension, sizeof to.m_Extension), 0);
  EXPECT_EQ(to.m_Extended[EXT_NUP], 0);
  EXPECT_FALSE(to.m_JapaneseCodePage);
}

// Passwords are exchanged with other machines: the scrambled text may never change.
TEST(PrintOption, ScramblesBothPasswordsAndBack) {
  CPrintOption fixed;
  SetText(fixed.m_Body, TagNamed("USR_SCPS"), "lantern");
  fixed.ScramblePasswords();
  EXPECT_EQ(GetText(fixed.m_Body, TagNamed("USR_SCPS")), "yd -o+$");

  const std::string passwords[] = {"a", "secret =~ word", std::string(64, ' '),
                                   "\x83\x70\x83\x58\xDC\xB0\xC4\xDE"};
  for (const std::string& password : passwords) {
    CPrintOption record;
    SetText(record.m_Body, TagNamed("SP_FMPAS"), password);
    record.ScramblePasswords();
    const std::string_view scrambled = GetText(record.m_Body, TagNamed("SP_FMPAS"));
    EXPECT_NE(scrambled, password);
    EXPECT_EQ(scrambled.size(), password.size());
    EXPECT_THAT(scrambled, ::testing::Each(::testing::Truly([](char c) {
                  return (c >= ' ' && c <= '~') || static_cast<unsigned char>(c) >= 0x80;
                })));
    EXPECT_EQ(record.m_Body.SP_FMPAS.set, 1);
    EXPECT_EQ(record.m_Body.USR_SCPS.set, 0);  // was empty
    EXPECT_EQ(GetText(record.m_Body, TagNamed("USR_SCPS")), "");

    record.UnscramblePasswords();
    EXPECT_EQ(GetText(record.m_Body, TagNamed("SP_FMPAS")), password);
    EXPECT_EQ(record.m_Body.SP_FMPAS.set, 0);
  }
}

}  // namespace
}  // namespace ddb
