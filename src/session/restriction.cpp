#include "session/restriction.h"

#include <cstddef>

#include "res/resource_ids.h"
#include "session/restriction_tables.h"

namespace zn::restriction {
namespace {

constexpr bool Has(unsigned bits, std::int32_t number) {
  return (bits >> number & 1U) != 0;
}

// A selection beyond a table is free of conflict: stored settings can hold anything, and the tray
// page stores a punch option beyond it on purpose.
template <class Table>
constexpr bool Within(const Table& table, std::int32_t index) {
  return index >= 0 && static_cast<std::size_t>(index) < table.size();
}

int PunchCode(const Selections& now) {
  return Within(kPunchCodes, now.punchHoles) && Within(kPunchCodes[0], now.punch)
             ? kPunchCodes[now.punchHoles][now.punch]
             : 0;
}

// The manual-feed paper counts as 0 while it takes over the automatic tray's settings.
std::int32_t BypassType(const Selections& now) {
  return now.autoTraySettingToBypass != 0 ? 0 : now.mediaTypeBypass;
}

std::int32_t BypassWeight(const Selections& now) {
  return now.autoTraySettingToBypass != 0 ? 0 : now.mediaTypeWeightBypass;
}

struct Entry {
  KeywordId keyword;
  bool (*isSet)(const Selections& now);
};

constexpr std::array<Entry, kGroupCount> kEntries{{
    {KW_BOOKLETFINISHING,
     [](const Selections& now) { return now.bookletPrint > 0 && now.bookletFinishing >= 1; }},
    {KW_PUNCH, [](const Selections& now) { return PunchCode(now) > 0; }},
    {KW_STAPLE, [](const Selections& now) { return now.staple > 0; }},
    {KW_DUPLEX, [](const Selections& now) { return now.duplex > 0; }},
    {KW_ZNMEDIATYPE, [](const Selections& now) { return now.mediaType > 0; }},
    {KW_MEDIATYPEBYPASS, [](const Selections& now) { return BypassType(now) > 0; }},
}};

// The message of a mixed-size rule that the changed setting breaks, or 0.
int MixedSizeMessage(const Selections& now, Group changed) {
  constexpr std::int32_t kFirstMixedStaple = 20;
  constexpr std::int32_t kLastMixedStaple = 21;
  if (changed == kPunch) {
    // Deliberate: no punch, too, counts as a choice for mixed sizes only.
    return now.mixSizePrint == 0 && now.punch == 0 ? IDS_RESTRICTION_MIXED_SIZE_ON_ONLY : 0;
  }
  if (changed != kStaple) {
    return 0;
  }
  if (now.mixSizePrint != 0) {
    return now.staple >= 1 && now.staple < kFirstMixedStaple ? IDS_RESTRICTION_MIXED_SIZE_OFF_ONLY
                                                             : 0;
  }
  return now.staple >= kFirstMixedStaple && now.staple <= kLastMixedStaple
             ? IDS_RESTRICTION_MIXED_SIZE_ON_ONLY
             : 0;
}

bool FinishingConflicts(const Selections& now) {
  if (!Within(kPunchesAgainstStaple, now.staple) || now.punch < 0 || now.punch >= kPunchOptions) {
    return false;
  }
  switch (now.bookletFinishing) {
    case 0:
      return Has(kPunchesAgainstStaple[now.staple], now.punch);
    case 1:
      return now.staple != 0 || now.punch != 0;
    default:
      return false;
  }
}

bool IsOneSided(std::int32_t mediaType, std::int32_t weight) {
  return Within(kOneSidedWeights, mediaType) && weight >= 0 && weight < kWeights &&
         Has(kOneSidedWeights[mediaType], weight);
}

bool PaperConflicts(const Selections& now) {
  return now.duplex >= 1 && (IsOneSided(now.mediaType, now.mediaTypeWeight) ||
                             IsOneSided(BypassType(now), BypassWeight(now)));
}

// Of the entries first to last the last one that is set, without the changed one.
KeywordId LastSet(const Selections& now, Group first, Group last, Group changed) {
  for (int entry = last; entry >= first; --entry) {
    if (entry != changed && kEntries[entry].isSet(now)) {
      return kEntries[entry].keyword;
    }
  }
  return kNoKeyword;
}

}  // namespace

KeywordId KeywordOf(Group group) noexcept {
  return kEntries[group].keyword;
}

Result Check(const Selections& selections, Group changed) noexcept {
  if (const int message = MixedSizeMessage(selections, changed); message != 0) {
    return {Verdict::Refused, message, kNoKeyword};
  }
  if (FinishingConflicts(selections)) {
    return {Verdict::Conflict, 0, LastSet(selections, kBookletFinishing, kStaple, changed)};
  }
  if (PaperConflicts(selections)) {
    return {Verdict::Conflict, 0, LastSet(selections, kDuplex, kMediaTypeBypass, changed)};
  }
  return {Verdict::Allowed, 0, kNoKeyword};
}

}  // namespace zn::restriction
