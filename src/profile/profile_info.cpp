#include "profile/profile_info.h"

#include <algorithm>
#include <clocale>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/device_name.h"
#include "platform/double_byte.h"
#include "platform/trace.h"
#include "platform/unique.h"
#include "profile/profile_items.h"
#include "profile/profile_lines.h"

namespace zn {
namespace {

constexpr char kSource[] = "profile\\profile_info";
constexpr char kUpdateProfile[] = "CProfileInfo::UpdateProfile";

// Items that the queries address.
enum : int {
  kTray1 = 0,
  kTray2 = 1,
  kTray3 = 2,
  kManual = 4,
  kTray6 = 5,
  kTray7 = 6,
  kInputSlotCount = 8,
  kCFinisher = 8,
  kDFinisher = 9,
  kPunch = 15,
  kStackerTray = 19,
  kStackerTopTray = 20,
};

static_assert(profile::kFlagItems[CProfileInfo::kStapleItem].suffix == "ZNStaple");

constexpr std::size_t kPathSize = 260;  // of the path buffer, terminator included
constexpr std::string_view kExtension = ".cps";
#ifdef _WIN32
constexpr char kSeparator = '\\';
#else
constexpr char kSeparator = '/';
#endif

const char* LocaleName(unsigned ansiCodePage) {
  struct Row {
    unsigned codePage;
    const char* locale;
  };
  static constexpr Row kLocales[] = {{932, "jpn"}, {936, "chs"}, {949, "kor"}, {950, "cht"}};
  for (const Row& row : kLocales) {
    if (row.codePage == ansiCodePage) {
      return row.locale;
    }
  }
  ZN_TRACE_TEXT(kSource, kUpdateProfile, "### %s acp = %d", kUpdateProfile,
                static_cast<int>(ansiCodePage));
  return "";
}

// `name` without folder and extension.
std::string_view BareName(std::string_view name, unsigned ansiCodePage) {
  name.remove_prefix(FindLastOf(name, "\\/:", ansiCodePage) + 1);  // npos + 1 is 0
  return name.substr(0, FindLastOf(name, ".", ansiCodePage));
}

// Memory stays bounded whatever the file holds: of a longer line the rest is passed over.
constexpr std::size_t kMaxLine = std::size_t{1} << 20;
constexpr std::size_t kBlock = std::size_t{1} << 16;

// False when the file cannot be read.
bool ReadLines(std::FILE* file, CProfileInfo::ItemTable& items) {
  std::vector<char> buffer(kBlock);
  std::size_t held = 0;  // bytes of a line that is not complete yet, at the buffer's beginning
  bool passingOver = false;
  for (;;) {
    if (held == buffer.size() && held < kMaxLine) {
      buffer.resize(held * 2);
    } else if (held == buffer.size()) {
      profile::TakeLines({buffer.data(), held}, items);
      held = 0;
      passingOver = true;
    }
    const std::size_t count = std::fread(buffer.data() + held, 1, buffer.size() - held, file);
    if (count == 0) {
      break;
    }
    std::string_view text(buffer.data(), held + count);
    if (passingOver) {
      const std::size_t lineFeed = text.find('\n');
      if (lineFeed == text.npos) {
        continue;
      }
      text.remove_prefix(lineFeed + 1);
      passingOver = false;
    }
    const std::size_t whole = text.rfind('\n') + 1;  // 0: no line ends here
    profile::TakeLines(text.substr(0, whole), items);
    text.remove_prefix(whole);
    std::memmove(buffer.data(), text.data(), text.size());
    held = text.size();
  }
  if (std::ferror(file) != 0) {
    return false;
  }
  profile::TakeLines({buffer.data(), held}, items);
  return true;
}

}  // namespace

CProfileInfo::CProfileInfo() {
  Reset();
}

void CProfileInfo::Reset() {
  m_Item.fill({{}, {}, kReserved, 0});
  for (std::size_t i = 0; i < profile::kFlagItems.size(); ++i) {
    m_Item[i].key.append(profile::kFlagStem).append(profile::kFlagItems[i].suffix);
    m_Item[i].value = profile::kFlagItems[i].expected;
    m_Item[i].type = kFlag;
  }
  for (const profile::ValueItems& values : profile::kValueItems) {
    for (int i = 0; i < values.count; ++i) {
      Item& item = m_Item[values.firstItem + i];
      item.key.append(values.stem).append(std::to_string(i + 1));
      item.type = kValue;
    }
  }
}

bool CProfileInfo::UpdateProfile(const char* directory, const char* name, unsigned ansiCodePage) {
  std::string path(directory);
  path += kSeparator;
  const std::string_view bareName = BareName(name, ansiCodePage);
  path.append(bareName).append(kExtension);
  // A path that does not fit is no file, nor is a device: an empty one cannot be opened.
  const bool isFile = path.size() < kPathSize && !IsDeviceName(bareName);
  return ReadProfile(isFile ? path.c_str() : "", ansiCodePage);
}

bool CProfileInfo::ReadProfile(const char* path, unsigned ansiCodePage) {
  ZN_TRACE_TEXT(kSource, kUpdateProfile, "%s() 1\n", kUpdateProfile);
  Reset();
  std::setlocale(LC_ALL, LocaleName(ansiCodePage));
  const UniqueFile file(std::fopen(path, "rb"));
  if (file == nullptr) {
    return FallBackToEverything();
  }
  for (const Item& item : m_Item) {
    if (item.type > kValue) {
      // Told once for the file; such an item takes no line.
      ZN_TRACE_TEXT(kSource, kUpdateProfile, "%s() m_Item[i].type = %d\n", kUpdateProfile,
                    static_cast<int>(item.type));
    }
  }
  return ReadLines(file.get(), m_Item) || FallBackToEverything();
}

// Without a profile everything counts as installed. Always false.
bool CProfileInfo::FallBackToEverything() {
  ZN_TRACE_TEXT(kSource, kUpdateProfile, "%s() ifs=NULL\n", kUpdateProfile);
  Reset();
  for (Item& item : m_Item) {
    item.present = item.type == kReserved ? 0 : 1;
  }
  return false;
}

int CProfileInfo::GetTrayConfig(std::uint32_t* list, int listcnt) const {
  constexpr char kFunction[] = "CProfileInfo::GetTrayConfig";
  if (list == nullptr || listcnt != kTrayCount) {
    ZN_TRACE_TEXT(kSource, kFunction, "%s()error pbTrayconfig = %d, listcnt = %d\n", kFunction,
                  list != nullptr, listcnt);
    return 0;
  }
  ZN_TRACE_TEXT(kSource, kFunction, "%s() listcnt = %d, inptslot = %d\n", kFunction, listcnt,
                kInputSlotCount);
  // The fourth and the eighth tray have no entry in the paper source list.
  constexpr int kSlots[] = {kTray1, kTray2, kTray3, kTray6, kTray7, kManual};
  list[0] = 1;
  std::transform(std::begin(kSlots), std::end(kSlots), list + 1,
                 [this](int item) { return IsPresent(item); });
  return 1;
}

int CProfileInfo::GetOutputConfig(std::uint32_t* list, int listcnt) const {
  constexpr char kFunction[] = "CProfileInfo::GetOutputConfig";
  if (list == nullptr || listcnt != kOutputCount) {
    ZN_TRACE_TEXT(kSource, kFunction, "%s()error pbOutputconfig = %d, listcnt = %d\n", kFunction,
                  list != nullptr, listcnt);
    return 0;
  }
  ZN_TRACE_TEXT(kSource, kFunction, "%s() listcnt = %d, inptslot = %d\n", kFunction, listcnt,
                kInputSlotCount);
  const std::uint32_t finisher = IsPresent(kCFinisher) | IsPresent(kDFinisher);
  list[0] = 1;
  list[1] = IsPresent(kStackerTray);
  list[2] = IsPresent(kStackerTopTray);
  list[3] = finisher;
  list[4] = finisher;
  list[5] = 0;  // callers hold six values although they count five
  return 1;
}

int CProfileInfo::GetPunchConfig(std::uint32_t* list, int listcnt) const {
  constexpr char kFunction[] = "CProfileInfo::GetPunchConfig";
  if (list == nullptr || listcnt < 1) {
    ZN_TRACE_TEXT(kSource, kFunction, "%s()error pbPunchconfig = %d, listcnt = %d\n", kFunction,
                  list != nullptr, listcnt);
    return 0;
  }
  list[0] = 1;
  std::fill(list + 1, list + listcnt, IsPresent(kPunch));
  return 1;
}

// Null when `index` is outside the table.
const std::string* CProfileInfo::ValueAt(int firstItem, int index) const {
  return index >= 0 && index < kItemCount - firstItem ? &m_Item[firstItem + index].value : nullptr;
}

int CProfileInfo::GetCustomPaperNameConfig(std::string* text, int index) const {
  constexpr char kFunction[] = "CProfileInfo::GetCustomPaperNameConfig";
  const std::string* value = ValueAt(profile::kPaperNames.firstItem, index);
  if (text == nullptr || value == nullptr) {
    ZN_TRACE_TEXT(kSource, kFunction, "%s()error psCustompapername = %d, listcnt = %d\n", kFunction,
                  text != nullptr, index);
    return 0;
  }
  *text = *value;
  return 1;
}

int CProfileInfo::GetWaterMarkConfig(std::string* text, int index) const {
  constexpr char kFunction[] = "CProfileInfo::GetWaterMarkConfig";
  const std::string* value = ValueAt(profile::kWatermarks.firstItem, index);
  if (text == nullptr || value == nullptr) {
    ZN_TRACE_TEXT(kSource, kFunction, "%s()error psWatermarkselection = %d, listcnt = %d\n",
                  kFunction, text != nullptr, index);
    return 0;
  }
  *text = *value;
  return 1;
}

}  // namespace zn
