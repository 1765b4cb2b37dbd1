#include "host/base/files.h"

#include <windows.h>

#include <array>
#include <cstdio>

#include "platform/unique.h"

namespace zn::host {
namespace {

std::string NarrowText(UINT codePage, std::wstring_view text) {
  constexpr std::size_t kMostBytes = 3;  // of a UTF-16 unit
  std::string narrow(text.size() * kMostBytes, '\0');
  const int length =
      ::WideCharToMultiByte(codePage, 0, text.data(), static_cast<int>(text.size()), narrow.data(),
                            static_cast<int>(narrow.size()), nullptr, nullptr);
  narrow.resize(static_cast<std::size_t>(length));
  return narrow;
}

}  // namespace

std::optional<std::string> ReadWholeFile(const std::string& path) {
  const UniqueFile file(std::fopen(path.c_str(), "rb"));
  if (!file) {
    return std::nullopt;
  }
  std::string bytes;
  std::array<char, 4096> part;
  while (const std::size_t count = std::fread(part.data(), 1, part.size(), file.get())) {
    bytes.append(part.data(), count);
  }
  return std::ferror(file.get()) != 0 ? std::nullopt : std::optional(std::move(bytes));
}

bool WriteWholeFile(const std::string& path, std::string_view bytes) {
  UniqueFile file(std::fopen(path.c_str(), "wb"));
  return file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
         std::fclose(file.release()) == 0;
}

std::string ProgramFolder() {
  std::array<char, MAX_PATH> path{};
  const DWORD length =
      ::GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size() - 1));
  const std::string program(path.data(), length);
  return program.substr(0, program.rfind('\\') + 1);
}

std::string AbsolutePath(const std::string& path) {
  std::array<char, MAX_PATH> full{};
  const DWORD length =
      ::GetFullPathNameA(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  return length > 0 && length < full.size() ? std::string(full.data(), length) : path;
}

std::wstring WideText(std::string_view text) {
  std::wstring wide(text.size(), L'\0');
  const int length = ::MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()),
                                           wide.data(), static_cast<int>(wide.size()));
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

std::string AnsiText(std::wstring_view text) {
  return NarrowText(CP_ACP, text);
}

std::string Utf8Text(std::wstring_view text) {
  return NarrowText(CP_UTF8, text);
}

}  // namespace zn::host
