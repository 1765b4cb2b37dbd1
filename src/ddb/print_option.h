// The print option record: every job setting of the device in one flat body, saved and loaded as a
// whole. A pointer to CPrintOption crosses to the companion module, which another compiler built:
// four virtual operations in slot order and the body right behind the table pointer are a contract.
#pragma once

#include <array>
#include <cstdint>

#include "ddb/print_option_body.h"

namespace ddb {

// Thrown by SaveTo and LoadFrom.
enum DdbErrT { kBufferTooSmall = 6 };

// 32 bits wide, as `unsigned long` is for the companion module.
using PersistentSize = std::uint32_t;

class CPersistent {
 public:
  // Writes the persistent image; `inOutSize` holds the buffer's bytes and receives the image's.
  // A buffer below GetPersistentSize() throws kBufferTooSmall and stays as it was.
  virtual void SaveTo(void* buffer, PersistentSize* inOutSize) = 0;
  virtual void LoadFrom(const void* buffer, PersistentSize size) = 0;
  virtual PersistentSize GetPersistentSize() = 0;
  virtual bool GetFlag() = 0;

 protected:
  // Not virtual: a destructor in the table would shift the four slots.
  ~CPersistent() = default;
  CPersistent() = default;
  CPersistent(const CPersistent&) = default;
  CPersistent& operator=(const CPersistent&) = default;
};

class CPrintOptionBase : public CPersistent {
 public:
  CPrintOptionBase();

  void SaveTo(void* buffer, PersistentSize* inOutSize) override;
  void LoadFrom(const void* buffer, PersistentSize size) override;
  PersistentSize GetPersistentSize() override;
  bool GetFlag() override;

  // Replaces each of the two passwords that is not empty by its scrambled form and raises its
  // mark; the other way back, which lowers the mark. Passwords keep their length.
  void ScramblePasswords();
  void UnscramblePasswords();

  PrintOptionBody m_Body;
};

class CPrintOption : public CPrintOptionBase {};

// Positions of the extended values, which travel as tags only and not in the persistent image.
enum ExtendedValue : std::uint8_t {
  EXT_NUP,
  EXT_ICMI,
  EXT_ICMM,
  EXT_TTOPT,
  EXT_PSOUT,
  EXT_PSFDL,
  EXT_PSLLV,
  EXT_PSERR,
  EXT_PSMRP,
  EXT_PAGEORDER,
  EXT_ORIENTATION,
  EXT_NUPBORDER,
  kExtendedValues
};

// Fields without tags, saved and copied with the record.
struct ExtensionBlock {
  std::array<std::int32_t, 6> codes;
  std::int32_t limit;
  std::array<std::uint8_t, 2536> reserved;
};
static_assert(sizeof(ExtensionBlock) == 2564);

class CPrintOptionEx final : public CPrintOption {
 public:
  // `japaneseCodePage`: whether the system's ANSI code page is 932.
  explicit CPrintOptionEx(bool japaneseCodePage);

  // The extension block first, the body behind it: 19,112 bytes.
  void SaveTo(void* buffer, PersistentSize* inOutSize) override;
  void LoadFrom(const void* buffer, PersistentSize size) override;
  PersistentSize GetPersistentSize() override;

  bool m_JapaneseCodePage;
  ExtensionBlock m_Extension;
  std::array<std::int32_t, kExtendedValues> m_Extended;
};

}  // namespace ddb
