#include "pages/savepresetdlg.h"

#include <array>

#include "pages/pspage.h"
#include "platform/format_text.h"
#include "platform/resources.h"
#include "res/resource_ids.h"

namespace zn {
namespace {

constexpr int kReadLimit = 512;

// Where a selection from the start ends.
constexpr int kCaretAtStart = 0;
constexpr int kWholeText = -1;

}  // namespace

int CSavePresetDlg::DoModal(Name& name, Comment& comment) {
  name_ = name;
  comment_ = comment;
  return RunModalDialog(IDD_SAVE_FAVORITE, *this) == IDOK ? IDOK : IDCANCEL;
}

int CSavePresetDlg::OnInitDialog() {
  const bool isStandard = LoadResourceString(IDS_STANDARD_FAVORITE) == name_;
  ::SetWindowTextA(Control(IDC_FAVORITE_NAME), isStandard ? "" : name_);
  ::SetWindowTextA(Control(IDC_FAVORITE_COMMENT), comment_);
  return 1;
}

int CSavePresetDlg::OnNotify(NMHDR* /*notification*/) {
  return 0;
}

int CSavePresetDlg::OnCommand(WORD notifyCode, WORD controlId, HWND /*control*/) {
  if (notifyCode != BN_CLICKED) {
    return 0;
  }
  if (controlId == IDCANCEL || (controlId == IDOK && Save())) {
    ::EndDialog(window_, controlId);
  }
  return controlId == IDCANCEL || controlId == IDOK ? 1 : 0;
}

bool CSavePresetDlg::Save() {
  const std::string name = ControlText(Control(IDC_FAVORITE_NAME), kReadLimit);
  if (!AcceptName(name)) {
    return false;
  }
  const std::string comment = ControlText(Control(IDC_FAVORITE_COMMENT), kReadLimit);
  if (!AcceptComment(comment)) {
    return false;
  }
  ::lstrcpynA(name_, name.c_str(), sizeof(Name));
  ::lstrcpynA(comment_, comment.c_str(), sizeof(Comment));
  return true;
}

bool CSavePresetDlg::AcceptName(const std::string& name) const {
  const std::array reserved{LoadResourceString(IDS_STANDARD_FAVORITE),
                            LoadResourceString(IDS_RESERVED_FAVORITE)};
  switch (CheckFavoriteName(name, reserved)) {
    case FavoriteNameFault::None:
      return true;
    case FavoriteNameFault::Unusable:
      Refuse(IDC_FAVORITE_NAME, LoadResourceString(IDS_FAVORITE_NAME_INVALID), kWholeText);
      return false;
    case FavoriteNameFault::Reserved:
      Refuse(IDC_FAVORITE_NAME, FillIn(LoadResourceString(IDS_FAVORITE_NAME_RESERVED), {name}),
             kCaretAtStart);
      return false;
  }
  return false;
}

bool CSavePresetDlg::AcceptComment(const std::string& comment) const {
  // On purpose an empty one is good, whatever the message says.
  if (comment.size() <= kMaxComment) {
    return true;
  }
  Refuse(IDC_FAVORITE_COMMENT, LoadResourceString(IDS_FAVORITE_COMMENT_INVALID), kWholeText);
  return false;
}

void CSavePresetDlg::Refuse(int editId, const std::string& message, int selectionEnd) const {
  ShowMessage(window_, message, IDS_WARNING_CAPTION, MB_ICONEXCLAMATION);
  ::SetFocus(Control(editId));
  ::SendMessageA(Control(editId), EM_SETSEL, 0, selectionEnd);
}

}  // namespace zn
