// CSession: the one way in which the plug-in reads and changes the core driver's options while a
// sheet is open. Owns nothing; works on the SheetContext.
#pragma once

#include <cstdint>

#include "session/sheet_context.h"

namespace zn {

class CSession {
 public:
  explicit CSession(SheetContext* sheet) noexcept : m_p(sheet) {}

  // Sets the session up: form names, binding of the keyword ids, stored settings of the printer.
  // A printer that cannot be read ends it early; what was found so far stands.
  void HidePrinterSetting() noexcept;

  // Value of a keyword id (0-265) or private id (4301-4355): the item's or the settings block's,
  // or the default. Ids from 5824 on read 0xFFFFFFFF; unknown and missing ones read 0.
  [[nodiscard]] std::uint32_t DRVGetDWord(std::uint32_t id, bool wantDefault) const noexcept;

  // 1 on success. 0: no item, or the core driver refused. Private ids 4312-4316, 4354 and 4355
  // answer 0 although the field is written.
  int DRVSetDWord(std::uint32_t id, std::uint32_t value) noexcept;

  [[nodiscard]] std::uint32_t DRVGetKeywordNumOptions(std::uint32_t id) const noexcept;

  // Writes the option selection table and the job values into the core driver and the block.
  void CommitSession() noexcept;

  // Saves the sheet's full DEVMODE as the printer's per-user default; -1 on failure, else 0.
  int SavePrinterDefault() noexcept;

 private:
  [[nodiscard]] std::uint32_t GetPrivate(std::uint32_t id, bool wantDefault) const noexcept;
  int SetPrivate(std::uint32_t id, std::uint32_t value) noexcept;

  SheetContext* m_p;
};

// Base of objects that reach the session.
class CSessionAccessor {
 public:
  explicit CSessionAccessor(SheetContext* sheet) noexcept : m_session(sheet) {}
  virtual ~CSessionAccessor() = default;

 protected:
  CSession m_session;
};

}  // namespace zn
