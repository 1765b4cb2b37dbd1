// The registry key name under which a user's data for one printer are kept: the printer's short
// name followed by the GUID that Windows records for the connection. The same name must come out
// whenever the plug-in meets the printer, so the merge, the properties page and the deletion all
// use these routines.
//
// A connection is a key below "Printers\Connections" of the current user, named ",,server,printer",
// with the value "GuidPrinter". A client-side rendering connection shows itself as
// "\\server\CSR|identity", where the identity is the connection's GUID or the printer's short name.
// Both lead to the connection and so to the short name (the text behind the last comma), from which
// the key name is formed as for the plain name: one printer has one key name under all its names.
//
// Nothing fails: what cannot be found makes the key name shorter. Key names have at most 1,023
// bytes. Texts are in the ANSI code page; the trail byte of a double-byte character is never taken
// for a backslash. May throw std::bad_alloc.
#pragma once

#include <string>
#include <string_view>

namespace zn {

inline constexpr char kConnectionsKey[] = "Printers\\Connections";

// The key name for a printer name as the spooler tells it: one of the next two.
[[nodiscard]] std::string GetPrinterKeyName(std::string_view printerName);
// ... of a printer reached through another computer's queue.
[[nodiscard]] std::string GetAuthenticatInfo(std::string_view printerName);
// ... of a client-side rendering connection, a name that holds "\CSR|".
[[nodiscard]] std::string GetClientAuthenticatInfo(std::string_view printerName);

// The key name for the name that comes with the event of a printer's deletion.
[[nodiscard]] std::string GetDeletePrinterName(std::string_view printerName);

// The first connection below `parentKey` whose name contains the short name; empty when none does.
[[nodiscard]] std::string GetSearchRegistryKeyServer(const char* parentKey,
                                                     std::string_view shortName);
// The first connection whose GUID is `identity`, else the first whose printer has that name; no
// matter the case.
[[nodiscard]] std::string GetSearchRegistryKeyClient(const char* parentKey,
                                                     std::string_view identity);

// The GUID text of one connection. Creates the key when it is missing.
[[nodiscard]] std::string GetGuidPrinter(const std::string& keyPath);

}  // namespace zn
