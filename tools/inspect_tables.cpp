// zninspect tables: the tables that stored favourites, stored settings blocks and the printer
// description rely on, as they are built in. A table is a line "# NAME: what its columns are" and a
// line per row, in the order of the table; tabs part the cells, "-" is nothing. tests/frozen/ holds
// the same rows, so this form is as stable as they are.
#include <algorithm>
#include <string>

#include "ddb/extended_option.h"
#include "ddb/tag_table.h"
#include "devmode/devmode_fields.h"
#include "favorites/settings_mapping.h"
#include "keywords/keyword_table.h"
#include "profile/profile_info.h"
#include "session/restriction.h"
#include "session/restriction_tables.h"
#include "session/session_tables.h"
#include "tools/commands.h"

namespace zn::inspect {
namespace {

template <class Value>
Json CellIf(bool there, const Value& value) {
  return there ? Json(value) : Json();
}

template <class... Values>
void AddRow(Json& rows, const Values&... values) {
  rows.push_back(Json::array({values...}));
}

Json BitList(unsigned bits) {
  Json list = Json::array();
  for (int number = 0; bits >> number != 0; ++number) {
    if ((bits >> number & 1U) != 0) {
      list.push_back(number);
    }
  }
  return list;
}

// The word of an enumerator; words stand in the order of the enumeration.
template <std::size_t kCount, class Enum>
std::string_view Word(const std::string_view (&words)[kCount], Enum value) {
  return words[static_cast<std::size_t>(value)];
}

void AddKeywords(Json& rows) {
  constexpr KeywordId kLastRecordId = 336;
  for (KeywordId id = 0; id <= kLastRecordId; ++id) {
    AddRow(rows, id, GetKeywordName(id), GetOptionCodeList(id));
  }
}

void AddTags(Json& rows) {
  constexpr std::string_view kKinds[] = {"integer",   "copies", "media code", "hundredths",
                                         "tenths",    "text",   "flag",       "bits 0-1",
                                         "bits 2-15", "ignored"};
  for (const ddb::Tag& tag : ddb::kTags) {
    const bool isText = tag.kind == ddb::kText;
    const bool hasField = tag.kind != ddb::kIgnored;
    AddRow(rows, &tag - ddb::kTags.data(), tag.name, Word(kKinds, tag.kind),
           CellIf(isText, tag.maxChars), tag.marked ? "marked" : "", CellIf(hasField, tag.offset),
           CellIf(hasField && !isText, tag.initial));
  }
}

std::string PlaceOf(const ddb::RecordField& field) {
  return field.IsExtended() ? "value " + std::to_string(field.Extended())
                            : std::string(field.Tag().name);
}

void AddExtended(Json& rows) {
  const ddb::CPrintOptionEx fresh(false);
  for (const ddb::ExtendedTag& tag : ddb::kExtendedTags) {
    const bool isClamped = tag.highest != 0;
    const bool isExtended = tag.field.IsExtended();
    AddRow(rows, tag.id, tag.name, PlaceOf(tag.field),
           CellIf(isExtended, isExtended ? tag.field.Get(fresh) : 0), CellIf(isClamped, tag.lowest),
           CellIf(isClamped, tag.highest), tag.takesNoCode ? "yes" : "");
  }
}

void AddMedia(Json& rows) {
  for (std::size_t code = 0; code < ddb::kRecordMediaCodes.size(); ++code) {
    AddRow(rows, code, ddb::kRecordMediaCodes[code]);
  }
}

std::string DefaultOf(const DevModeField& field) {
  if (!field.hasDefault) {
    return "";
  }
  return field.kind == FieldKind::Text ? "\"\"" : std::to_string(field.defaultValue);
}

void AddBlock(Json& rows) {
  constexpr std::string_view kKinds[] = {"header", "number", "text", "reserved"};
  constexpr std::string_view kRepairs[] = {"none", "flag", "range", "controls", "comment"};
  for (const DevModeField& field : DevModeFields()) {
    const bool isBound = field.repair == Repair::Flag || field.repair == Repair::Range;
    const std::uint32_t id = field.privateId;
    AddRow(rows, field.offset, field.width, Word(kKinds, field.kind), DefaultOf(field),
           Word(kRepairs, field.repair), CellIf(isBound, field.low), CellIf(isBound, field.high),
           CellIf(isBound, field.fallback), CellIf(field.copyBound != 0, field.copyBound),
           CellIf(id != 0, id), CellIf(id != 0, field.privateWidth),
           CellIf(id != 0, Holds(kWriteOnlyIds, id) ? "no" : "yes"),
           CellIf(id != 0, Holds(kZeroAnswerIds, id) ? 0 : 1),
           CellIf(id != 0, Holds(kCommittedIds, id) ? "yes" : "no"));
  }
}

constexpr std::string_view kReaches[] = {"page", "favorite", "record"};

std::string FieldOf(const SettingRow& row) {
  constexpr std::string_view kReasons[] = {"", "(elsewhere)", "(sheet only)", "(none for it)"};
  if (!row.IsMapped()) {
    return std::string(Word(kReasons, row.reason));
  }
  return PlaceOf(row.field);
}

void AddSettings(Json& rows) {
  constexpr std::string_view kConversions[] = {"", "code", "punch", "paper", "resolution", "as is"};
  for (const SettingRow& row : SettingRows()) {
    const bool isBound = row.conversion == Conversion::AsIs && row.id < KW_MAX;
    AddRow(rows, row.id, GetKeywordName(row.id), Word(kConversions, row.conversion), FieldOf(row),
           CellIf(isBound, row.low), CellIf(isBound, row.high),
           CellIf(row.IsMapped(), Word(kReaches, row.reach)));
  }
}

void AddTexts(Json& rows) {
  for (const SettingText& text : SettingTexts()) {
    AddRow(rows, text.offset, text.tag->name, Word(kReaches, text.reach));
  }
}

void AddChoices(Json& rows) {
  for (const DeviceList& list : kDeviceLists) {
    AddRow(rows, "list", list.id, GetKeywordName(list.id), CellIf(list.offset != 0, list.offset),
           list.first);
  }
  for (const CustomColor& color : kCustomColors) {
    AddRow(rows, "colour", color.id, GetKeywordName(color.id), color.offset, color.firstCode);
  }
  for (const CustomSizeFlag& flag : kCustomSizeFlags) {
    AddRow(rows, "size", flag.id, GetKeywordName(flag.id), flag.offset, kCustomSizeCode);
  }
}

void AddProfile(Json& rows) {
  constexpr std::string_view kTypes[] = {"flag", "value", "reserved"};
  const CProfileInfo profile;
  int number = 0;
  for (const CProfileInfo::Item& item : profile.Items()) {
    AddRow(rows, number++, item.key, Word(kTypes, item.type), item.value);
  }
}

void AddRestriction(Json& rows) {
  using namespace restriction;
  for (std::size_t staple = 0; staple < kPunchesAgainstStaple.size(); ++staple) {
    AddRow(rows, "staple", staple, BitList(kPunchesAgainstStaple[staple]));
  }
  for (std::size_t type = 0; type < kOneSidedWeights.size(); ++type) {
    AddRow(rows, "paper", type, BitList(kOneSidedWeights[type]));
  }
  for (std::size_t holes = 0; holes < kPunchCodes.size(); ++holes) {
    AddRow(rows, "holes", holes, kPunchCodes[holes]);
  }
  for (int group = 0; group < kGroupCount; ++group) {
    AddRow(rows, "group", group, GetKeywordName(KeywordOf(static_cast<Group>(group))));
  }
}

struct Table {
  const char* name;
  const char* columns;
  void (*addRows)(Json& rows);
};

constexpr Table kTables[] = {
    {"keywords", "id, keyword, codes by option index", &AddKeywords},
    {"tags", "order, tag, kind, most characters, mark, offset, initial value", &AddTags},
    {"extended", "id, tag, field, initial value, lowest, highest, all bits set pass", &AddExtended},
    {"media", "code in files, code in the record", &AddMedia},
    {"block",
     "offset, width, kind, default, repair, lowest, highest, else, most bytes copied, private id, "
     "its bits, readable, answer of setting, committed",
     &AddBlock},
    {"settings", "id, keyword, conversion, field, lowest, highest, reach", &AddSettings},
    {"texts", "offset, tag, reach", &AddTexts},
    {"choices", "table, id, keyword, offset, number of the first", &AddChoices},
    {"profile", "item, key, type, expected value", &AddProfile},
    {"restriction", "table, row, values", &AddRestriction},
};

}  // namespace

int RunTables(Arguments arguments, const Output& out) {
  const auto isWanted = [&](const Table& table) {
    return arguments.empty() ||
           (arguments.size() == 1 && std::string_view(table.name) == arguments[0]);
  };
  if (std::ranges::none_of(kTables, isWanted)) {
    return kMisused;
  }
  for (const Table& table : kTables) {
    if (isWanted(table)) {
      Json rows = Json::array();
      table.addRows(rows);
      out.PutRows({{"table", table.name}, {"columns", table.columns}, {"rows", std::move(rows)}},
                  "rows", std::string("# ").append(table.name).append(": ").append(table.columns));
    }
  }
  return kOk;
}

}  // namespace zn::inspect
