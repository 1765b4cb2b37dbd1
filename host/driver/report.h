// What the host prints about a sheet when it has ended; one fact per line, for people and tests.
#pragma once

#include <string>

#include "host/driver/document_sheet.h"

namespace zn::host {

// "option KEYWORD: OLD -> NEW" per option of the printer that differs, "driver NAME: OLD -> NEW"
// per value of the core driver's own, "block OFFSET NAME: OLD -> NEW" per field of the plug-in's
// block.
[[nodiscard]] std::string DevModeReport(const PrinterDescription& description,
                                        const QueueDevMode& before, const QueueDevMode& after);

// "update KEYWORD: OLD -> NEW" per DrvUpdateUISetting, what the sheet changed as DevModeReport
// tells it, "fault: TEXT" per fault. `kept` is the DEVMODE that the sheet ends with.
[[nodiscard]] std::string SheetReport(DocumentSheet& sheet, const DriverHelper& helper,
                                      const QueueDevMode& kept);

}  // namespace zn::host
