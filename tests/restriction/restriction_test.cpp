// The decision of the restriction check.
#include "session/restriction.h"

#include <gtest/gtest.h>

#include <utility>

#include "res/resource_ids.h"

namespace zn::restriction {

void PrintTo(const Result& result, std::ostream* out) {
  *out << "verdict " << static_cast<int>(result.verdict) << ", message " << result.messageId
       << ", other " << static_cast<std::int32_t>(result.other);
}

bool operator==(const Result& a, const Result& b) {
  return a.verdict == b.verdict && a.messageId == b.messageId && a.other == b.other;
}

namespace {

constexpr Result kAllowed{Verdict::Allowed, 0, kNoKeyword};
constexpr Result kOnOnly{Verdict::Refused, IDS_RESTRICTION_MIXED_SIZE_ON_ONLY, kNoKeyword};
constexpr Result kOffOnly{Verdict::Refused, IDS_RESTRICTION_MIXED_SIZE_OFF_ONLY, kNoKeyword};

constexpr Result ConflictWith(KeywordId other) {
  return {Verdict::Conflict, 0, other};
}

// A selection beyond a table is free of conflict.
TEST(Restriction, TablesEndWithTheirOptions) {
  // clang-format off
  const Selections allowed[] = {
      {.staple = 9, .punch = 5},
      {.staple = 9, .punch = 1, .bookletFinishing = 2},
      {.bookletPrint = 1, .bookletFinishing = 1},
      {.staple = 1, .punch = 13, .bookletFinishing = 1},
      {.staple = 1, .punch = 6, .bookletFinishing = 1},
      {.staple = 1, .punch = -1, .bookletFinishing = 1},
      {.staple = 22, .punch = 1, .bookletFinishing = 1},
      {.staple = -1, .punch = 1, .bookletFinishing = 1},
      {.mediaType = 14},
      {.duplex = 1, .mediaType = 14, .mediaTypeWeight = 9},
      {.duplex = 1, .mediaType = 14, .mediaTypeWeight = -1},
      {.duplex = 1, .mediaType = 35},
      {.duplex = 1, .mediaType = -1},
      {.duplex = 1, .mediaTypeBypass = 5, .mediaTypeWeightBypass = 2},
      {.duplex = 1, .autoTraySettingToBypass = 1, .mediaTypeBypass = 1},
  };
  const std::pair<Selections, KeywordId> conflicting[] = {
      {{.staple = 9, .punch = 4, .punchHoles = 2}, KW_STAPLE},
      {{.staple = 21, .punch = 5, .bookletFinishing = 1}, KW_STAPLE},
      {{.punch = 4, .bookletFinishing = 1, .punchHoles = 2}, KW_PUNCH},
      {{.duplex = 2, .mediaType = 14, .mediaTypeWeight = 8}, KW_ZNMEDIATYPE},
      {{.duplex = 1, .mediaTypeBypass = 5, .mediaTypeWeightBypass = 3}, KW_MEDIATYPEBYPASS},
  };
  // clang-format on
  for (const Selections& now : allowed) {
    EXPECT_EQ(Check(now, kDuplex), kAllowed) << "row " << &now - allowed;
  }
  for (const auto& [now, other] : conflicting) {
    EXPECT_EQ(Check(now, kDuplex), ConflictWith(other));
  }
}

TEST(Restriction, MixedSizesBindStaplesAndPunch) {
  for (const int mixed : {0, 1, 2}) {
    for (int option = 0; option <= 22; ++option) {
      Selections now;
      now.mixSizePrint = mixed;
      now.staple = option;
      const bool mixedStaple = option == 20 || option == 21;
      const bool plainStaple = option >= 1 && option <= 19;
      EXPECT_EQ(Check(now, kStaple), mixed != 0 && plainStaple   ? kOffOnly
                                     : mixed == 0 && mixedStaple ? kOnOnly
                                                                 : kAllowed)
          << mixed << ' ' << option;
      now.staple = 0;
      now.punch = option;
      EXPECT_EQ(Check(now, kPunch), mixed == 0 && option == 0 ? kOnOnly : kAllowed)
          << mixed << ' ' << option;
    }
    // They bind nothing else, and nobody else's change.
    for (const Group group : {kBookletFinishing, kDuplex, kMediaType, kMediaTypeBypass}) {
      Selections now;
      now.mixSizePrint = mixed;
      now.staple = 20 - mixed;
      EXPECT_EQ(Check(now, group), kAllowed) << mixed << ' ' << group;
    }
  }
}

TEST(Restriction, MixedSizesComeBeforeTheTables) {
  Selections now;
  now.staple = 20;
  now.bookletFinishing = 1;
  EXPECT_EQ(Check(now, kStaple), kOnOnly);
  EXPECT_EQ(Check(now, kDuplex), ConflictWith(KW_STAPLE));
}

// Which of the settings that are set is named.
TEST(Restriction, NamesTheLastOtherSetting) {
  const Selections staplePunch = {.staple = 9, .punch = 1, .punchHoles = 1};
  const Selections booklet = {.staple = 1, .bookletPrint = 1, .bookletFinishing = 1};
  const Selections finishingOnly = {.staple = 1, .bookletPrint = 0, .bookletFinishing = 1};
  const Selections punchFive = {.bookletPrint = 1, .punch = 5, .bookletFinishing = 1};
  const Selections holesThree = {.staple = 9, .punch = 1, .punchHoles = 3};
  const Selections bothPapers = {.duplex = 1, .mediaType = 1, .mediaTypeBypass = 1};
  const Selections takenOver = {
      .duplex = 1, .mediaType = 1, .autoTraySettingToBypass = 1, .mediaTypeBypass = 1};
  const Selections otherPaper = {.duplex = 1, .mediaType = 1, .mediaTypeBypass = 2};
  const Selections both = {.duplex = 1, .staple = 9, .punch = 1, .mediaType = 1};
  const struct {
    const char* name;
    Selections now;
    Group changed;
    Result result;
  } rows[] = {
      {"punch changed", staplePunch, kPunch, ConflictWith(KW_STAPLE)},
      {"staple changed", staplePunch, kStaple, ConflictWith(KW_PUNCH)},
      {"other page changed", staplePunch, kDuplex, ConflictWith(KW_STAPLE)},
      {"staple over booklet", booklet, kStaple, ConflictWith(KW_BOOKLETFINISHING)},
      {"booklet over staple", booklet, kBookletFinishing, ConflictWith(KW_STAPLE)},
      {"finishing without booklet", finishingOnly, kStaple, ConflictWith(kNoKeyword)},
      {"punch five has no code", punchFive, kBookletFinishing, ConflictWith(kNoKeyword)},
      {"holes three have no code", holesThree, kStaple, ConflictWith(kNoKeyword)},
      {"type changed", bothPapers, kMediaType, ConflictWith(KW_MEDIATYPEBYPASS)},
      {"bypass type changed", bothPapers, kMediaTypeBypass, ConflictWith(KW_ZNMEDIATYPE)},
      {"bypass taken over", takenOver, kDuplex, ConflictWith(KW_ZNMEDIATYPE)},
      {"bypass taken over, type changed", takenOver, kMediaType, ConflictWith(KW_DUPLEX)},
      {"blameless bypass type", otherPaper, kDuplex, ConflictWith(KW_MEDIATYPEBYPASS)},
      {"finishing before paper", both, kDuplex, ConflictWith(KW_STAPLE)},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Check(row.now, row.changed), row.result) << row.name;
  }
}

}  // namespace
}  // namespace zn::restriction
