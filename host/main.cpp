// znhost: plays the core driver around the plug-in.
#include <windows.h>
// This must come behind windows.h.
#include <commctrl.h>

#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

#include "host/verbs.h"

namespace {

using namespace zn::host;

struct Verb {
  std::string_view name;
  std::string_view usage;
  int (*run)(Words words);
};

constexpr Verb kVerbs[] = {
    {"install", "[--queue NAME]", &RunInstall},
    {"prefs", "[--queue NAME] [--shots DIR] [--devmode FILE]", &RunPrefs},
    {"props", "[--queue NAME] [--shots DIR] [--read-only]", &RunProps},
    {"event", "delete NAME", &RunEvent},
    {"soak", "N [--queue NAME]", &RunSoak},
    {"open", "N [--queue NAME]", &RunOpening},
    {"favorites", "N [--queue NAME]", &RunFavorites},
    {"load", "N [--queue NAME]", &RunLoad},
    {"faults", "N|all [--seed N] [--from N] [--queue NAME]", &RunFaults},
};

constexpr int kFailed = 1;
constexpr int kUsage = 2;

int Fail(int code, const std::string& message) {
  std::fprintf(stderr, "znhost: %s\n", message.c_str());
  return code;
}

std::string Usage() {
  std::string usage = "usage:";
  for (const Verb& verb : kVerbs) {
    usage.append(" znhost ").append(verb.name).append(" ").append(verb.usage).append(";");
  }
  usage.pop_back();
  return usage;
}

int Run(Words words) {
  if (words.empty()) {
    throw UsageError(Usage());
  }
  for (const Verb& verb : kVerbs) {
    if (verb.name == words[0]) {
      return verb.run(words.subspan(1));
    }
  }
  throw UsageError(std::string("unknown verb ") + words[0] + "; " + Usage());
}

}  // namespace

int main(int argc, char** argv) {
  ::SetProcessDPIAware();  // as what shows printing preferences does
  const INITCOMMONCONTROLSEX controls = {
      sizeof controls, ICC_WIN95_CLASSES | ICC_USEREX_CLASSES | ICC_STANDARD_CLASSES};
  ::InitCommonControlsEx(&controls);
  try {
    return Run(Words(argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)));
  } catch (const UsageError& error) {
    return Fail(kUsage, error.what());
  } catch (const std::exception& error) {
    return Fail(kFailed, error.what());
  }
}
