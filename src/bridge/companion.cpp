#include "bridge/companion.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

#include "platform/double_byte.h"
#include "platform/resources.h"
#include "platform/spooler.h"
#include "platform/trace.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

using namespace companion_abi;

constexpr const char* kSource = "bridge\\companion";
constexpr int kMaxResourceText = static_cast<int>(kPathSize) - 1;

// No keyword has more options, and no list more names; it ends a module that answers for ever.
constexpr std::uint32_t kMaxOptions = 1000;

// Anybody can send kSendTreeItemsMessage, with whatever pointer; the companion does only while its
// dialog is open.
bool g_isSummaryOpen = false;

// Whether all of the memory is there to be written to.
bool IsWritable(const void* memory, std::size_t size) noexcept {
  constexpr DWORD kWritable =
      PAGE_READWRITE | PAGE_WRITECOPY | PAGE_EXECUTE_READWRITE | PAGE_EXECUTE_WRITECOPY;
  const auto* at = static_cast<const std::byte*>(memory);
  const std::byte* const end = at + size;
  do {  // also where the end wraps: no memory is there
    MEMORY_BASIC_INFORMATION region{};
    if (::VirtualQuery(at, &region, sizeof region) == 0 || region.State != MEM_COMMIT ||
        (region.Protect & kWritable) == 0 || (region.Protect & PAGE_GUARD) != 0) {
      return false;
    }
    at = static_cast<const std::byte*>(region.BaseAddress) + region.RegionSize;
  } while (at < end);
  return true;
}

// A damaged module must not bring up the system's own message box.
class QuietLoad {
 public:
  QuietLoad() noexcept { ::SetThreadErrorMode(SEM_FAILCRITICALERRORS, &before_); }
  ~QuietLoad() { ::SetThreadErrorMode(before_, nullptr); }
  QuietLoad(const QuietLoad&) = delete;
  QuietLoad& operator=(const QuietLoad&) = delete;

 private:
  DWORD before_ = 0;
};

// The text in a buffer that another module filled. Without a terminator it is cut to size - 1
// bytes, and not between the two bytes of a character.
std::string TextOf(const char* buffer, std::size_t size) {
  return std::string(CutText({buffer, ::strnlen(buffer, size)}, size - 1));
}

std::string TextOf(const StringRecord& record) {
  const bool isInline = record.capacity <= StringRecord::kInlineCapacity;
  const char* text = isInline ? record.inlineText : record.text;
  if (text == nullptr) {
    return {};
  }
  const std::uint64_t bound = std::min<std::uint64_t>(record.capacity, kPathSize - 1);
  return {text, ::strnlen(text, static_cast<std::size_t>(std::min(record.size, bound)))};
}

// A buffer of the size that the companion may fill.
std::array<char, kPathSize> PathBuffer(const std::string& text) {
  std::array<char, kPathSize> buffer{};
  std::copy_n(text.data(), std::min(text.size(), kPathSize - 1), buffer.data());
  return buffer;
}

UniqueModule LoadPrintOptionSettingDLL(HANDLE printer, std::string* outFolder) {
  const std::string name = LoadResourceString(IDS_COMPANION_MODULE, kMaxResourceText);
  const DriverInfo2 driver(printer);
  if (!driver || driver->pDriverPath == nullptr) {
    return nullptr;
  }
  char drive[_MAX_DRIVE] = "";
  char folder[_MAX_DIR] = "";
  char file[_MAX_FNAME] = "";
  char extension[_MAX_EXT] = "";
  if (::_splitpath_s(driver->pDriverPath, drive, sizeof drive, folder, sizeof folder, file,
                     sizeof file, extension, sizeof extension) != 0) {
    return nullptr;
  }
  const std::string driverFolder = std::string(drive) + folder;
  // A path without a folder is left to the loader's own search.
  const std::string path = name.empty() ? std::string() : driverFolder + name;
  if (outFolder != nullptr) {
    *outFolder = driverFolder;
  }
  ZN_TRACE_TEXT(kSource, "LoadPrintOptionSettingDLL",
                "%s() -  drive=%s, dir=%s, dll_name=%s, ext=%s ,buf=%s\n",
                "LoadPrintOptionSettingDLL", drive, folder, file, extension, path.c_str());
  if (path.empty() || path.size() >= kPathSize) {
    return nullptr;
  }
  const QuietLoad quiet;
  return UniqueModule(::LoadLibraryA(path.c_str()));
}

}  // namespace

CompanionModule::CompanionModule(HANDLE printer, std::string* outFolder)
    : module_(LoadPrintOptionSettingDLL(printer, outFolder)) {}

template <class Function>
Function* CompanionModule::Find(UINT nameId, [[maybe_unused]] const char* caller) const {
  if (!module_) {
    ZN_TRACE_TEXT(kSource, caller, "%s() ERROR hM = NULL\n", caller);
    return nullptr;
  }
  const std::string name = LoadResourceString(nameId, kMaxResourceText);
  return reinterpret_cast<Function*>(::GetProcAddress(module_.get(), name.c_str()));
}

std::string CompanionModule::GetKeywordTranslation(std::uint32_t id) const {
  auto* const get =
      Find<GetPrintOptionStringFunction>(IDS_FUNC_GETPRINTOPTIONSTRING, "GetKeywordTranslation");
  std::array<char, kLabelSize> text{};
  int idInOut = static_cast<int>(id);
  if (get == nullptr || get(&idInOut, text.data(), text.size()) == 0) {
    return {};
  }
  return TextOf(text.data(), text.size());
}

namespace {

bool AskOption(GetPrintOptionStringListFunction* get, std::uint32_t id, std::uint32_t index,
               std::string& text) {
  std::array<char, kOptionTextSize> buffer{};
  int idInOut = static_cast<int>(id);
  int indexInOut = static_cast<int>(index);
  if (get(&idInOut, buffer.data(), buffer.size(), &indexInOut) == 0) {
    return false;
  }
  text = TextOf(buffer.data(), buffer.size());
  return true;
}

}  // namespace

bool CompanionModule::GetKeywordOption(std::uint32_t id, std::uint32_t index,
                                       std::string& text) const {
  auto* const get = Find<GetPrintOptionStringListFunction>(IDS_FUNC_GETPRINTOPTIONSTRINGLIST,
                                                           "GetKeywordOptionString");
  return get != nullptr && AskOption(get, id, index, text);
}

std::vector<std::string> CompanionModule::GetKeywordOptionString(std::uint32_t id,
                                                                 std::uint32_t count) const {
  std::vector<std::string> texts(count);
  auto* const get = Find<GetPrintOptionStringListFunction>(IDS_FUNC_GETPRINTOPTIONSTRINGLIST,
                                                           "GetKeywordOptionString");
  for (std::uint32_t index = 0; get != nullptr && index < count; ++index) {
    AskOption(get, id, index, texts[index]);
  }
  return texts;
}

std::uint32_t CompanionModule::GetKeywordOptionCount(std::uint32_t id) const {
  auto* const get = Find<GetPrintOptionStringListFunction>(IDS_FUNC_GETPRINTOPTIONSTRINGLIST,
                                                           "GetKeywordOptionCount");
  std::uint32_t count = 0;
  std::string text;
  while (get != nullptr && count < kMaxOptions && AskOption(get, id, count, text)) {
    ++count;
  }
  return count;
}

bool CompanionModule::PrintOptionSetting(ddb::CPrintOption& working, ddb::CPrintOption& reference,
                                         PrintOptionSettingTexts& texts, HWND owner) const {
  auto* const run =
      Find<PrintOptionSettingFunction>(IDS_FUNC_PRINTOPTIONSETTING, "PrintOptionSetting");
  if (run == nullptr) {
    return false;
  }
  const int result = run(&working, &reference, texts.recordName, texts.favoriteFolder,
                         texts.driverFolder, texts.profile, owner);
  for (char* text : {texts.recordName, texts.favoriteFolder, texts.driverFolder, texts.profile}) {
    text[kPathSize - 1] = '\0';
  }
  return result != 0;
}

bool CompanionModule::FavoriteSummary(FavoriteSummaryDialog& dialog,
                                      const std::string& driverFolder) const {
  ZN_TRACE_TEXT(kSource, "DoModalFavoriteSummaryUI", "%s() - IDS_FUNC_FAVORITESUMMARY_FUNC =%d\n",
                "DoModalFavoriteSummaryUI", IDS_FUNC_FAVORITESUMMARY);
  auto* const run =
      Find<FavoriteSummaryFunction>(IDS_FUNC_FAVORITESUMMARY, "DoModalFavoriteSummaryUI");
  if (run == nullptr) {
    return false;
  }
  std::vector<FavoriteSummaryEntry> favorites(dialog.favorites.begin(), dialog.favorites.end());
  std::vector<std::uint8_t> deleted(favorites.size());
  auto name = PathBuffer(dialog.name);
  auto favoriteFolder = PathBuffer(dialog.favoriteFolder);
  auto folder = PathBuffer(driverFolder);
  auto profile = PathBuffer(dialog.profile);
  int count = static_cast<int>(favorites.size());
  int selection = dialog.selection < count ? dialog.selection : -1;
  g_isSummaryOpen = true;
  const int result = run(favorites.data(), &selection, dialog.current, dialog.defaults, name.data(),
                         favoriteFolder.data(), deleted.data(), &count, folder.data(),
                         profile.data(), dialog.owner, dialog.page);
  g_isSummaryOpen = false;
  if (result == 0) {
    return false;
  }
  if (selection >= -1 && selection < static_cast<int>(favorites.size())) {
    dialog.selection = selection;
  }
  dialog.name = TextOf(name.data(), name.size());
  dialog.deleted = std::move(deleted);
  return true;
}

std::vector<std::string> CompanionModule::GetPrintOptionList(const char* filter,
                                                             int capacity) const {
  auto* const list =
      Find<GetPrintOptionListFunction>(IDS_FUNC_GETPRINTOPTIONLIST, "CreatePrintOptionList");
  const int room = std::clamp(capacity, 0, static_cast<int>(kMaxOptions));
  std::vector<StringRecord> records(static_cast<std::size_t>(room));
  int count = 0;
  if (list == nullptr || list(records.data(), filter != nullptr ? filter : "", room, &count) == 0) {
    return {};
  }
  records.resize(static_cast<std::size_t>(std::clamp(count, 0, room)));
  std::vector<std::string> names;
  names.reserve(records.size());
  for (const StringRecord& record : records) {
    names.push_back(TextOf(record));
  }
  return names;
}

void CompanionModule::DeleteMember() const {
  if (auto* const release = Find<DeleteMemberFunction>(IDS_FUNC_DELETEMEMBER, "DeleteMember")) {
    release();
  }
}

bool DoModalFavoriteSummaryUI(HANDLE printer, FavoriteSummaryDialog& dialog) {
  std::string driverFolder;
  const CompanionModule companion(printer, &driverFolder);
  if (!companion) {
    ZN_TRACE_TEXT(kSource, "DoModalFavoriteSummaryUI", "LoadLibrary Error!\n");
    return false;
  }
  return companion.FavoriteSummary(dialog, driverFolder);
}

void SendTreeItems(LPARAM lParam, std::span<const SummaryItem> items) noexcept {
  auto* const table = reinterpret_cast<SummaryItem*>(lParam);
  if (!g_isSummaryOpen || !IsWritable(table, kSummaryItemCount * sizeof(SummaryItem))) {
    return;
  }
  const std::size_t rows = std::min(items.size(), kSummaryItemCount);
  std::copy_n(items.data(), rows, table);
  std::fill_n(table + rows, kSummaryItemCount - rows, SummaryItem{});
}

}  // namespace zn
