// The verbs of znhost. Each takes the words behind its name and answers the exit code; failures
// come as HostError, bad words as UsageError.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/host_error.h"

namespace zn::host {

struct UsageError : HostError {
  using HostError::HostError;
};

using Words = std::span<const char* const>;

int RunInstall(Words words);
int RunPrefs(Words words);
int RunProps(Words words);
int RunEvent(Words words);
int RunSoak(Words words);

}  // namespace zn::host
