// What the inspector tells: records of named values, printed as text or as JSON Lines. Both are
// UTF-8, without raw control characters.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace zn::inspect {

using Json = nlohmann::ordered_json;  // members keep their order

class Output {
 public:
  explicit Output(bool asJson) : asJson_(asJson) {}

  // JSON: the record on one line. Text: a line NAME=VALUE for each value, NAME.KEY=VALUE for each
  // of an object, and a line of cells parted by tabs for each row of a list of rows.
  void Put(const Json& record) const;

  // The same, but of the text only the rows of one member, behind `heading` unless that is empty.
  void PutRows(const Json& record, const char* member, std::string_view heading = {}) const;

  // What text has no line for.
  void PutJsonOnly(const Json& record) const;

  // What is wrong with an input: JSON tells it as the record's "error"; text, and what is no input
  // of a list, as one line on stderr. Both answer `code`.
  int Fail(int code, Json record, std::string_view input, std::string_view message) const;
  static int Fail(int code, std::string_view message);

 private:
  bool asJson_;
};

// Adds a member without looking for one of that name.
void Append(Json& object, std::string_view name, Json value);

}  // namespace zn::inspect
