// The page that shows a COMPROPSHEETUI record as a tree of option items, each edited where it
// stands: lists with a combo box, numbers with an edit and an up-down control.
#pragma once

#include "platform/driver_interfaces.h"

#include <string>
#include <vector>

#include "platform/handles.h"

namespace zn::host {

class TreePage {
 public:
  // The record's items stay with their owner and are changed in place; the record is copied.
  explicit TreePage(const COMPROPSHEETUI& record);

  [[nodiscard]] std::string Title() const;
  [[nodiscard]] HPROPSHEETPAGE Create();

 private:
  static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

  INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void OnInitDialog();
  INT_PTR OnNotify(const NMHDR& header);
  void OnCommand(int control, int notification);

  // Tells the record's callback; shows what it changed. Answers its action.
  LONG Callback(WORD reason, OPTITEM* item = nullptr, LONG oldSelection = 0);
  void FillTree();
  void ShowItem(std::size_t index);
  void ShowChangedItems();
  [[nodiscard]] std::string ItemText(const OPTITEM& item) const;
  [[nodiscard]] std::string SelectionText(const OPTITEM& item) const;
  [[nodiscard]] std::string Text(const char* text) const;

  void OpenEditor(std::size_t index);
  void PlaceEditor();
  void CloseEditor();
  void StoreEditor();
  void Select(OPTITEM& item, LONG selection);

  [[nodiscard]] OPTITEM& Item(std::size_t index) const { return record_.pOptItem[index]; }
  [[nodiscard]] std::size_t ItemCount() const { return record_.cOptItem; }
  [[nodiscard]] bool MayChange() const { return (record_.Flags & CPSUIF_UPDATE_PERMISSION) != 0; }

  COMPROPSHEETUI record_;
  HWND dialog_ = nullptr;
  HWND tree_ = nullptr;
  std::vector<HTREEITEM> nodes_;  // by item; null: hidden
  UniqueImageList images_;
  std::size_t edited_;    // item under the editor, or ItemCount()
  bool filling_ = false;  // the page itself changes the editor
};

}  // namespace zn::host
