// What the host prints about a sheet when it has ended; one fact per line, for people and tests.
#pragma once

#include <string>

#include "host/driver/document_sheet.h"

namespace zn::host {

// "update KEYWORD: OLD -> NEW" per DrvUpdateUISetting, "option KEYWORD: OLD -> NEW" per option that
// the sheet changed, "block NAME: OLD -> NEW" per changed field of the plug-in's block,
// "fault: TEXT" per fault. `kept` is the DEVMODE that the sheet ends with.
[[nodiscard]] std::string SheetReport(DocumentSheet& sheet, const DriverHelper& helper,
                                      const QueueDevMode& kept);

}  // namespace zn::host
