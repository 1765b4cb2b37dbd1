// The decision of the restriction check.
#include "session/restriction.h"

#include <gtest/gtest.h>

#include <string_view>
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

// A cell of a drawn table; outside of it there is no conflict.
template <std::size_t kRows>
bool Cell(const std::string_view (&rows)[kRows], int row, int column) {
  return row >= 0 && row < static_cast<int>(kRows) && column >= 0 &&
         column < static_cast<int>(rows[row].size()) && rows[row][column] == '#';
}

// Rows are staple options, columns punch options.
constexpr std::string_view kWithoutBooklet[] = {
    "......", "..#.#.", ".#..#.", "..##..", ".#.#..", ".##.#.", ".###..", "..###.",
    ".#.##.", ".####.", ".####.", ".####.", ".##.#.", ".###..", "..###.", ".#.##.",
    ".##.#.", ".###..", "..###.", ".#.##.", "......", "......",
};
// Rows are paper types, columns weights.
constexpr std::string_view kBothSides[] = {
    ".........", "#########", ".........", ".........", ".........",
    "...######", "#########", "#########", "#########", ".........",
    "....##...", "...######", "...######", ".........", "#########",
};

TEST(Restriction, FinishingTable) {
  for (int booklet = -1; booklet <= 3; ++booklet) {
    for (int staple = -1; staple <= 23; ++staple) {
      for (int punch = -1; punch <= 14; ++punch) {
        const Selections now = {.staple = staple, .punch = punch, .bookletFinishing = booklet};
        const bool bothExist = staple >= 0 && staple <= 21 && punch >= 0 && punch <= 5;
        const bool conflict = (booklet == 0 && Cell(kWithoutBooklet, staple, punch)) ||
                              (booklet == 1 && bothExist && (staple != 0 || punch != 0));
        EXPECT_EQ(Check(now, kDuplex).verdict == Verdict::Conflict, conflict)
            << booklet << ' ' << staple << ' ' << punch;
      }
    }
  }
}

TEST(Restriction, PaperTable) {
  for (int duplex = -1; duplex <= 3; ++duplex) {
    for (int type = -1; type <= 36; ++type) {
      for (int weight = -1; weight <= 10; ++weight) {
        SCOPED_TRACE(testing::Message() << duplex << ' ' << type << ' ' << weight);
        const bool conflict = duplex >= 1 && Cell(kBothSides, type, weight);
        const Selections automatic = {
            .duplex = duplex, .mediaType = type, .mediaTypeWeight = weight};
        EXPECT_EQ(Check(automatic, kDuplex), conflict ? ConflictWith(KW_ZNMEDIATYPE) : kAllowed);
        Selections bypass = {
            .duplex = duplex, .mediaTypeBypass = type, .mediaTypeWeightBypass = weight};
        EXPECT_EQ(Check(bypass, kDuplex), conflict ? ConflictWith(KW_MEDIATYPEBYPASS) : kAllowed);
        bypass.autoTraySettingToBypass = 1;
        EXPECT_EQ(Check(bypass, kDuplex), kAllowed);
      }
    }
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
