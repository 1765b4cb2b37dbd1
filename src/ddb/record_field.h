// The place of a value in a record: a field of the body, by its tag, or one of the extended values.
#pragma once

#include <cstdint>
#include <string_view>

#include "ddb/print_option.h"
#include "ddb/tag_table.h"

namespace ddb {

class RecordField {
 public:
  constexpr RecordField() = default;
  constexpr explicit RecordField(ExtendedValue value) : extended_(value) {}
  // An unknown name does not compile.
  static consteval RecordField OfTag(std::string_view name) {
    RecordField field;
    field.tag_ = static_cast<std::int16_t>(&TagNamed(name) - kTags.data());
    return field;
  }

  [[nodiscard]] constexpr bool IsExtended() const { return tag_ < 0; }
  [[nodiscard]] constexpr const ddb::Tag& Tag() const { return kTags[tag_]; }
  [[nodiscard]] constexpr ExtendedValue Extended() const { return extended_; }

  [[nodiscard]] std::int32_t Get(const CPrintOptionEx& record) const noexcept {
    return IsExtended() ? record.m_Extended[extended_] : GetInteger(record.m_Body, Tag());
  }
  void Set(CPrintOptionEx& record, std::int32_t value) const noexcept {
    if (IsExtended()) {
      record.m_Extended[extended_] = value;
    } else {
      SetInteger(record.m_Body, Tag(), value);
    }
  }
  // The value that says "not specified" in this field.
  [[nodiscard]] constexpr std::int32_t NotSpecified() const {
    return !IsExtended() && Tag().initial == kNoLength ? kNoLength : kNoCode;
  }

 private:
  std::int16_t tag_ = -1;  // row of the tag table
  ExtendedValue extended_ = kExtendedValues;
};

}  // namespace ddb
