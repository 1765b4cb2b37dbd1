// Small file helpers of the host. Paths are in the ANSI code page.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zn::host {

[[nodiscard]] std::optional<std::string> ReadWholeFile(const std::string& path);
[[nodiscard]] bool WriteWholeFile(const std::string& path, std::string_view bytes);

// The folder of this program, with a backslash at its end.
[[nodiscard]] std::string ProgramFolder();

// The file as an absolute path, so that it survives a change of the current directory.
[[nodiscard]] std::string AbsolutePath(const std::string& path);

[[nodiscard]] std::wstring WideText(std::string_view text);
[[nodiscard]] std::string AnsiText(std::wstring_view text);
[[nodiscard]] std::string Utf8Text(std::wstring_view text);

}  // namespace zn::host
