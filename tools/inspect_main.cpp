// zninspect: what does this settings block, profile, favourite or keyword say?
#include <cstdio>
#include <string>

#include "tools/commands.h"

namespace zn::inspect {

int Fail(int code, std::string_view message) {
  std::fprintf(stderr, "zninspect: %.*s\n", static_cast<int>(message.size()), message.data());
  return code;
}

namespace {

constexpr Command kCommands[] = {
    {"devmode", "FILE|--default OUT|--convert SRC DST OUT|--merge SRC DST OUT", &RunDevMode},
    {"keyword", "NAME", &RunKeyword},
    {"codes", "ID", &RunCodes},
    {"favorite", "FILE [--save OUT]", &RunFavorite},
    {"record", "--default", &RunRecord},
    {"profile", "FILE", &RunProfile},
    {"restriction", "--group G KEY=VALUE...", &RunRestriction},
    {"tables", "[NAME]", &RunTables},
};

}  // namespace
}  // namespace zn::inspect

int main(int argc, char** argv) {
  using namespace zn::inspect;
  const Arguments words(argv, static_cast<std::size_t>(argc));
  if (words.size() >= 2) {
    for (const Command& command : kCommands) {
      if (command.name == words[1]) {
        const int code = command.run(words.subspan(2));
        return std::fflush(stdout) == 0 && std::ferror(stdout) == 0
                   ? code
                   : Fail(kFailed, "the output cannot be written");
      }
    }
  }
  std::string usage = "usage:";
  for (const Command& command : kCommands) {
    usage.append(" zninspect ").append(command.name).append(" ").append(command.usage).append(";");
  }
  return Fail(kUsage, usage);
}
