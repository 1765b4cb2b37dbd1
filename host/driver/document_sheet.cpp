#include "host/driver/document_sheet.h"

#include <algorithm>

#include "host/base/host_ids.h"
#include "host/base/stopwatch.h"

namespace zn::host {

QueueDevMode DocumentSheet::StartDevMode(const PlugIn& plugIn, const Queue& queue,
                                         const QueueDevMode* stored) {
  const auto queueStored = stored == nullptr ? queue.StoredDevMode() : std::nullopt;
  if (stored == nullptr && queueStored) {
    stored = &*queueStored;
  }
  QueueDevMode start(queue.WideName());
  OptionItems::SetDefaults(queue.Description(), start);
  if (stored != nullptr) {
    start = *stored;
  }
  plugIn.FillBlock(queue.Handle(), start, stored);
  return start;
}

DocumentSheet::DocumentSheet(PlugIn& plugIn, const Queue& queue, const QueueDevMode& start)
    : DriverSheet(plugIn, queue, &IPrintOemUI::DocumentPropertySheets, DM_IN_PROMPT,
                  IDS_PREFERENCES_TITLE),
      start_(start),
      devMode_(start),
      kept_(start),
      items_(queue.Description(), start) {
  itemParameter_.pPublicDM = sheetParameter_.pPublicDM = &devMode_.Public();
  itemParameter_.pOEMDM = sheetParameter_.pOEMDM = devMode_.Private().block.Bytes().data();
  plugIn_.Helper().SetItems(&items_);
  plugIn_.Helper().ClearUpdates();
  Prepare();
  sheetParameter_.pOEMUserData = itemParameter_.pOEMUserData;
  sheet_.SetApplied([this] { KeepApplied(); });
  initTime_ = MillisecondsNow();
  if (FAILED(AddPages())) {
    Refused("DocumentPropertySheets");
  }
}

DocumentSheet::~DocumentSheet() {
  try {
    Finish();
  } catch (...) {  // a destructor has nobody to tell
  }
}

void DocumentSheet::Prepare() {
  // The sizing call, then the filling call with the driver's items.
  plugIn_->CommonUIProp(OEMCUIP_DOCPROP, &itemParameter_);
  std::vector<OPTITEM> plugInItems(itemParameter_.cOEMOptItems);
  // A plug-in without items gets a place, too: null would be another sizing call.
  plugInItems.resize(std::max<std::size_t>(plugInItems.size(), 1));
  itemParameter_.pDrvOptItems = items_.Data();
  itemParameter_.cDrvOptItems = items_.Count();
  itemParameter_.pOEMOptItems = plugInItems.data();
  if (FAILED(plugIn_->CommonUIProp(OEMCUIP_DOCPROP, &itemParameter_))) {
    Refused("CommonUIProp");
  }
  itemParameter_.pOEMOptItems = nullptr;
  const OPTITEM* end = items_.Data() + items_.Count();
  const auto visible =
      std::count_if(items_.Data(), const_cast<OPTITEM*>(end),
                    [](const OPTITEM& item) { return (item.Flags & OPTIF_HIDE) == 0; });
  if (visible > 0) {
    faults_.push_back(std::to_string(visible) + " driver items left visible");
  }
}

void DocumentSheet::Refused(const char* call) {
  isRefused_ = true;
  faults_.push_back(std::string(call) + " failed");
}

void DocumentSheet::KeepApplied() {
  // Unchanged items are the plug-in's word that it has nothing to hand on.
  items_.StoreTo(devMode_);
  kept_ = devMode_;
}

void DocumentSheet::FindUnannouncedChanges() {
  const auto& updates = plugIn_.Helper().Updates();
  for (const OptionChange& change : items_.ChangesSince(start_)) {
    const bool announced = std::ranges::any_of(updates, [&change](const SettingUpdate& update) {
      // The collate check box belongs to the copies item.
      return update.keyword == change.keyword ||
             (change.keyword == "Collate" && update.keyword == "%Copies");
    });
    if (!announced) {
      faults_.push_back(change.keyword + " changed without DrvUpdateUISetting");
    }
  }
}

QueueDevMode DocumentSheet::Finish() {
  if (finished_) {
    return kept_;
  }
  finished_ = true;
  sheet_.Close();
  FindUnannouncedChanges();
  SETRESULT_INFO result{};
  result.cbSize = sizeof result;
  result.Result = sheet_.Result();
  Notify(PROPSHEETUI_REASON_SET_RESULT, reinterpret_cast<LPARAM>(&result));
  if (info_.Result != static_cast<LONG_PTR>(sheet_.Result())) {
    faults_.emplace_back("the result was not handed on");
  }
  Notify(PROPSHEETUI_REASON_DESTROY, TRUE);
  if (!heap_.IsSound()) {
    faults_.emplace_back("the sheet's heap is damaged");
  } else if (const int blocks = heap_.LiveBlocks()) {
    faults_.push_back(std::to_string(blocks) + " blocks left on the sheet's heap");
  }
  plugIn_.Helper().SetItems(nullptr);
  return kept_;
}

}  // namespace zn::host
