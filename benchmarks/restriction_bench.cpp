// The restriction check on selections without conflict, against a print system's conflict check on
// a printer description of 60 options and 300 rules.
#include <benchmark/benchmark.h>
#include <cups/ppd.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "session/restriction.h"

namespace {

using zn::restriction::Group;
using zn::restriction::Selections;
using zn::restriction::Verdict;

// Settings as users combine them, in no order that a processor could foresee.
std::vector<Selections> MakeSelections() {
  constexpr std::size_t kCount = 1024;
  std::mt19937 random(4711);
  const auto upTo = [&random](int most) { return std::uniform_int_distribution(0, most)(random); };
  std::vector<Selections> made;
  while (made.size() < kCount) {
    const Selections now = {.duplex = upTo(2),
                            .staple = upTo(21),
                            .bookletPrint = upTo(1),
                            .punch = upTo(4),
                            .bookletFinishing = upTo(1),
                            .mediaType = upTo(34),
                            .mediaTypeWeight = upTo(8),
                            .autoTraySettingToBypass = upTo(1),
                            .mediaTypeBypass = upTo(34),
                            .mediaTypeWeightBypass = upTo(8),
                            .punchHoles = upTo(2),
                            .mixSizePrint = 0};
    if (Check(now, Group::kDuplex).verdict == Verdict::Allowed) {
      made.push_back(now);
    }
  }
  return made;
}

void Check(benchmark::State& state) {
  const std::vector<Selections> selections = MakeSelections();
  std::size_t next = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(Check(selections[next], Group::kDuplex));
    next = (next + 1) % selections.size();
  }
}

constexpr int kOptions = 60;
constexpr int kChoices = 6;
constexpr int kRules = 300;

// No rule names a first choice, the default of every option.
std::string MakeDescription() {
  std::string text =
      "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
      "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n*PCFileName: \"BENCH.PPD\"\n"
      "*Manufacturer: \"Bench\"\n*Product: \"(Bench)\"\n*ModelName: \"Bench\"\n"
      "*ShortNickName: \"Bench\"\n*NickName: \"Bench\"\n*PSVersion: \"(3010.000) 0\"\n"
      "*LanguageLevel: \"3\"\n*ColorDevice: True\n*DefaultColorSpace: RGB\n*FileSystem: False\n"
      "*Throughput: \"1\"\n*LandscapeOrientation: Plus90\n*TTRasterizer: Type42\n";
  for (int option = 0; option < kOptions; ++option) {
    const std::string name = "Option" + std::to_string(option);
    text += "*OpenUI *" + name + "/" + name + ": PickOne\n*Default" + name + ": Choice0\n";
    for (int choice = 0; choice < kChoices; ++choice) {
      const std::string number = std::to_string(choice);
      text += "*" + name + " Choice" + number + "/Choice " + number + ": \"\"\n";
    }
    text += "*CloseUI: *" + name + "\n";
  }
  for (int rule = 0; rule < kRules; ++rule) {
    const auto side = [](int option, int choice) {
      return "*Option" + std::to_string(option) + " Choice" + std::to_string(choice);
    };
    const int first = rule % kOptions;
    const int second = (first + 1 + rule / kOptions) % kOptions;
    text += "*UIConstraints: " + side(first, 1 + rule % (kChoices - 1)) + " " +
            side(second, 1 + rule / kOptions % (kChoices - 1)) + "\n";
  }
  return text;
}

void LibcupsConflicts(benchmark::State& state) {
  const std::string text = MakeDescription();
  std::FILE* file = std::tmpfile();
  std::fwrite(text.data(), 1, text.size(), file);
  std::rewind(file);
  ppd_file_t* ppd = ppdOpen(file);
  std::fclose(file);
  if (ppd == nullptr) {
    state.SkipWithError("the printer description was not read");
    return;
  }
  ppdMarkDefaults(ppd);
  if (ppd->num_consts != kRules || ppdConflicts(ppd) != 0) {
    state.SkipWithError("the printer description has other rules than meant");
  }
  for (auto _ : state) {
    benchmark::DoNotOptimize(ppdConflicts(ppd));
  }
  ppdClose(ppd);
}

BENCHMARK(Check)->Name("restriction/check");
BENCHMARK(LibcupsConflicts)->Name("restriction/libcups");

}  // namespace
