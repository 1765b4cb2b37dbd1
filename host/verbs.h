// The verbs of znhost. Each takes the words behind its name and answers the exit code; failures
// come as HostError, bad words as UsageError.
#pragma once

#include "host/words.h"

namespace zn::host {

int RunInstall(Words words);
int RunPrefs(Words words);
int RunProps(Words words);
int RunEvent(Words words);
int RunSoak(Words words);
int RunOpening(Words words);
int RunFavorites(Words words);
int RunLoad(Words words);
int RunFaults(Words words);

}  // namespace zn::host
