#include "ddb/print_option.h"

#include <cstring>
#include <limits>

#include "ddb/password.h"
#include "ddb/tag_table.h"

namespace ddb {
namespace {

constexpr PersistentSize kBodySize = sizeof(PrintOptionBody);
constexpr PersistentSize kExtensionSize = sizeof(ExtensionBlock);

// The companion module finds the body right behind the table pointer.
static_assert(sizeof(CPersistent) == sizeof(void*));
static_assert(sizeof(CPrintOption) == sizeof(CPrintOptionBase));

void CheckSize(PersistentSize size, PersistentSize needed) {
  if (size < needed) {
    throw kBufferTooSmall;
  }
}

using Password = decltype(PrintOptionBody::SP_FMPAS);

void Scramble(Password& password) {
  if (password.text[0] != '\0') {
    ScramblePassword(password.text);
    password.set = 1;
  }
}

void Unscramble(Password& password) {
  UnscramblePassword(password.text);
  password.set = 0;
}

}  // namespace

CPrintOptionBase::CPrintOptionBase() : m_Body{} {
  for (const Tag& tag : kTags) {
    SetInteger(m_Body, tag, tag.initial);
  }
}

void CPrintOptionBase::SaveTo(void* buffer, PersistentSize* inOutSize) {
  CheckSize(*inOutSize, kBodySize);
  std::memcpy(buffer, &m_Body, kBodySize);
  *inOutSize = kBodySize;
}

void CPrintOptionBase::LoadFrom(const void* buffer, PersistentSize size) {
  CheckSize(size, kBodySize);
  std::memcpy(&m_Body, buffer, kBodySize);
}

PersistentSize CPrintOptionBase::GetPersistentSize() {
  return kBodySize;
}

bool CPrintOptionBase::GetFlag() {
  return false;
}

void CPrintOptionBase::ScramblePasswords() {
  Scramble(m_Body.SP_FMPAS);
  Scramble(m_Body.USR_SCPS);
}

void CPrintOptionBase::UnscramblePasswords() {
  Unscramble(m_Body.SP_FMPAS);
  Unscramble(m_Body.USR_SCPS);
}

CPrintOptionEx::CPrintOptionEx(bool japaneseCodePage)
    : m_JapaneseCodePage(japaneseCodePage), m_Extension{}, m_Extended{} {
  m_Extension.codes.fill(kNoCode);
  m_Extension.limit = std::numeric_limits<std::int32_t>::max();
  m_Extended[EXT_ICMI] = 1;
  m_Extended[EXT_PSLLV] = 3;
}

void CPrintOptionEx::SaveTo(void* buffer, PersistentSize* inOutSize) {
  CheckSize(*inOutSize, kExtensionSize + kBodySize);
  std::memcpy(buffer, &m_Extension, kExtensionSize);
  std::memcpy(static_cast<char*>(buffer) + kExtensionSize, &m_Body, kBodySize);
  *inOutSize = kExtensionSize + kBodySize;
}

void CPrintOptionEx::LoadFrom(const void* buffer, PersistentSize size) {
  CheckSize(size, kExtensionSize + kBodySize);
  std::memcpy(&m_Extension, buffer, kExtensionSize);
  std::memcpy(&m_Body, static_cast<const char*>(buffer) + kExtensionSize, kBodySize);
}

PersistentSize CPrintOptionEx::GetPersistentSize() {
  return kExtensionSize + kBodySize;
}

}  // namespace ddb
