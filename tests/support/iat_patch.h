// The host's way to replace a function that a module imports; without it the test ends and fails.
#pragma once

#include "host/base/import_patch.h"

namespace zn::test {

using host::ImportPatch;

}  // namespace zn::test
