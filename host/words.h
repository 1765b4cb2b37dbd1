// The words of znhost's command line.
#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "host/base/host_error.h"
#include "host/driver/queue.h"

namespace zn::host {

struct UsageError : HostError {
  using HostError::HostError;
};

using Words = std::span<const char* const>;

struct SheetWords {
  std::string queue = kSampleQueue;
  std::string shots;    // folder; empty: none
  std::string devMode;  // file; empty: the queue's own
  std::string seed = "1";
  std::string from = "1";
  bool readOnly = false;
};

// Throws UsageError for a word that is none of the `allowed` options ("--queue", "--shots",
// "--devmode", "--seed", "--from", "--read-only") and for an option without its value.
[[nodiscard]] SheetWords ParseSheetWords(Words words,
                                         std::initializer_list<std::string_view> allowed);

}  // namespace zn::host
