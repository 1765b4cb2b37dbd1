#include "test_companion.h"

#include <algorithm>
#include <cstring>

using zn::companion_abi::StringRecord;
using zn::test::CompanionControl;

namespace {

CompanionControl g_control;

void Fill(char* buffer, std::size_t size) {
  std::memset(buffer, 0, size);
  std::copy_n(g_control.text.data(), std::min(size, g_control.text.size()), buffer);
}

}  // namespace

extern "C" {

CompanionControl* Control() {
  return &g_control;
}

int GetPrintOptionString(int* id, char* text, unsigned long size) {
  g_control.ids.push_back((*id)++);
  g_control.size = size;
  Fill(text, size);
  return g_control.result;
}

int GetPrintOptionStringList(int* id, char* text, unsigned long size, int* index) {
  g_control.ids.push_back((*id)++);
  g_control.indexes.push_back(*index);
  g_control.size = size;
  Fill(text, size);
  // Both are in and out; a module may change them.
  return (*index)++ < g_control.options ? g_control.result : 0;
}

int PrintOptionSetting(ddb::CPrintOption* working, ddb::CPrintOption* reference, char* recordName,
                       char* favoriteFolder, char* driverFolder, char* profile, HWND owner) {
  g_control.pointers = {working, reference, owner};
  g_control.texts = {recordName, favoriteFolder, driverFolder, profile};
  Fill(profile, zn::companion_abi::kPathSize);
  return g_control.result;
}

int FavoriteSummary(void* favorites, int* selection, ddb::CPrintOption* current,
                    ddb::CPrintOption* defaults, char* name, char* favoriteFolder, void* deleted,
                    int* count, char* driverFolder, char* profile, HWND owner, HWND page) {
  const auto* const entries =
      static_cast<const zn::companion_abi::FavoriteSummaryEntry*>(favorites);
  g_control.pointers = {current, defaults, owner, page, entries[0].settings};
  g_control.texts = {name,    favoriteFolder,  driverFolder,
                     profile, entries[0].name, entries[0].comment};
  g_control.numbers = {*selection, *count};
  static_cast<std::uint8_t*>(deleted)[g_control.deletedRow] = 1;
  *selection = g_control.selection;
  *count = 0x7FFFFFFF;
  if (g_control.whileSummaryIsOpen != nullptr) {
    g_control.whileSummaryIsOpen();
  }
  Fill(name, zn::companion_abi::kPathSize);
  return g_control.result;
}

int GetPrintOptionList(StringRecord* names, const char* filter, int capacity, int* count) {
  g_control.texts = {filter};
  g_control.numbers = {capacity, *count};
  const auto room = static_cast<std::size_t>(std::max(capacity, 0));
  std::copy_n(g_control.names.data(), std::min(room, g_control.names.size()), names);
  *count = g_control.nameCount;
  return g_control.result;
}

void DeleteMember() {
  ++g_control.releases;
}

}  // extern "C"
