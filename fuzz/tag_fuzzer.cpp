// TAG=VALUE of any content for both handlers: what a value becomes stays the same through its own
// text, and no other field changes.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "ddb/extended_option.h"
#include "ddb/tag_table.h"
#include "ddb/tag_text.h"

namespace {

void Require(bool condition) {
  if (!condition) {
    std::abort();
  }
}

void CheckTag(const std::string& tag, std::string value, bool translate) {
  ddb::CPrintOption record;
  ddb::ExchangeTag(tag, value, record, true, translate);
  std::string text;
  ddb::ExchangeTag(tag, text, record, false, translate);

  const ddb::CPrintOption before = record;
  ddb::ExchangeTag(tag, text, record, true, translate);
  Require(std::memcmp(&record.m_Body, &before.m_Body, sizeof record.m_Body) == 0);
  const ddb::Tag* row = ddb::FindTag(tag);
  for (const ddb::Tag& other : ddb::kTags) {
    const bool number = other.kind != ddb::kText && other.kind != ddb::kIgnored;
    if (number && (row == nullptr || other.offset != row->offset)) {
      Require(ddb::GetInteger(record.m_Body, other) == other.initial);
    }
  }
}

void CheckExtendedTag(const std::string& tag, std::string value) {
  ddb::CPrintOptionEx record(true);
  if (!ddb::ExchangeExtTag(tag, value, record, true, false)) {
    return;
  }
  std::string written;
  Require(ddb::ExchangeExtTag(tag, written, record, false, false));
  Require(ddb::ComesBack(tag, record) == (written[0] != '-'));
  if (ddb::ComesBack(tag, record)) {
    std::string text = written;
    ddb::ExchangeExtTag(tag, text, record, true, false);
    ddb::ExchangeExtTag(tag, text, record, false, false);
    Require(text == written);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string item(reinterpret_cast<const char*>(data), size);
  item.resize(std::min(item.find('\0'), size));
  const std::size_t equals = std::min(item.find('='), item.size());
  const std::string tag = item.substr(0, equals);
  const std::string value = item.substr(std::min(equals + 1, item.size()));
  CheckTag(tag, value, true);
  CheckTag(tag, value, false);
  CheckExtendedTag(tag, value);
  return 0;
}
