#include "platform/double_byte.h"

namespace zn {
namespace {

// Calls visit(offset) for the beginning of every character until it answers false.
template <class Visit>
void ForEachCharacter(std::string_view text, std::uint32_t codePage, Visit visit) {
  for (std::size_t at = 0; at < text.size() && visit(at);
       at += IsLeadByte(text[at], codePage) ? 2 : 1) {
  }
}

}  // namespace

bool IsLeadByte(char byte, std::uint32_t codePage) noexcept {
  const auto value = static_cast<unsigned char>(byte);
  switch (codePage) {
    case 932:
      return (value >= 0x81 && value <= 0x9F) || (value >= 0xE0 && value <= 0xFC);
    case 936:
    case 949:
    case 950:
      return value >= 0x81 && value <= 0xFE;
    default:
      return false;
  }
}

std::string_view CutText(std::string_view text, std::size_t bytes,
                         std::uint32_t codePage) noexcept {
  if (text.size() <= bytes) {
    return text;
  }
  std::size_t end = 0;
  ForEachCharacter(text, codePage, [&](std::size_t at) {
    end = at <= bytes ? at : end;
    return at <= bytes;
  });
  return text.substr(0, end);
}

std::size_t FindText(std::string_view text, std::string_view wanted,
                     std::uint32_t codePage) noexcept {
  std::size_t found = text.empty() && wanted.empty() ? 0 : std::string_view::npos;
  ForEachCharacter(text, codePage, [&](std::size_t at) {
    found = text.substr(at).starts_with(wanted) ? at : found;
    return found == std::string_view::npos;
  });
  return found;
}

std::size_t FindLastOf(std::string_view text, std::string_view characters,
                       std::uint32_t codePage) noexcept {
  std::size_t found = std::string_view::npos;
  ForEachCharacter(text, codePage, [&](std::size_t at) {
    found = characters.find(text[at]) != std::string_view::npos ? at : found;
    return true;
  });
  return found;
}

}  // namespace zn
