// The handler behind IOemUI::DevMode: sizes, defaults, converts and merges the settings block.
#pragma once

#include "platform/driver_interfaces.h"

namespace zn {

// `mode` is one of OEMDM_. S_OK or E_FAIL; the last error is 87 for bad arguments and 122 when the
// caller tells a buffer that is too small. OEMDM_MERGE also fails, after the block is merged, when
// the printer's information cannot be read. May throw std::bad_alloc.
HRESULT hrOEMDevMode(DWORD mode, OEMDMPARAM* parameters);

}  // namespace zn
