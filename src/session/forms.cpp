#include "session/forms.h"

#include "platform/driver_interfaces.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>

#include "platform/trace.h"

namespace zn {
namespace {

constexpr std::size_t kNameSize = 64;
// Names are 64 bytes apart; the much larger allocation is what unchecked indexes fall into.
constexpr std::size_t kBytesPerName = 4096;
constexpr int kMaxForms = 4096;

std::unique_ptr<char[]> g_formNames;
std::uint32_t g_formCount = 0;
std::unique_ptr<POINT[]> g_formSizes;  // as many as names, or null

int AskNames(const char* printerName, char* names) noexcept {
  return ::DeviceCapabilitiesA(printerName, nullptr, DC_PAPERNAMES, names, nullptr);
}

int AskSizes(const char* printerName, POINT* sizes) noexcept {
  return ::DeviceCapabilitiesA(printerName, nullptr, DC_PAPERSIZE, reinterpret_cast<LPSTR>(sizes),
                               nullptr);
}

// None at all when there are not as many as names: they would belong to other forms.
void LoadFormSizes(const char* printerName) noexcept {
  g_formSizes.reset();
  if (AskSizes(printerName, nullptr) != static_cast<int>(g_formCount)) {
    return;
  }
  // A form may be added in between, and the answer is not told how much room it has.
  g_formSizes.reset(new (std::nothrow) POINT[2 * g_formCount + kMaxForms]());
  if (g_formSizes && AskSizes(printerName, g_formSizes.get()) != static_cast<int>(g_formCount)) {
    g_formSizes.reset();
  }
}

}  // namespace

void LoadForms(const char* printerName) noexcept {
  const int count = std::min(AskNames(printerName, nullptr), kMaxForms);
  if (count <= 0) {
    return;
  }
  g_formCount = 0;
  g_formNames.reset();
  g_formSizes.reset();
  const std::size_t size = static_cast<std::size_t>(count) * kBytesPerName;
  g_formNames.reset(new (std::nothrow) char[size]());
  if (!g_formNames) {
    return;
  }
  const int filled = std::min(AskNames(printerName, g_formNames.get()), count);
  if (filled <= 0) {
    g_formNames.reset();
    return;
  }
  g_formCount = static_cast<std::uint32_t>(filled);
  for (std::size_t form = 0; form < g_formCount; ++form) {
    // A name may fill its 64 bytes to the last.
    g_formNames[form * kNameSize + kNameSize - 1] = '\0';
  }
  LoadFormSizes(printerName);
}

std::uint32_t GetFormsCount() noexcept {
  return g_formCount;
}

int GetFormsInfo(std::uint32_t index, const char** name) noexcept {
  if (!g_formNames) {
    ZN_TRACE_TEXT("session\\session", "CSession::GetFormsInfo", "%s() Error m_pszFormsNames=%d\n",
                  "CSession::GetFormsInfo", 0);
    return 0;
  }
  *name = g_formNames.get() + index * kNameSize;
  return 1;
}

FormSize GetFormSize(std::uint32_t index) noexcept {
  if (!g_formSizes || index >= g_formCount) {
    return {0, 0};
  }
  const POINT& size = g_formSizes[index];
  return size.x > 0 && size.y > 0
             ? FormSize{static_cast<std::uint32_t>(size.x), static_cast<std::uint32_t>(size.y)}
             : FormSize{0, 0};
}

std::string_view FormName(std::uint32_t index) noexcept {
  const char* name = nullptr;
  return index < GetFormsCount() && GetFormsInfo(index, &name) != 0 ? name : "";
}

bool IsCustomForm(std::uint32_t index) noexcept {
  return GetFormsCount() != 0 && index == GetFormsCount() - 1;
}

}  // namespace zn
