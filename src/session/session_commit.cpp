// Commit of the session: the selections go back to the core driver's items, its private part and
// the settings block.
#include "keywords/keyword_table.h"
#include "platform/full_devmode.h"
#include "session/job_values.h"
#include "session/session.h"
#include "session/session_tables.h"

namespace zn {
namespace {

// A set-up that ended early never read what the block and the core driver hold for `id`; a
// selection that is still the default must not replace it.
bool IsUnknown(const SheetContext& sheet, KeywordId id) noexcept {
  return !sheet.settingsRead && sheet.Current(id) == sheet.Default(id);
}

// 0 when the current selection has no code.
std::uint32_t CurrentCode(const SheetContext& sheet, KeywordId id) noexcept {
  std::uint32_t code = 0;
  GetOptionCode(id, sheet.Current(id), code);
  return code;
}

void CommitTexts(SheetContext& sheet) noexcept {
  const CDevMode& values = sheet.jobValues;
  CDevMode* const block = SettingsBlock(sheet);
  if (block == nullptr) {
    return;
  }
  for (const DevModeField& field : DevModeFields()) {
    if (field.kind == FieldKind::Text) {
      block->SetText(field.offset, values.GetText(field.offset));
    }
  }
  // The owner's texts mean nothing without the two numbers that tell how to use them.
  for (const std::size_t offset : {devmode::kManagementMethod, devmode::kOwnerNameSource}) {
    block->SetDWord(offset, values.GetDWord(offset));
  }
}

void CommitDerivedValues(SheetContext& sheet) noexcept {
  for (const CustomSizeFlag& flag : kCustomSizeFlags) {
    WriteJobValue(sheet, flag.offset, CurrentCode(sheet, flag.id) == kCustomSizeCode ? 1 : 0);
  }
  for (const CustomColor& color : kCustomColors) {
    const std::uint32_t code = CurrentCode(sheet, color.id);
    const bool isCustom = code >= color.firstCode && code < color.firstCode + kCustomColorCount;
    if (!IsUnknown(sheet, color.id)) {
      WriteJobValue(sheet, color.offset, isCustom ? code - color.firstCode + 1 : 0);
    }
  }
  for (const DeviceList& list : kDeviceLists) {
    if (list.offset != 0 && !IsUnknown(sheet, list.id)) {
      WriteJobValue(sheet, list.offset, sheet.Current(list.id) + list.first);
    }
  }
}

void CommitDriverPart(SheetContext& sheet) noexcept {
  DriverPrivateDevMode part{};
  if (!LoadDriverPart(sheet.pPublicDM, sheet.pDevMode, part)) {
    return;
  }
  if (sheet.pPublicDM->dmDriverVersion > kDriverVersionWithoutPrivateValues) {
    for (const auto& [id, member] : kDriverValues) {
      if (!IsUnknown(sheet, id)) {
        part.*member = sheet.Current(id);
      }
    }
    if (!IsUnknown(sheet, KW_PSLANGUAGELEVEL)) {
      part.psLanguageLevel = static_cast<std::uint16_t>(sheet.Current(KW_PSLANGUAGELEVEL));
    }
  }
  for (const auto& [id, bit] : kDriverFlags) {
    if (!IsUnknown(sheet, id)) {
      part.flags = sheet.Current(id) != 0 ? part.flags | bit : part.flags & ~bit;
    }
  }
  if (!IsUnknown(sheet, KW_NUPBORDER)) {
    part.noBorder = sheet.Current(KW_NUPBORDER) == 0 ? 1 : 0;
  }
  StoreDriverPart(sheet.pPublicDM, sheet.pDevMode, part);
}

}  // namespace

void CSession::CommitSession() noexcept {
  if (m_p == nullptr) {
    return;
  }
  SheetContext& sheet = *m_p;
  for (KeywordId id = 0; id < KW_MAX; ++id) {
    if (id == KW_SAVETIFF) {
      SetPrivate(private_id::kSaveTiff, sheet.Current(id) != 0 ? 1 : 0);
    }
    DRVSetDWord(id, sheet.Current(id));
  }
  for (const IdRange& range : kCommittedIds) {
    for (std::uint32_t id = range.first; id <= range.last; ++id) {
      if (const DevModeField* const field = FindPrivateField(id)) {
        SetPrivate(id, sheet.jobValues.GetDWord(field->offset));
      }
    }
  }
  CommitTexts(sheet);
  CommitDerivedValues(sheet);
  CommitDriverPart(sheet);
}

int CSession::SavePrinterDefault() noexcept {
  if (m_p == nullptr || m_p->hPrinter == nullptr) {
    return -1;
  }
  // The whole DEVMODE is saved only when it really carries the settings block.
  const DevModeExtent extent = MeasureDevMode(m_p->pPublicDM);
  const auto begin = reinterpret_cast<std::uintptr_t>(m_p->pPublicDM);
  const auto block = reinterpret_cast<std::uintptr_t>(m_p->pDevMode);
  if (block < begin + extent.publicSize || block + kDevModeSize > begin + extent.fullSize) {
    return -1;
  }
  PRINTER_INFO_9W info = {m_p->pPublicDM};
  return ::SetPrinterW(m_p->hPrinter, 9, reinterpret_cast<BYTE*>(&info), 0) != FALSE ? 0 : -1;
}

}  // namespace zn
