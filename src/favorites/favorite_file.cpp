#include "favorites/favorite_file.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <utility>

#include "ddb/extended_option.h"
#include "ddb/number_text.h"
#include "ddb/tag_text.h"
#include "favorites/favorite_tag_list.h"
#include "favorites/item_line.h"
#include "platform/trace.h"
#include "platform/unique.h"

namespace zn {
namespace {

constexpr std::size_t kNumberLine = 256;   // bytes that the reader takes at most, LF included
constexpr std::size_t kKeyedLine = 266;    // as much for "Comment=" and "PageSize="
constexpr std::size_t kFirstRead = 8192;   // bytes; more than a file of this system has
constexpr std::size_t kMaxRead = 1 << 20;  // of a file that is something else altogether
constexpr bool kTranslateMediaCodes = true;

constexpr std::string_view kCommentKey = "Comment=";
constexpr std::string_view kPageSizeKey = "PageSize=";

std::string_view OrElse(std::string_view key, std::string_view fallback) {
  return key.empty() ? fallback : key;
}

std::string_view UpToNul(std::string_view text) {
  return text.substr(0, text.find('\0'));
}

constexpr const char* kSource = "favorites\\FavoriteFileManager";
constexpr const char* kClass = "CFavoriteFileManager";

// The value of one item, out of the text or into it. True for an extended tag: these come first.
bool ExchangeItem(std::string_view tag, std::string& value, ddb::CPrintOptionEx& option,
                  bool readDirection) {
  const bool isExtended =
      ddb::ExchangeExtTag(tag, value, option, readDirection, kTranslateMediaCodes);
  if (!isExtended) {
    ddb::ExchangeTag(tag, value, option, readDirection, kTranslateMediaCodes);
  }
  return isExtended;
}

// Adds the record's items; stops at the first one that does not fit. The exchange serves both
// directions, so it works on a copy. Traces name the tag only: a value can be a password.
void PlaceItems(ddb::CPrintOptionEx option, ItemLine& line) {
  std::string value;
  for (const std::string_view tag : GetFavoriteTagList()) {
    // Not specified: the digit scan would read "-1" as 1.
    value.clear();
    if (ExchangeItem(tag, value, option, false) && !ddb::ComesBack(tag, option)) {
      line.Remove(tag);
      continue;
    }
    // An empty text is not worth a new item, but it has to replace an old one.
    if (value.empty() && !line.Has(tag)) {
      continue;
    }
    value = OneLine(std::move(value));
    if (!line.Place(tag, value)) {
      return;
    }
    ZN_TRACE_TEXT(kSource, kClass, " %s::WritePrintOption() %s\n", kClass, tag.data());
  }
}

// Takes lines from the front of a file.
class LineReader {
 public:
  explicit LineReader(std::string_view file) : rest_(file) {}

  // The next line without its LF; nothing, and nothing taken, unless the LF is among the first
  // `maxSize` bytes.
  std::optional<std::string_view> ReadLine(std::size_t maxSize) {
    const std::size_t end = rest_.substr(0, maxSize).find('\n');
    if (end == std::string_view::npos) {
      return std::nullopt;
    }
    const std::string_view line = rest_.substr(0, end);
    Skip(end + 1);
    return line;
  }

  // The text behind `key` if the next line begins with it; otherwise the line is not taken.
  std::optional<std::string_view> ReadKeyedLine(std::string_view key) {
    const std::string_view before = rest_;
    const auto line = ReadLine(kKeyedLine);
    if (line && line->starts_with(key)) {
      return UpToNul(line->substr(key.size()));
    }
    rest_ = before;
    return std::nullopt;
  }

  // The third header number: a line of one digit; otherwise the line is not taken.
  std::optional<std::int32_t> ReadDigitLine() {
    if (rest_.size() < 2 || rest_[1] != '\n' || rest_[0] < '0' || rest_[0] > '9') {
      return std::nullopt;
    }
    const std::int32_t digit = rest_[0] - '0';
    Skip(2);
    return digit;
  }

  void Skip(std::size_t size) { rest_.remove_prefix(size); }
  [[nodiscard]] std::string_view Rest() const { return rest_; }

 private:
  std::string_view rest_;
};

// What stands before the item line.
struct Header {
  std::int32_t number1;
  std::int32_t number2;
  std::optional<std::int32_t> number3;
  std::optional<std::string_view> comment;
};

std::optional<Header> ReadHeader(LineReader& reader, std::string_view commentKey) {
  const auto line1 = reader.ReadLine(kNumberLine);
  const auto line2 = line1 ? reader.ReadLine(kNumberLine) : std::nullopt;
  if (!line2) {
    return std::nullopt;
  }
  Header header{ddb::ParseInteger(*line1), ddb::ParseInteger(*line2), {}, {}};
  header.number3 = reader.ReadDigitLine();
  header.comment = reader.ReadKeyedLine(commentKey);
  return header;
}

// The item line: takes what can be read of it, whatever it holds.
void ReadPrintOption(ddb::CPrintOptionEx& option, LineReader& reader) {
  ItemReader items(reader.Rest());
  ItemReader::Item item;
  std::string value;
  while (items.ReadPrintOptionOne(item)) {
    ZN_TRACE_TEXT(kSource, kClass, " %s::ReadPrintOption() %.*s\n", kClass,
                  static_cast<int>(item.tag.size()), item.tag.data());
    value = item.value;
    ExchangeItem(item.tag, value, option, true);
  }
  reader.Skip(items.End());
}

void WriteLine(std::string& file, std::string_view text) {
  file.append(text).append(1, '\n');
}

void WriteNumber(std::string& file, std::int32_t number) {
  std::array<char, 16> scratch;
  WriteLine(file, ddb::FormatInteger(number, scratch));
}

void WriteKeyedLine(std::string& file, std::string_view key, const std::string& text,
                    std::size_t maxText) {
  WriteLine(file.append(key), OneLine(text, true).substr(0, maxText));
}

}  // namespace

CFavoriteFileManager::CFavoriteFileManager(FavoriteKeys keys) : keys_(std::move(keys)) {}

bool CFavoriteFileManager::LoadFavoriteFromPath(SettingSource& entry, const char* path) {
  const auto file = ReadFile(path);
  return file && LoadFavoriteFromMemory(entry, *file);
}

bool CFavoriteFileManager::LoadFavoriteFromMemory(SettingSource& entry,
                                                  std::string_view file) const {
  LineReader reader(file);
  const auto header = ReadHeader(reader, OrElse(keys_.comment, kCommentKey));
  if (!header) {
    return false;
  }
  entry.number1 = header->number1;
  entry.number2 = header->number2;
  entry.number3 = header->number3.value_or(entry.number3);
  if (header->comment) {
    entry.comment = header->comment->substr(0, kMaxComment);
  }
  ReadPrintOption(entry.option, reader);
  if (const auto name = reader.ReadKeyedLine(OrElse(keys_.pageSize, kPageSizeKey))) {
    entry.pageSizeName = name->substr(0, kMaxPageSizeName);
  }
  return true;
}

bool CFavoriteFileManager::SaveFavoriteFromPath(const SettingSource& entry, const char* path,
                                                const char* oldPath) {
  const auto old = ReadFile(oldPath != nullptr ? oldPath : path);
  if (old ? old->size() >= kMaxRead : errno != ENOENT) {
    return false;  // items that cannot be read cannot be kept
  }
  const std::string text = SaveFavoriteToMemory(entry, old.value_or(""));
  UniqueFile file(std::fopen(path, "wb"));
  if (file == nullptr) {
    return false;
  }
  const bool written = std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
  // Closing writes what is still buffered: a full disk may show only here.
  return std::fclose(file.release()) == 0 && written;
}

std::string CFavoriteFileManager::SaveFavoriteToMemory(const SettingSource& entry,
                                                       std::string_view oldFile) const {
  ItemLine items(SavePrintOptionInfo(oldFile));
  for (const std::string_view tag : kNeverWritten) {
    items.Remove(tag);
  }
  PlaceItems(entry.option, items);

  std::string file;
  file.reserve(kFirstRead);
  WriteNumber(file, entry.number1);
  WriteNumber(file, entry.number2);
  // More than one digit would be taken for the item line.
  WriteNumber(file, std::clamp(entry.number3, 0, 9));
  WriteKeyedLine(file, OrElse(keys_.comment, kCommentKey), entry.comment, kMaxComment);
  WriteLine(file, items.Text());
  // Without a string table this line gets the other key: existing files of that kind are read so.
  WriteKeyedLine(file, OrElse(keys_.pageSize, kCommentKey), entry.pageSizeName, kMaxPageSizeName);
  return file;
}

void CFavoriteFileManager::WritePrintOption(const SettingSource& entry, std::span<char> out) const {
  ItemLine items;
  PlaceItems(entry.option, items);
  const std::string line = items.Text();
  if (!out.empty()) {
    const std::size_t size = line.copy(out.data(), out.size() - 1);
    out[size] = '\0';
  }
}

std::string_view CFavoriteFileManager::SavePrintOptionInfo(std::string_view oldFile) const {
  LineReader reader(oldFile);
  return ReadHeader(reader, OrElse(keys_.comment, kCommentKey)) ? reader.Rest()
                                                                : std::string_view{};
}

std::optional<std::string_view> CFavoriteFileManager::ReadFile(const char* path) {
  errno = 0;
  const UniqueFile file(std::fopen(path, "rb"));
  if (file == nullptr) {
    return std::nullopt;
  }
  std::size_t size = 0;
  contents_.resize(std::max(contents_.size(), kFirstRead));
  for (;;) {
    size += std::fread(contents_.data() + size, 1, contents_.size() - size, file.get());
    if (std::ferror(file.get()) != 0) {
      errno = EIO;
      return std::nullopt;
    }
    if (size < contents_.size() || size >= kMaxRead) {
      return std::string_view(contents_.data(), size);
    }
    contents_.resize(std::min(contents_.size() * 4, kMaxRead));
  }
}

}  // namespace zn
