#include "tools/shown_text.h"

#include <algorithm>
#include <cstdio>

#include "ddb/password.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>
#endif

namespace zn::inspect {
namespace {

constexpr unsigned char kFirstPrintable = 0x20;
constexpr unsigned char kDelete = 0x7F;
constexpr unsigned char kC1Lead = 0xC2;  // of U+0080 to U+00BF in UTF-8
constexpr unsigned char kLastC1 = 0x9F;

struct Control {
  unsigned char code;
  std::size_t size;  // bytes in UTF-8; 0: no control character
};

Control ControlAt(std::string_view text, std::size_t at) {
  const auto code = static_cast<unsigned char>(text[at]);
  if (code == kC1Lead && at + 1 < text.size()) {
    const auto next = static_cast<unsigned char>(text[at + 1]);
    return {next, next <= kLastC1 ? std::size_t{2} : 0};
  }
  return {code, code < kFirstPrintable || code == kDelete ? std::size_t{1} : 0};
}

std::string Escape(unsigned char code, ControlForm form) {
  if (form == ControlForm::InText && (code == '\r' || code == '\n' || code == '\t')) {
    return {'\\', code == '\r' ? 'r' : code == '\n' ? 'n' : 't'};
  }
  char escape[7];
  std::snprintf(escape, sizeof escape, form == ControlForm::InText ? "\\x%02X" : "\\u%04x", code);
  return escape;
}

#ifdef _WIN32

std::string Decode(std::string_view ansi) {
  const int size = static_cast<int>(ansi.size());
  std::wstring wide(ansi.size(), L'\0');
  const int units = ::MultiByteToWideChar(CP_ACP, 0, ansi.data(), size, wide.data(), size);
  constexpr int kMostBytesPerUnit = 3;
  std::string text(static_cast<std::size_t>(units) * kMostBytesPerUnit, '\0');
  text.resize(::WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, text.data(),
                                    static_cast<int>(text.size()), nullptr, nullptr));
  return text;
}

#else

std::string Decode(std::string_view ansi) {
  constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD
  static const iconv_t converter = ::iconv_open("UTF-8", "CP932");
  std::string text(ansi.size() * kReplacement.size(), '\0');  // no byte becomes more
  char* from = const_cast<char*>(ansi.data());                // iconv does not write there
  char* to = text.data();
  std::size_t unread = ansi.size();
  std::size_t room = text.size();
  while (unread != 0 && ::iconv(converter, &from, &unread, &to, &room) == std::size_t(-1)) {
    to = std::ranges::copy(kReplacement, to).out;
    room -= kReplacement.size();
    ++from;
    --unread;
  }
  text.resize(text.size() - room);
  return text;
}

#endif

}  // namespace

std::string Utf8(std::string_view ansi) {
  const bool isAscii = std::ranges::all_of(ansi, [](char c) { return (c & '\x80') == 0; });
  return isAscii ? std::string(ansi) : Decode(ansi);
}

std::string Utf8OfWord(std::string_view word) {
#ifdef _WIN32
  return Utf8(word);
#else
  return std::string(word);
#endif
}

std::string EscapeControls(std::string_view text, ControlForm form) {
  std::string shown;
  std::size_t copied = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto [code, size] = ControlAt(text, i);
    if (size == 0) {
      continue;
    }
    shown.append(text, copied, i - copied).append(Escape(code, form));
    copied = i + size;
    i = copied - 1;
  }
  return shown.append(text, copied);
}

bool IsPassword(const ddb::Tag& tag) {
  return ddb::IsPassword(tag) || tag.name == "OT_USEICUP";
}

std::string PasswordNote(std::string_view password) {
  return password.empty() ? std::string() : "(" + std::to_string(password.size()) + " bytes)";
}

}  // namespace zn::inspect
