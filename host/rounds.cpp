#include "host/rounds.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>

namespace zn::host {
namespace {

double Median(std::vector<double>& values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

}  // namespace

int ParseRounds(const char* verb, Words words) {
  int rounds = 0;
  const char* end = words.empty() ? nullptr : words[0] + std::strlen(words[0]);
  if (words.empty() || std::from_chars(words[0], end, rounds).ptr != end || rounds < 1) {
    throw UsageError(std::string(verb) + " needs the number of rounds");
  }
  return rounds;
}

void PrintTimes(const char* work, std::vector<double> milliseconds, const char* reference,
                std::vector<double> referenceMilliseconds) {
  const double ours = Median(milliseconds);
  const double theirs = Median(referenceMilliseconds);
  std::printf("%s: %.3f ms, %s: %.3f ms, ratio %.2f\n", work, ours, reference, theirs,
              ours / theirs);
}

}  // namespace zn::host
