#include "host/rounds.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>

namespace zn::host {
int ParseRounds(const char* verb, Words words) {
  int rounds = 0;
  const char* end = words.empty() ? nullptr : words[0] + std::strlen(words[0]);
  if (words.empty() || std::from_chars(words[0], end, rounds).ptr != end || rounds < 1) {
    throw UsageError(std::string(verb) + " needs the number of rounds");
  }
  return rounds;
}

double Median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

void PrintRatio(const char* work, double ours, const char* reference, double theirs,
                const char* unit) {
  std::printf("%s: %.3f %s, %s: %.3f %s, ratio %.2f\n", work, ours, unit, reference, theirs, unit,
              ours / theirs);
}

void PrintTimes(const char* work, const std::vector<double>& milliseconds, const char* reference,
                const std::vector<double>& referenceMilliseconds) {
  PrintRatio(work, Median(milliseconds), reference, Median(referenceMilliseconds), "ms");
}

}  // namespace zn::host
