#include "host/rounds.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <string>

namespace zn::host {

int ParseNumber(std::string_view text, const std::string& complaint) {
  int number = 0;
  const char* end = text.data() + text.size();
  if (std::from_chars(text.data(), end, number).ptr != end || number < 1) {
    throw UsageError(complaint);
  }
  return number;
}

int ParseRounds(const char* verb, Words words) {
  return ParseNumber(words.empty() ? "" : words[0],
                     std::string(verb) + " needs the number of rounds");
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
