#include "tools/output.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "tools/shown_text.h"

namespace zn::inspect {
namespace {

void Print(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
}

void PrintJson(const Json& record) {
  constexpr auto kReplaceBadBytes = Json::error_handler_t::replace;
  Print(EscapeControls(record.dump(-1, ' ', false, kReplaceBadBytes), ControlForm::InJson) + '\n');
}

bool IsRow(const Json& value) {
  return value.is_structured();
}

// A list becomes its values parted by blanks.
std::string Shown(const Json& value) {
  if (value.is_string()) {
    return EscapeControls(value.get_ref<const std::string&>(), ControlForm::InText);
  }
  if (!value.is_array()) {
    return value.is_null() ? std::string() : value.dump();
  }
  std::string list;
  for (const Json& element : value) {
    list.append(list.empty() ? "" : " ").append(Shown(element));
  }
  return list;
}

void AppendRow(std::string& text, const Json& row) {
  const char* separator = "";
  for (const Json& value : row) {
    const std::string cell = Shown(value);
    text.append(std::exchange(separator, "\t")).append(cell.empty() ? "-" : cell);
  }
  text += '\n';
}

void AppendValue(std::string& text, const std::string& name, const Json& value) {
  if (value.is_object()) {
    for (const auto& [key, element] : value.items()) {
      AppendValue(text, std::string(name).append(1, '.').append(key), element);
    }
  } else if (value.is_array() && std::ranges::any_of(value, IsRow)) {
    for (const Json& row : value) {
      AppendRow(text, row);
    }
  } else {
    text.append(name).append(1, '=').append(Shown(value)).append(1, '\n');
  }
}

}  // namespace

void Output::Put(const Json& record) const {
  if (asJson_) {
    PrintJson(record);
    return;
  }
  std::string text;
  for (const auto& [name, value] : record.items()) {
    AppendValue(text, name, value);
  }
  Print(text);
}

void Output::PutRows(const Json& record, const char* member, std::string_view heading) const {
  if (asJson_) {
    PrintJson(record);
    return;
  }
  std::string text(heading);
  text.append(heading.empty() ? "" : "\n");
  for (const Json& row : record.at(member)) {
    AppendRow(text, row);
  }
  Print(text);
}

void Output::PutJsonOnly(const Json& record) const {
  if (asJson_) {
    PrintJson(record);
  }
}

int Output::Fail(int code, Json record, std::string_view input, std::string_view message) const {
  if (!asJson_) {
    return Fail(code, std::string(input).append(": ").append(message));
  }
  record["error"] = message;
  PrintJson(record);
  return code;
}

int Output::Fail(int code, std::string_view message) {
  std::fprintf(stderr, "zninspect: %s\n", EscapeControls(message, ControlForm::InText).c_str());
  return code;
}

void Append(Json& object, std::string_view name, Json value) {
  object.get_ref<Json::object_t&>().emplace_back(std::string(name), std::move(value));
}

}  // namespace zn::inspect
