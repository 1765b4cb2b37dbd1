// Reading and writing of single ids.
#include "session/session.h"

#include <algorithm>

#include "keywords/keyword_table.h"
#include "platform/trace.h"
#include "session/job_values.h"
#include "session/session_tables.h"

namespace zn {
namespace {

constexpr const char* kSource = "session\\session";
constexpr std::uint32_t kLow16 = 0xFFFF;

bool IsCustomColor(KeywordId id, std::uint32_t value) noexcept {
  return std::any_of(kCustomColors.begin(), kCustomColors.end(), [&](const CustomColor& color) {
    std::uint32_t first = 0;
    return color.id == id && GetOptionIndex(id, color.firstCode, first) && value >= first;
  });
}

// What the core driver's item gets: it knows none of the device's own choices.
std::uint32_t FitForDriver(KeywordId id, std::uint32_t value) noexcept {
  const bool isDeviceList = std::any_of(kDeviceLists.begin(), kDeviceLists.end(),
                                        [id](const DeviceList& list) { return list.id == id; });
  return isDeviceList || IsCustomColor(id, value) ? 0 : value;
}

}  // namespace

std::uint32_t CSession::DRVGetDWord(std::uint32_t id, bool wantDefault) const noexcept {
  if (id >= private_id::kNotReadable) {
    return 0xFFFFFFFF;
  }
  if (m_p == nullptr) {
    return 0;
  }
  if (id >= KW_MAX) {
    return GetPrivate(id, wantDefault);
  }
  if (wantDefault) {
    return m_p->Default(id);
  }
  const OPTITEM* const item = m_p->items[id];
  if (item == nullptr) {
    return 0;
  }
  if (id == KW_COLLATE) {
    // Inverted against the setter and the set-up: the callers count on 1 for an unchecked box.
    const bool isChecked = (item->Flags & OPTIF_ECB_CHECKED) != 0;
    ZN_TRACE_TEXT(kSource, "CSession::DRVGetDWord",
                  "%s() iDataItemID=KW_COLLATE bResult=%d cashe=%d item=%d \n",
                  "CSession::DRVGetDWord", isChecked ? 0 : 1,
                  static_cast<int>(m_p->options[id].lastWritten), isChecked ? 1 : 0);
    return isChecked ? 0 : 1;
  }
  return static_cast<std::uint32_t>(item->Sel);
}

int CSession::DRVSetDWord(std::uint32_t id, std::uint32_t value) noexcept {
  if (m_p == nullptr) {
    return 0;
  }
  if (id >= KW_MAX) {
    return SetPrivate(id, value);
  }
  OPTITEM* const item = m_p->items[id];
  if (item == nullptr) {
    return 0;
  }
  std::uint32_t& lastWritten = m_p->options[id].lastWritten;
  if (value == lastWritten) {
    return 1;
  }
  const std::uint32_t oldValue = lastWritten;
  lastWritten = value;
  const std::uint32_t fitted = FitForDriver(id, value);
  if (id == KW_COLLATE) {
    ZN_TRACE_TEXT(kSource, "CSession::DRVSetDWord", "%s() iDataItemID=KW_COLLATE dwData=%d\n",
                  "CSession::DRVSetDWord", static_cast<int>(fitted));
    item->Flags &= ~static_cast<DWORD>(OPTIF_ECB_CHECKED);
    item->Flags |= fitted != 0 ? OPTIF_ECB_CHECKED : 0;
  } else {
    item->Sel = static_cast<LONG>(fitted);
  }
  item->Flags |= OPTIF_CHANGED;
  m_p->settingsChanged = true;
  if (m_p->pOEMHelp == nullptr) {
    return 0;
  }
  const HRESULT result =
      m_p->pOEMHelp->DrvUpdateUISetting(m_p->poemuiobj, item, oldValue, OEMCUIP_DOCPROP);
  return SUCCEEDED(result) ? 1 : 0;
}

std::uint32_t CSession::DRVGetKeywordNumOptions(std::uint32_t id) const noexcept {
  if (m_p == nullptr || id >= KW_MAX) {
    return 0;
  }
  const OPTITEM* const item = m_p->items[id];
  return item != nullptr && item->pOptType != nullptr ? item->pOptType->Count : 0;
}

std::uint32_t CSession::GetPrivate(std::uint32_t id, bool wantDefault) const noexcept {
  const DevModeField* const field = FindPrivateField(id);
  if (field == nullptr || Holds(kWriteOnlyIds, id)) {
    return 0;
  }
  const CDevMode* const block = SettingsBlock(*m_p);
  const CDevMode& values = block != nullptr ? *block : m_p->jobValues;
  const std::uint32_t value = wantDefault ? field->defaultValue : values.GetDWord(field->offset);
  return field->privateWidth == 16 ? value & kLow16 : value;
}

int CSession::SetPrivate(std::uint32_t id, std::uint32_t value) noexcept {
  const DevModeField* const field = FindPrivateField(id);
  if (field == nullptr) {
    return 0;
  }
  WriteJobValue(*m_p, field->offset, field->privateWidth == 16 ? value & kLow16 : value);
  return Holds(kZeroAnswerIds, id) ? 0 : 1;
}

}  // namespace zn
