#include "oemps/satellite.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/boundary.h"
#include "platform/resources.h"

namespace zn {
namespace {

// Applications print on several threads, each with its own object: the count, loading and freeing
// go together. Readers of the resource instance stay on the user-interface thread.
SRWLOCK g_lock = SRWLOCK_INIT;
std::int32_t g_liveObjects = 0;

class LockHeld {
 public:
  LockHeld() noexcept { ::AcquireSRWLockExclusive(&g_lock); }
  ~LockHeld() { ::ReleaseSRWLockExclusive(&g_lock); }
  LockHeld(const LockHeld&) = delete;
  LockHeld& operator=(const LockHeld&) = delete;
};

struct CodePageLanguage {
  UINT codePage;
  LANGID language;
};

constexpr CodePageLanguage kCodePageLanguages[] = {
    {932, MAKELANGID(LANG_JAPANESE, SUBLANG_DEFAULT)},
    {936, MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED)},
    {949, MAKELANGID(LANG_KOREAN, SUBLANG_DEFAULT)},
    {950, MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_TRADITIONAL)},
    {1252, MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US)},
};

LCID LocaleOf(LANGID language) noexcept {
  return ::ConvertDefaultLocale(MAKELCID(language, SORT_DEFAULT));
}

LCID PrimaryLocaleOf(LANGID language) noexcept {
  return LocaleOf(MAKELANGID(PRIMARYLANGID(language), SUBLANG_NEUTRAL));
}

LCID CodePageLocale() noexcept {
  const auto row = std::ranges::find(kCodePageLanguages, ::GetACP(), &CodePageLanguage::codePage);
  return row != std::end(kCodePageLanguages) ? LocaleOf(row->language) : LOCALE_SYSTEM_DEFAULT;
}

std::string ModulePath() {
  std::array<char, 260> path;
  const DWORD length = ::GetModuleFileNameA(ModuleInstance(), path.data(), path.size());
  return length < path.size() ? std::string(path.data(), length) : std::string();
}

// The satellites to try for a module: its path without the extension, the three-letter language
// abbreviation, ".dll"; in the order user language, its primary language, system language, its
// primary language, language of the active code page. None is named twice. The module itself speaks
// Japanese: who would get that sooner than another language needs no satellite in the other.
std::vector<std::string> SatelliteCandidates(const std::string& modulePath) {
  const std::string stem = modulePath.substr(0, modulePath.rfind('.'));
  const LANGID user = ::GetUserDefaultUILanguage();
  const LANGID system = ::GetSystemDefaultUILanguage();
  std::vector<std::string> candidates;
  for (const LCID locale : {LocaleOf(user), PrimaryLocaleOf(user), LocaleOf(system),
                            PrimaryLocaleOf(system), CodePageLocale()}) {
    char tag[16];
    if (::GetLocaleInfoA(locale, LOCALE_SABBREVLANGNAME, tag, sizeof tag) == 0) {
      continue;
    }
    std::string candidate = stem + tag + ".dll";
    if (std::ranges::find(candidates, candidate) == candidates.end()) {
      candidates.push_back(std::move(candidate));
    }
    if (PRIMARYLANGID(LANGIDFROMLCID(locale)) == LANG_JAPANESE) {
      break;
    }
  }
  return candidates;
}

HMODULE LoadSatellite() {
  const std::string path = ModulePath();
  if (path.empty()) {
    return nullptr;
  }
  for (const std::string& candidate : SatelliteCandidates(path)) {
    if (const HMODULE module = ::LoadLibraryA(candidate.c_str())) {
      return module;
    }
  }
  return nullptr;
}

}  // namespace

void AddLiveObject() noexcept {
  const LockHeld held;
  if (g_liveObjects <= 0) {
    // Without memory the plug-in's own resources serve.
    SetSatelliteInstance(GuardedOr<HINSTANCE>(nullptr, &LoadSatellite));
  }
  ++g_liveObjects;
}

void RemoveLiveObject() noexcept {
  const LockHeld held;
  if (--g_liveObjects > 0) {
    return;
  }
  if (const HINSTANCE satellite = SatelliteInstance()) {
    SetSatelliteInstance(nullptr);
    ::FreeLibrary(satellite);
  }
}

}  // namespace zn
