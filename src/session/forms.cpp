// The process-wide table of form names.
#include "session/forms.h"

#include "platform/driver_interfaces.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>

#include "platform/trace.h"
#include "session/session.h"

namespace zn {
namespace {

constexpr std::size_t kNameSize = 64;
// Names are 64 bytes apart; the much larger allocation is what unchecked indexes fall into.
constexpr std::size_t kBytesPerName = 4096;
constexpr int kMaxForms = 4096;

std::unique_ptr<char[]> m_pszFormsNames;
std::uint32_t m_formsCount = 0;

int AskNames(const char* printerName, char* names) noexcept {
  return ::DeviceCapabilitiesA(printerName, nullptr, DC_PAPERNAMES, names, nullptr);
}

}  // namespace

void LoadFormNames(const char* printerName) noexcept {
  const int count = std::min(AskNames(printerName, nullptr), kMaxForms);
  if (count <= 0) {
    return;
  }
  m_formsCount = 0;
  m_pszFormsNames.reset();
  const std::size_t size = static_cast<std::size_t>(count) * kBytesPerName;
  m_pszFormsNames.reset(new (std::nothrow) char[size]());
  if (!m_pszFormsNames) {
    return;
  }
  const int filled = std::min(AskNames(printerName, m_pszFormsNames.get()), count);
  if (filled <= 0) {
    m_pszFormsNames.reset();
    return;
  }
  m_formsCount = static_cast<std::uint32_t>(filled);
  for (std::size_t form = 0; form < m_formsCount; ++form) {
    // A name may fill its 64 bytes to the last.
    m_pszFormsNames[form * kNameSize + kNameSize - 1] = '\0';
  }
}

std::uint32_t GetFormsCount() noexcept {
  return m_formsCount;
}

int GetFormsInfo(std::uint32_t index, const char** name) noexcept {
  if (!m_pszFormsNames) {
    ZN_TRACE_TEXT("session\\session", "CSession::GetFormsInfo", "%s() Error m_pszFormsNames=%d\n",
                  "CSession::GetFormsInfo", 0);
    return 0;
  }
  *name = m_pszFormsNames.get() + index * kNameSize;
  return 1;
}

}  // namespace zn
