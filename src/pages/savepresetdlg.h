// The dialog "お気に入りの保存": the name and the comment under which a favourite is to be saved.
#pragma once

#include <windows.h>

#include <string>

#include "favorites/favorite_file.h"
#include "favorites/favorite_name.h"
#include "pages/modal_dialog.h"

namespace zn {

class CSavePresetDlg : public ModalDialog {
 public:
  using Name = char[kMaxFavoriteName + 1];
  using Comment = char[kMaxComment + 1];

  // Shows the dialog over the active window, with the two texts. IDOK: it was closed with "save",
  // and they are what was entered; IDCANCEL: they are as before.
  int DoModal(Name& name, Comment& comment);

  virtual int OnInitDialog();
  virtual int OnNotify(NMHDR* notification);
  virtual int OnCommand(WORD notifyCode, WORD controlId, HWND control);

 private:
  // False when an edit is refused.
  bool Save();
  [[nodiscard]] bool AcceptName(const std::string& name) const;
  [[nodiscard]] bool AcceptComment(const std::string& comment) const;
  // Tells the user and goes to the edit, whose text is selected up to `selectionEnd`.
  void Refuse(int editId, const std::string& message, int selectionEnd) const;

  char* name_ = nullptr;
  char* comment_ = nullptr;
};

}  // namespace zn
