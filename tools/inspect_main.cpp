// zninspect: what does this settings block, profile, favourite or keyword say?
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "tools/commands.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace zn::inspect {
namespace {

constexpr Command kCommands[] = {
    {"favorite", "PATH... | FILE --save OUT",
     "the settings and items of favourites; saves one again", &RunFavorite},
    {"devmode", "PATH... | --default OUT | --convert SRC DST OUT | --merge SRC DST OUT",
     "the fields of settings blocks and what is wrong with them; makes one", &RunDevMode},
    {"diff", "A B", "setting by setting, where two favourites or settings blocks differ", &RunDiff},
    {"profile", "PATH...", "trays, outputs, paper names and watermarks of device profiles",
     &RunProfile},
#ifndef _WIN32
    {"ppd", "PATH...", "where printer descriptions do not fit the plug-in's tables", &RunPpd},
#endif
    {"keyword", "NAME|ID...", "id, option codes and option names", &RunKeyword},
    {"restriction", "--group N|NAME KEY=VALUE...", "whether settings may stand together",
     &RunRestriction},
    {"record", "--default", "a fresh print option record", &RunRecord},
    {"tables", "[NAME]", "the tables built in, as tests/frozen/ keeps them", &RunTables},
};

constexpr const char* kHelp =
    "A PATH is a file, or a folder for all files of that kind in it. Output is UTF-8; with --json\n"
    "each input is one line, an object, which has an \"error\" when the input is bad.\n"
    "Exit code: 0 ok; 1 an input is bad, an operation fails, or what diff and ppd compare "
    "differs;\n"
    "2 usage, and for diff an input that cannot be read.\n";

int PrintHelp() {
  std::puts("zninspect VERB [--json] ...\n");
  for (const Command& command : kCommands) {
    std::printf("  %s %s\n      %s\n", command.name.data(), command.usage.data(),
                command.purpose.data());
  }
  std::printf("\n%s", kHelp);
  return kOk;
}

int Run(Arguments words, bool asJson) {
  const std::string_view verb = words.empty() ? "" : words[0];
  if (verb == "--help") {
    return PrintHelp();
  }
  const auto* const command = std::ranges::find(kCommands, verb, &Command::name);
  if (command == std::end(kCommands)) {
    return Output::Fail(kUsage, "usage: zninspect VERB [--json] ...; zninspect --help tells more");
  }
  const int code = command->run(words.subspan(1), Output(asJson));
  return code != kMisused ? code
                          : Output::Fail(kUsage, std::string("usage: zninspect ")
                                                     .append(command->name)
                                                     .append(" [--json] ")
                                                     .append(command->usage));
}

#ifdef _WIN32
// While the program runs, its console takes UTF-8.
class Utf8Console {
 public:
  Utf8Console() : before_(::GetConsoleOutputCP()) { ::SetConsoleOutputCP(CP_UTF8); }
  ~Utf8Console() { ::SetConsoleOutputCP(before_); }
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;

 private:
  unsigned before_;
};
#endif

}  // namespace
}  // namespace zn::inspect

int main(int argc, char** argv) {
  using namespace zn::inspect;
#ifdef _WIN32
  const Utf8Console console;
#endif
  std::vector<const char*> words(argv + std::min(argc, 1), argv + argc);
  const bool asJson = std::erase_if(words, [](std::string_view w) { return w == "--json"; }) != 0;
  const int code = Run(words, asJson);
  return std::fflush(stdout) == 0 && std::ferror(stdout) == 0
             ? code
             : Output::Fail(kFailed, "the output cannot be written");
}
