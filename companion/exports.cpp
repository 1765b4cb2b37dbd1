// The option companion's exports; Zn55psu1UI.def gives them their decorated names.
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <deque>
#include <string>
#include <string_view>

#include "bridge/companion_abi.h"
#include "companion/call_counter.h"
#include "companion/dialogs.h"
#include "companion/texts.h"

namespace {

using zn::companion::Call;
using zn::companion::CountCall;
using namespace zn::companion_abi;

// Names of the stored print options, in code page 932: "standard", "in-house", "catalogue".
constexpr std::string_view kStoredOptions[] = {
    "\x95W\x8F\x80_def", "\x8E\xD0\x93\xE0\x8E\x91\x97\xBF",
    "\x83J\x83^\x83\x8D\x83O\x88\xF3\x8D\xFC_def", "ZN5050"};

// Owns the texts that StringRecords point to, until DeleteMember.
std::deque<std::string>& KeptTexts() {
  static std::deque<std::string> texts;
  return texts;
}

void Assign(StringRecord& record, std::string_view text) {
  record = {};
  record.size = text.size();
  if (text.size() <= StringRecord::kInlineCapacity) {
    std::memcpy(record.inlineText, text.data(), text.size());
    return;
  }
  record.text = KeptTexts().emplace_back(text).c_str();
  record.capacity = text.size();
}

// Cuts to the buffer, never within a double-byte character.
int CopyText(const char* text, char* buffer, unsigned long size) {
  if (text == nullptr || buffer == nullptr || size == 0) {
    return 0;
  }
  const char* end = text;
  while (*end != '\0') {
    const std::size_t step = ::IsDBCSLeadByte(static_cast<BYTE>(*end)) && end[1] != '\0' ? 2 : 1;
    if (static_cast<std::size_t>(end - text) + step >= size) {
      break;
    }
    end += step;
  }
  *std::copy(text, end, buffer) = '\0';
  return 1;
}

}  // namespace

extern "C" {

int PrintOptionSetting(ddb::CPrintOption* working, ddb::CPrintOption* reference, char* recordName,
                       char* /*favoriteFolder*/, char* /*driverFolder*/, char* profile,
                       HWND owner) {
  CountCall(Call::PrintOptionSetting);
  if (working == nullptr || reference == nullptr || profile == nullptr) {
    return 0;
  }
  try {
    return zn::companion::RunOptionSettingDialog(
               {working, reference, recordName != nullptr ? recordName : "", profile, owner}) ==
           IDOK;
  } catch (...) {
    return 0;
  }
}

int FavoriteSummary(void* favorites, int* selection, ddb::CPrintOption* /*current*/,
                    ddb::CPrintOption* defaults, char* name, char* /*favoriteFolder*/,
                    void* deleted, int* count, char* /*driverFolder*/, char* /*profile*/,
                    HWND owner, HWND page) {
  CountCall(Call::FavoriteSummary);
  if (selection == nullptr || defaults == nullptr || name == nullptr || count == nullptr ||
      *count < 0 || (*count > 0 && (favorites == nullptr || deleted == nullptr))) {
    return 0;
  }
  try {
    auto* const marks = static_cast<std::uint8_t*>(deleted);
    const int rows = *count;
    const int button = zn::companion::RunFavoriteSummaryDialog(
        {static_cast<FavoriteSummaryEntry*>(favorites), rows, selection, defaults, name, marks,
         owner, page});
    *count = button == IDOK ? static_cast<int>(std::count(marks, marks + rows, 1)) : 0;
    return button == IDOK;
  } catch (...) {
    return 0;
  }
}

int GetPrintOptionList(StringRecord* names, const char* filter, int capacity, int* count) {
  CountCall(Call::GetPrintOptionList);
  if (names == nullptr || capacity < 0 || count == nullptr) {
    return 0;
  }
  try {
    const std::string_view suffix = filter != nullptr ? filter : "";
    *count = 0;
    for (const std::string_view option : kStoredOptions) {
      if (*count < capacity && option.ends_with(suffix)) {
        Assign(names[(*count)++], option);
      }
    }
    return 1;
  } catch (...) {
    return 0;
  }
}

void DeleteMember() {
  CountCall(Call::DeleteMember);
  KeptTexts().clear();
}

int GetPrintOptionString(int* id, char* text, unsigned long size) {
  CountCall(Call::GetPrintOptionString);
  return id != nullptr ? CopyText(zn::companion::Label(*id), text, size) : 0;
}

int GetPrintOptionStringList(int* id, char* text, unsigned long size, int* index) {
  CountCall(Call::GetPrintOptionStringList);
  if (id == nullptr || index == nullptr || *index < 0) {
    return 0;
  }
  const auto names = zn::companion::OptionNames(*id);
  const auto option = static_cast<std::size_t>(*index);
  return option < names.size() ? CopyText(names[option], text, size) : 0;
}

}  // extern "C"
