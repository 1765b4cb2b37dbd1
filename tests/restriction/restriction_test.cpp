// The decision of the restriction check.
#include "session/restriction.h"

#include <gtest/gtest.h>

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

// The tables themselves are frozen; this is where they are asked, and where they end.
TEST(Restriction, TablesAreAskedByTheirRowsAndColumns) {
  const struct {
    int booklet, staple, punch;
    bool conflict;
  } finishing[] = {
      {0, 1, 2, true},   {0, 1, 3, false},  {0, 7, 2, true},   {0, 2, 3, false},  {0, 19, 4, true},
      {0, 20, 4, false}, {0, 9, 0, false},  {0, 9, 5, false},  {0, 9, 13, false}, {0, 9, -1, false},
      {0, 22, 1, false}, {0, -1, 1, false}, {1, 0, 0, false},  {1, 0, 5, true},   {1, 21, 0, true},
      {1, 22, 1, false}, {1, 1, 6, false},  {1, -1, 1, false}, {-1, 1, 2, false}, {2, 1, 2, false},
  };
  for (const auto& row : finishing) {
    const Selections now = {
        .staple = row.staple, .punch = row.punch, .bookletFinishing = row.booklet};
    EXPECT_EQ(Check(now, kDuplex).verdict == Verdict::Conflict, row.conflict)
        << row.booklet << ' ' << row.staple << ' ' << row.punch;
  }
  const struct {
    int duplex, type, weight;
    bool conflict;
  } paper[] = {
      {1, 1, 0, true},    {2, 5, 3, true},   {3, 5, 2, false},  {1, 10, 5, true},
      {1, 10, 6, false},  {1, 14, 8, true},  {1, 14, 9, false}, {1, 14, -1, false},
      {1, 15, 0, false},  {1, 35, 0, false}, {1, -1, 0, false}, {0, 1, 0, false},
      {-1, 14, 8, false}, {1, 13, 8, false}, {1, 6, 0, true},
  };
  for (const auto& [duplex, type, weight, conflict] : paper) {
    SCOPED_TRACE(testing::Message() << duplex << ' ' << type << ' ' << weight);
    const Selections automatic = {.duplex = duplex, .mediaType = type, .mediaTypeWeight = weight};
    EXPECT_EQ(Check(automatic, kDuplex), conflict ? ConflictWith(KW_ZNMEDIATYPE) : kAllowed);
    Selections bypass = {
        .duplex = duplex, .mediaTypeBypass = type, .mediaTypeWeightBypass = weight};
    EXPECT_EQ(Check(bypass, kDuplex), conflict ? ConflictWith(KW_MEDIATYPEBYPASS) : kAllowed);
    bypass.autoTraySettingToBypass = 1;
    EXPECT_EQ(Check(bypass, kDuplex), kAllowed);
  }
}

TEST(Restriction, MixedSizesBindStaplesAndPunchOnly) {
  const struct {
    int mixed, staple, punch;
    Group changed;
    Result result;
  } rows[] = {
      {0, 19, 0, kStaple, kAllowed},    {0, 20, 0, kStaple, kOnOnly},
      {0, 21, 0, kStaple, kOnOnly},     {0, 22, 0, kStaple, kAllowed},
      {0, 20, 0, kDuplex, kAllowed},    {0, 0, 0, kPunch, kOnOnly},
      {0, 0, 1, kPunch, kAllowed},      {1, 0, 0, kStaple, kAllowed},
      {1, 1, 0, kStaple, kOffOnly},     {1, 19, 0, kStaple, kOffOnly},
      {1, 20, 0, kStaple, kAllowed},    {2, 1, 0, kStaple, kOffOnly},
      {1, 1, 0, kDuplex, kAllowed},     {1, 0, 0, kPunch, kAllowed},
      {0, 20, 0, kMediaType, kAllowed},
  };
  for (const auto& row : rows) {
    Selections now;
    now.mixSizePrint = row.mixed;
    now.staple = row.staple;
    now.punch = row.punch;
    EXPECT_EQ(Check(now, row.changed), row.result) << &row - rows;
  }
}

// Which of the settings that are set is named.
TEST(Restriction, NamesTheLastOtherSetting) {
  const Selections staplePunch = {.staple = 9, .punch = 1, .punchHoles = 1};
  const Selections booklet = {.staple = 1, .bookletPrint = 1, .bookletFinishing = 1};
  const Selections bothPapers = {.duplex = 1, .mediaType = 1, .mediaTypeBypass = 1};
  const Selections takenOver = {
      .duplex = 1, .mediaType = 1, .autoTraySettingToBypass = 1, .mediaTypeBypass = 1};
  const Selections mixed = {.staple = 20, .bookletFinishing = 1};
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
      {"finishing without booklet",
       {.staple = 1, .bookletFinishing = 1},
       kStaple,
       ConflictWith(kNoKeyword)},
      {"punch five has no code",
       {.bookletPrint = 1, .punch = 5, .bookletFinishing = 1},
       kBookletFinishing,
       ConflictWith(kNoKeyword)},
      {"holes three have no code",
       {.staple = 9, .punch = 1, .punchHoles = 3},
       kStaple,
       ConflictWith(kNoKeyword)},
      {"type changed", bothPapers, kMediaType, ConflictWith(KW_MEDIATYPEBYPASS)},
      {"bypass type changed", bothPapers, kMediaTypeBypass, ConflictWith(KW_ZNMEDIATYPE)},
      {"bypass taken over", takenOver, kDuplex, ConflictWith(KW_ZNMEDIATYPE)},
      {"bypass taken over, type changed", takenOver, kMediaType, ConflictWith(KW_DUPLEX)},
      {"blameless bypass type",
       {.duplex = 1, .mediaType = 1, .mediaTypeBypass = 2},
       kDuplex,
       ConflictWith(KW_MEDIATYPEBYPASS)},
      {"finishing before paper",
       {.duplex = 1, .staple = 9, .punch = 1, .mediaType = 1},
       kDuplex,
       ConflictWith(KW_STAPLE)},
      {"mixed sizes before the tables", mixed, kStaple, kOnOnly},
      {"mixed sizes, another change", mixed, kDuplex, ConflictWith(KW_STAPLE)},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Check(row.now, row.changed), row.result) << row.name;
  }
}

}  // namespace
}  // namespace zn::restriction
