// TAG=VALUE of any content for both handlers: what a value becomes stays the same through its own
// text, and no other field changes.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "ddb/extended_option.h"
#include "ddb/tag_text.h"

namespace {

using Text = std::array<char, ddb::kValueTextSize>;

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

void CheckTag(const std::string& tag, std::string value, bool translate) {
  ddb::CPrintOption record;
  ddb::ExchangeTag(tag.c_str(), value.data(), record, true, translate);
  Text text{};
  ddb::ExchangeTag(tag.c_str(), text.data(), record, false, translate);
  Require(std::find(text.begin(), text.end(), '\0') != text.end());

  const ddb::CPrintOption before = record;
  ddb::ExchangeTag(tag.c_str(), text.data(), record, true, translate);
  Require(std::memcmp(&record.m_Body, &before.m_Body, sizeof record.m_Body) == 0);
  const ddb::Tag* row = ddb::FindTag(tag.c_str());
  for (const ddb::Tag& other : ddb::kTags) {
    const bool number = other.kind != ddb::kText && other.kind != ddb::kIgnored;
    if (number && (row == nullptr || other.offset != row->offset)) {
      Require(ddb::GetInteger(record.m_Body, other) == other.initial);
    }
  }
}

void CheckExtendedTag(const std::string& tag, std::string value) {
  ddb::CPrintOptionEx record(true);
  if (!ddb::ExchangeExtTag(tag.c_str(), value.data(), record, true, false)) {
    return;
  }
  Text text{};
  Require(ddb::ExchangeExtTag(tag.c_str(), text.data(), record, false, false));
  if (text[0] == '-') {
    return;  // the digit scan cannot read a sign
  }
  const std::string written = text.data();
  Require(ddb::ExchangeExtTag(tag.c_str(), text.data(), record, true, false));
  Require(ddb::ExchangeExtTag(tag.c_str(), text.data(), record, false, false));
  Require(written == text.data());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string item(reinterpret_cast<const char*>(data), size);
  const std::size_t equals = std::min(item.find('='), item.size());
  const std::string tag = item.substr(0, equals);
  const std::string value = item.substr(std::min(equals + 1, item.size()));
  CheckTag(tag, value, true);
  CheckTag(tag, value, false);
  CheckExtendedTag(tag, value);
  return 0;
}
