// Works that are timed round by round, each beside its reference.
#pragma once

#include <vector>

#include "host/words.h"

namespace zn::host {

// Rounds that fill the caches of system and plug-in before anything is counted.
inline constexpr int kWarmUpRounds = 5;

// A number from 1 on. Throws UsageError with `complaint`.
[[nodiscard]] int ParseNumber(std::string_view text, const std::string& complaint);
// The number of rounds that a verb is given as its first word. Throws UsageError.
[[nodiscard]] int ParseRounds(const char* verb, Words words);

[[nodiscard]] double Median(std::vector<double> values);

// Prints a work, its reference and their ratio in one line, which ./bench reads, too.
void PrintRatio(const char* work, double ours, const char* reference, double theirs,
                const char* unit);
// The same with the medians of both.
void PrintTimes(const char* work, const std::vector<double>& milliseconds, const char* reference,
                const std::vector<double>& referenceMilliseconds);

}  // namespace zn::host
