// The option items that the core driver offers for a document sheet: its standard items, and at
// the end, at level 2, one item per keyword of the printer description.
#pragma once

#include "platform/driver_interfaces.h"

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "host/driver/printer_description.h"
#include "host/driver/queue_devmode.h"

namespace zn::host {

struct OptionChange {
  std::string keyword;
  std::string before;  // option names, or numbers
  std::string after;
};

class OptionItems {
 public:
  OptionItems(const PrinterDescription& description, const QueueDevMode& devmode);
  OptionItems(const OptionItems&) = delete;
  OptionItems& operator=(const OptionItems&) = delete;

  // The selections of a queue that nobody changed yet.
  static void SetDefaults(const PrinterDescription& description, QueueDevMode& devmode);

  [[nodiscard]] const PrinterDescription& Description() const { return description_; }
  [[nodiscard]] OPTITEM* Data() { return items_.data(); }
  [[nodiscard]] DWORD Count() const { return static_cast<DWORD>(items_.size()); }

  // Null when there is no such item; the first one for a keyword that has two.
  [[nodiscard]] OPTITEM* Find(const char* keyword);
  // The keyword of one of Data()'s items; "?" for another pointer.
  [[nodiscard]] std::string KeywordOf(const OPTITEM* item) const;
  // What the item's current selection, or another one, is called.
  [[nodiscard]] std::string SelectionName(const OPTITEM& item, std::int32_t selection) const;

  // Writes what the items show into the DEVMODE.
  void StoreTo(QueueDevMode& devmode) const;
  // What the items show otherwise than `before` did.
  [[nodiscard]] std::vector<OptionChange> ChangesSince(const QueueDevMode& before) const;

 private:
  static constexpr std::size_t kNoFeature = static_cast<std::size_t>(-1);

  // What stands behind an item: one record per item, headings included.
  struct Source {
    const char* keyword;  // empty: a heading
    BYTE publicItem;      // DMPUB_ number, 0: none
    std::size_t feature;  // place in the printer description, kNoFeature: none
  };

  void AddHeading(BYTE level, const wchar_t* name);
  void AddStandardItem(std::size_t row, BYTE level, const ItemSelections& selections);
  void AddFeatureItem(std::size_t feature, const ItemSelections& selections);
  OPTITEM& AddItem(const Source& source, BYTE level, const wchar_t* name);
  void AddChoices(OPTITEM& item, const std::vector<std::wstring>& names);
  void AddNumber(OPTITEM& item, SHORT low, SHORT high);
  void AddCollate(OPTITEM& item, const ItemSelections& selections);
  [[nodiscard]] std::size_t FeatureIndex(const char* keyword) const;
  const wchar_t* Keep(std::wstring text);

  const PrinterDescription& description_;
  std::vector<OPTITEM> items_;
  std::vector<Source> sources_;
  std::deque<USERDATA> userData_;
  std::deque<OPTTYPE> types_;
  std::deque<std::vector<OPTPARAM>> parameters_;
  std::deque<std::wstring> texts_;
  EXTCHKBOX collate_{};
};

}  // namespace zn::host
