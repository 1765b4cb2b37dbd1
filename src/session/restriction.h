// The restriction check: which combinations of finishing and paper settings cannot be printed
// together. This is the decision alone, free of texts and windows; restriction_question.h asks
// the user.
#pragma once

#include <array>
#include <cstdint>

#include "keywords/keyword_ids.h"

namespace zn::restriction {

// The settings that can stand in each other's way, in the order in which the check walks them. The
// number is the group that a page passes for the setting that has just changed.
enum Group : int {
  kBookletFinishing = 0,
  kPunch = 1,
  kStaple = 2,
  kDuplex = 3,
  kMediaType = 4,
  kMediaTypeBypass = 5,
};
inline constexpr int kGroupCount = 6;

// The current selections that the check looks at; a negative one is no selection.
struct Selections {
  std::int32_t duplex = 0;
  std::int32_t staple = 0;
  std::int32_t bookletPrint = 0;
  std::int32_t punch = 0;
  std::int32_t bookletFinishing = 0;
  std::int32_t mediaType = 0;
  std::int32_t mediaTypeWeight = 0;
  std::int32_t autoTraySettingToBypass = 0;
  std::int32_t mediaTypeBypass = 0;
  std::int32_t mediaTypeWeightBypass = 0;
  std::int32_t punchHoles = 0;
  std::int32_t mixSizePrint = 0;

  bool operator==(const Selections&) const = default;
};

struct SelectionField {
  KeywordId id;
  std::int32_t Selections::*field;
};

inline constexpr std::array<SelectionField, 12> kSelectionFields{{
    {KW_DUPLEX, &Selections::duplex},
    {KW_STAPLE, &Selections::staple},
    {KW_BOOKLETPRINT, &Selections::bookletPrint},
    {KW_PUNCH, &Selections::punch},
    {KW_BOOKLETFINISHING, &Selections::bookletFinishing},
    {KW_ZNMEDIATYPE, &Selections::mediaType},
    {KW_MEDIATYPEWEIGHT, &Selections::mediaTypeWeight},
    {KW_AUTOTRAYSETTINGTOBYPASS, &Selections::autoTraySettingToBypass},
    {KW_MEDIATYPEBYPASS, &Selections::mediaTypeBypass},
    {KW_MEDIATYPEWEIGHTBYPASS, &Selections::mediaTypeWeightBypass},
    {KW_PUNCHHOLES, &Selections::punchHoles},
    {KW_MIXSIZEPRINT, &Selections::mixSizePrint},
}};

enum class Verdict {
  Allowed,
  Refused,   // by a rule of mixed-size printing; only a message is due
  Conflict,  // with another setting, which may be changed to its default
};

struct Result {
  Verdict verdict;
  int messageId;    // Refused: of the string table; else 0
  KeywordId other;  // Conflict: the setting to name to the user; kNoKeyword when none is set
};

// The keyword of a group.
[[nodiscard]] KeywordId KeywordOf(Group group) noexcept;

// Whether `changed` may stand as it is beside the other selections.
[[nodiscard]] Result Check(const Selections& selections, Group changed) noexcept;

}  // namespace zn::restriction
