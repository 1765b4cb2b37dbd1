// Set-up of the session: what the core driver's items, the sheet's settings block and the
// printer's stored settings say.
#include <algorithm>
#include <array>

#include "keywords/keyword_table.h"
#include "platform/full_devmode.h"
#include "platform/spooler.h"
#include "platform/trace.h"
#include "session/binding.h"
#include "session/forms.h"
#include "session/job_values.h"
#include "session/session.h"
#include "session/session_tables.h"
#include "session/stored_settings.h"

namespace zn {
namespace {

constexpr const char* kSource = "session\\session";
constexpr DWORD kUserNameSize = 257;

void TakePrinterInfo(SheetContext& sheet, const PrinterInfo2& info) noexcept {
  if (!info) {
    return;
  }
  sheet.rawOnly = (info->Attributes & PRINTER_ATTRIBUTE_RAW_ONLY) == 0;  // set when it is lacking
  CopyText(sheet.driverName, info->pDriverName != nullptr ? info->pDriverName : "");
  if (info->pPrinterName != nullptr) {
    LoadForms(info->pPrinterName);
  }
}

void TakeJobValues(SheetContext& sheet) noexcept {
  if (const CDevMode* const block = SettingsBlock(sheet)) {
    sheet.jobValues = *block;
  } else {
    sheet.jobValues = {};
    sheet.jobValues.SetDefaults();
  }
}

// The user's authentication data are the printer's, not the job's.
void TakeUserData(SheetContext& sheet, const CDevMode& stored) noexcept {
  CDevMode& values = sheet.jobValues;
  const std::uint32_t method = stored.GetDWord(devmode::kManagementMethod);
  const std::uint32_t source = stored.GetDWord(devmode::kOwnerNameSource);
  values.SetDWord(devmode::kManagementMethod, method);
  values.SetDWord(devmode::kOwnerNameSource, source);
  std::array<char, kUserNameSize> logonName{};
  DWORD size = kUserNameSize;
  if (method == 1 && source == 0) {
    ::GetUserNameA(logonName.data(), &size);
    logonName.back() = '\0';
    values.SetText(devmode::kJobOwnerName, logonName.data());
  } else {
    values.SetText(devmode::kJobOwnerName, stored.GetText(devmode::kJobOwnerName));
  }
  values.SetText(devmode::kJobOwnerPassword, stored.GetText(devmode::kJobOwnerPassword));
  values.SetText(devmode::kAccountId, stored.GetText(devmode::kAccountId));
}

void RestoreCustomColors(SheetContext& sheet) noexcept {
  for (const CustomColor& color : kCustomColors) {
    const std::uint32_t number = sheet.jobValues.GetDWord(color.offset);
    std::uint32_t index = 0;
    if (number >= 1 && number <= kCustomColorCount &&
        GetOptionIndex(color.id, color.firstCode + number - 1, index)) {
      sheet.SetCurrent(color.id, index);
    }
  }
}

void RestoreDeviceLists(SheetContext& sheet) noexcept {
  for (const DeviceList& list : kDeviceLists) {
    if (list.offset != 0) {
      const std::uint32_t value = sheet.jobValues.GetDWord(list.offset);
      sheet.SetCurrent(list.id, value - std::min<std::uint32_t>(value, list.first));
    }
  }
  sheet.options[KW_FORMNO].defaultSelection = 1;
  sheet.options[KW_WMSELECTION].defaultSelection = 1;
}

void RestoreDriverPart(SheetContext& sheet, const DriverPrivateDevMode& part) noexcept {
  for (const auto& [id, bit] : kDriverFlags) {
    sheet.SetCurrent(id, (part.flags & bit) != 0 ? 1 : 0);
  }
  if (sheet.pPublicDM->dmDriverVersion <= kDriverVersionWithoutPrivateValues) {
    return;
  }
  for (const auto& [id, member] : kDriverValues) {
    sheet.SetCurrent(id, part.*member);
  }
  sheet.SetCurrent(KW_PSLANGUAGELEVEL, part.psLanguageLevel);
  for (const KeywordId id : kNeverZero) {
    if (sheet.Current(id) == 0) {
      sheet.RestoreDefault(id);  // the core driver never wrote it
    }
  }
}

void ApplyBorderRule(SheetContext& sheet, const DriverPrivateDevMode& part) noexcept {
  sheet.SetCurrent(KW_NUPBORDER, part.noBorder == 0 ? 1 : 0);
  ZN_TRACE_TEXT(kSource, "CSession::HidePrinterSetting", "KW_NUP = %d, KW_NUPBORDER = %d\n",
                static_cast<int>(sheet.Current(KW_NUP)),
                static_cast<int>(sheet.Current(KW_NUPBORDER)));
  if (sheet.Current(KW_NUP) == 0) {
    sheet.SetCurrent(KW_NUPBORDER, 0);
    ZN_TRACE_TEXT(kSource, "CSession::HidePrinterSetting",
                  "KW_NUP is none. KW_NUPBORDER is overwrited.\n");
  }
}

}  // namespace

void CSession::HidePrinterSetting() noexcept {
  if (m_p == nullptr) {
    return;
  }
  SheetContext& sheet = *m_p;
  const PrinterInfo2 info(sheet.hPrinter);
  TakePrinterInfo(sheet, info);
  BindKeywords(sheet);
  TakeJobValues(sheet);

  CDevMode stored;
  if (!ReadStoredBlock(sheet.hPrinter, info, stored)) {
    return;
  }
  TakeUserData(sheet, stored);
  RestoreCustomColors(sheet);
  RestoreDeviceLists(sheet);
  DriverPrivateDevMode part{};
  if (LoadDriverPart(sheet.pPublicDM, sheet.pDevMode, part)) {
    RestoreDriverPart(sheet, part);
  }
  ApplyBorderRule(sheet, part);
  for (OptionSelection& option : sheet.options) {
    option.lastWritten = option.currentSelection;
  }
  sheet.settingsRead = true;
}

}  // namespace zn
