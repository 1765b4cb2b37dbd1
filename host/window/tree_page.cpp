#include "host/window/tree_page.h"

#include <commctrl.h>

#include "host/base/host_ids.h"
#include "host/window/standard_strings.h"

namespace zn::host {
namespace {

constexpr int kEditorGap = 4;     // pixels between label and editor
constexpr int kListWidth = 200;   // pixels
constexpr int kNumberWidth = 80;  // pixels
constexpr int kDroppedHeight = 160;

bool IsList(const OPTITEM& item) {
  return item.pOptType != nullptr && item.pOptType->Type != TVOT_UDARROW;
}
bool IsNumber(const OPTITEM& item) {
  return item.pOptType != nullptr && item.pOptType->Type == TVOT_UDARROW;
}
SHORT Low(const OPTITEM& item) {
  return static_cast<SHORT>(item.pOptType->pOptParam[1].IconID);
}
SHORT High(const OPTITEM& item) {
  return static_cast<SHORT>(item.pOptType->pOptParam[1].lParam);
}

}  // namespace

TreePage::TreePage(const COMPROPSHEETUI& record) : record_(record), edited_(record.cOptItem) {}

std::string TreePage::Title() const {
  // A list of pages has one page for the tree; a small number stands for a standard set.
  const bool named = record_.pDlgPage > CPSUI_PDLGPAGE_TREEVIEWONLY && record_.cDlgPage > 0;
  return named ? Text(record_.pDlgPage->pTabName) : "";
}

HPROPSHEETPAGE TreePage::Create() {
  static thread_local std::string title;
  title = Title();
  PROPSHEETPAGEA page{};
  page.dwSize = sizeof page;
  page.dwFlags = PSP_USETITLE;
  page.hInstance = ::GetModuleHandleA(nullptr);
  page.pszTemplate = MAKEINTRESOURCEA(IDD_TREE_PAGE);
  page.pszTitle = title.c_str();
  page.pfnDlgProc = &Procedure;
  page.lParam = reinterpret_cast<LPARAM>(this);
  return ::CreatePropertySheetPageA(&page);
}

INT_PTR CALLBACK TreePage::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    const auto* page = reinterpret_cast<const PROPSHEETPAGEA*>(lParam);
    ::SetWindowLongPtrA(dialog, DWLP_USER, page->lParam);
    reinterpret_cast<TreePage*>(page->lParam)->dialog_ = dialog;
  }
  auto* self = reinterpret_cast<TreePage*>(::GetWindowLongPtrA(dialog, DWLP_USER));
  try {
    return self != nullptr ? self->OnMessage(message, wParam, lParam) : FALSE;
  } catch (...) {
    return FALSE;
  }
}

INT_PTR TreePage::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_INITDIALOG:
      OnInitDialog();
      return TRUE;
    case WM_NOTIFY:
      return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), HIWORD(wParam));
      return TRUE;
    default:
      return FALSE;
  }
}

void TreePage::OnInitDialog() {
  tree_ = ::GetDlgItem(dialog_, IDC_TREE);
  images_.reset(::ImageList_LoadImageA(::GetModuleHandleA(nullptr),
                                       MAKEINTRESOURCEA(IDB_TREE_ICONS), 16, 0, RGB(255, 0, 255),
                                       IMAGE_BITMAP, 0));
  TreeView_SetImageList(tree_, images_.get(), TVSIL_NORMAL);
  FillTree();
}

INT_PTR TreePage::OnNotify(const NMHDR& header) {
  switch (header.code) {
    case static_cast<UINT>(PSN_SETACTIVE):
      Callback(CPSUICB_REASON_SETACTIVE);
      PlaceEditor();
      break;
    case static_cast<UINT>(PSN_KILLACTIVE):
      StoreEditor();
      Callback(CPSUICB_REASON_KILLACTIVE);
      break;
    case static_cast<UINT>(PSN_APPLY): {
      const LONG action = Callback(CPSUICB_REASON_APPLYNOW);
      ::SetWindowLongPtrA(
          dialog_, DWLP_MSGRESULT,
          action == CPSUICB_ACTION_NO_APPLY_EXIT ? PSNRET_INVALID_NOCHANGEPAGE : PSNRET_NOERROR);
      return TRUE;
    }
    case TVN_SELCHANGEDA:
      OpenEditor(
          static_cast<std::size_t>(reinterpret_cast<const NMTREEVIEWA*>(&header)->itemNew.lParam));
      return TRUE;
    case TVN_ITEMEXPANDEDA:
      PlaceEditor();
      return TRUE;
    default:
      return FALSE;
  }
  ::SetWindowLongPtrA(dialog_, DWLP_MSGRESULT, FALSE);
  return TRUE;
}

void TreePage::OnCommand(int control, int notification) {
  const bool list = control == IDC_TREE_LIST && notification == CBN_SELCHANGE;
  const bool number = control == IDC_TREE_NUMBER && notification == EN_CHANGE;
  if (!filling_ && (list || number)) {
    StoreEditor();
  }
}

LONG TreePage::Callback(WORD reason, OPTITEM* item, LONG oldSelection) {
  if (record_.pfnCallBack == nullptr) {
    return CPSUICB_ACTION_NONE;
  }
  const bool selection = reason == CPSUICB_REASON_SEL_CHANGED;
  CPSUICBPARAM parameter{};
  parameter.cbSize = sizeof parameter;
  parameter.Reason = reason;
  parameter.hDlg = dialog_;
  parameter.pOptItem = record_.pOptItem;
  parameter.cOptItem = record_.cOptItem;
  parameter.Flags = record_.Flags;
  parameter.pCurItem = item != nullptr ? item : record_.pOptItem;
  parameter.OldSel = selection ? oldSelection : -1;
  parameter.UserData = record_.UserData;
  parameter.Result = CPSUI_OK;
  const LONG action = record_.pfnCallBack(&parameter);
  if (action == CPSUICB_ACTION_OPTIF_CHANGED || action == CPSUICB_ACTION_REINIT_ITEMS) {
    ShowChangedItems();
  }
  return action;
}

void TreePage::FillTree() {
  nodes_.assign(ItemCount(), nullptr);
  TVINSERTSTRUCTA insert{};
  insert.hInsertAfter = TVI_LAST;
  insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM;
  std::string text = Text(record_.pOptItemName);
  insert.item.pszText = text.data();
  insert.item.iImage = insert.item.iSelectedImage = kTreeImagePrinter;
  insert.item.lParam = static_cast<LPARAM>(ItemCount());
  const auto add = [this, &insert](HTREEITEM parent) {
    insert.hParent = parent;
    return reinterpret_cast<HTREEITEM>(
        ::SendMessageA(tree_, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insert)));
  };
  const HTREEITEM root = add(TVI_ROOT);
  for (std::size_t i = 0; i < ItemCount(); ++i) {
    if ((Item(i).Flags & OPTIF_HIDE) != 0) {
      continue;
    }
    // The parent is the nearest shown item above with a lower level; levels may skip numbers.
    HTREEITEM parent = root;
    for (std::size_t above = i; above-- > 0;) {
      if (Item(above).Level < Item(i).Level && nodes_[above] != nullptr) {
        parent = nodes_[above];
        break;
      }
    }
    text = ItemText(Item(i));
    insert.item.pszText = text.data();
    insert.item.iImage = insert.item.iSelectedImage = StandardIcon(Item(i));
    insert.item.lParam = static_cast<LPARAM>(i);
    nodes_[i] = add(parent);
  }
  TreeView_Expand(tree_, root, TVE_EXPAND);
  for (HTREEITEM node : nodes_) {
    if (node != nullptr) {
      TreeView_Expand(tree_, node, TVE_EXPAND);
    }
  }
  TreeView_EnsureVisible(tree_, root);
}

void TreePage::ShowItem(std::size_t index) {
  if (nodes_.empty() || nodes_[index] == nullptr) {
    return;
  }
  std::string text = ItemText(Item(index));
  TVITEMA item{};
  item.mask = TVIF_TEXT | TVIF_HANDLE;
  item.hItem = nodes_[index];
  item.pszText = text.data();
  ::SendMessageA(tree_, TVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&item));
}

void TreePage::ShowChangedItems() {
  for (std::size_t i = 0; i < ItemCount(); ++i) {
    if ((Item(i).Flags & OPTIF_CHANGED) != 0) {
      ShowItem(i);
      if (i == edited_) {
        edited_ = ItemCount();  // what its editor shows is of before the change
        OpenEditor(i);
      }
    }
  }
}

std::string TreePage::Text(const char* text) const {
  return ResolveStandardString(text, record_.hInstCaller);
}

std::string TreePage::ItemText(const OPTITEM& item) const {
  const std::string label = Text(item.pName);
  return item.pOptType == nullptr ? label : label + ": " + SelectionText(item);
}

std::string TreePage::SelectionText(const OPTITEM& item) const {
  if (IsNumber(item)) {
    return std::to_string(item.Sel) + " " + Text(item.pOptType->pOptParam[0].pData);
  }
  const bool inside = item.Sel >= 0 && item.Sel < item.pOptType->Count;
  return inside ? Text(item.pOptType->pOptParam[item.Sel].pData) : "";
}

void TreePage::OpenEditor(std::size_t index) {
  CloseEditor();
  if (index >= ItemCount() || Item(index).pOptType == nullptr || nodes_[index] == nullptr) {
    return;
  }
  edited_ = index;
  filling_ = true;
  const OPTITEM& item = Item(index);
  const bool enabled = MayChange() && (item.Flags & OPTIF_DISABLED) == 0;
  if (IsList(item)) {
    const HWND list = ::GetDlgItem(dialog_, IDC_TREE_LIST);
    ::SendMessageA(list, CB_RESETCONTENT, 0, 0);
    for (WORD i = 0; i < item.pOptType->Count; ++i) {
      const std::string text = Text(item.pOptType->pOptParam[i].pData);
      ::SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    ::SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(item.Sel), 0);
    ::EnableWindow(list, enabled);
  } else {
    const HWND arrows = ::GetDlgItem(dialog_, IDC_TREE_ARROWS);
    ::SendMessageA(arrows, UDM_SETBUDDY,
                   reinterpret_cast<WPARAM>(::GetDlgItem(dialog_, IDC_TREE_NUMBER)), 0);
    ::SendMessageA(arrows, UDM_SETRANGE32, static_cast<WPARAM>(Low(item)), High(item));
    ::SendMessageA(arrows, UDM_SETPOS32, 0, item.Sel);
    ::EnableWindow(::GetDlgItem(dialog_, IDC_TREE_NUMBER), enabled);
    ::EnableWindow(arrows, enabled);
  }
  filling_ = false;
  PlaceEditor();
}

// Over the value, right behind the label of its item.
void TreePage::PlaceEditor() {
  if (edited_ >= ItemCount()) {
    return;
  }
  RECT text{};
  if (!TreeView_GetItemRect(tree_, nodes_[edited_], &text, TRUE)) {
    return;
  }
  ::MapWindowPoints(tree_, dialog_, reinterpret_cast<POINT*>(&text), 2);
  const std::string label = Text(Item(edited_).pName) + ":";
  const HDC dc = ::GetDC(tree_);
  const HGDIOBJ old =
      ::SelectObject(dc, reinterpret_cast<HFONT>(::SendMessageA(tree_, WM_GETFONT, 0, 0)));
  SIZE size{};
  ::GetTextExtentPoint32A(dc, label.c_str(), static_cast<int>(label.size()), &size);
  ::SelectObject(dc, old);
  ::ReleaseDC(tree_, dc);

  const int left = text.left + size.cx + kEditorGap;
  if (IsList(Item(edited_))) {
    ::SetWindowPos(::GetDlgItem(dialog_, IDC_TREE_LIST), HWND_TOP, left, text.top - 2, kListWidth,
                   kDroppedHeight, SWP_SHOWWINDOW | SWP_NOACTIVATE);
  } else {
    ::SetWindowPos(::GetDlgItem(dialog_, IDC_TREE_NUMBER), HWND_TOP, left, text.top - 1,
                   kNumberWidth, text.bottom - text.top + 2, SWP_SHOWWINDOW | SWP_NOACTIVATE);
    const HWND arrows = ::GetDlgItem(dialog_, IDC_TREE_ARROWS);
    ::SendMessageA(arrows, UDM_SETBUDDY,
                   reinterpret_cast<WPARAM>(::GetDlgItem(dialog_, IDC_TREE_NUMBER)), 0);
    ::SetWindowPos(arrows, HWND_TOP, 0, 0, 0, 0,
                   SWP_SHOWWINDOW | SWP_NOACTIVATE | SWP_NOMOVE | SWP_NOSIZE);
  }
}

void TreePage::CloseEditor() {
  StoreEditor();
  edited_ = ItemCount();
  for (const int control : {IDC_TREE_LIST, IDC_TREE_NUMBER, IDC_TREE_ARROWS}) {
    ::ShowWindow(::GetDlgItem(dialog_, control), SW_HIDE);
  }
}

void TreePage::StoreEditor() {
  if (edited_ >= ItemCount() || !MayChange()) {
    return;
  }
  OPTITEM& item = Item(edited_);
  if (IsList(item)) {
    const LRESULT index = ::SendDlgItemMessageA(dialog_, IDC_TREE_LIST, CB_GETCURSEL, 0, 0);
    if (index >= 0) {
      Select(item, static_cast<LONG>(index));
    }
  } else {
    BOOL error = FALSE;
    const LRESULT value = ::SendDlgItemMessageA(dialog_, IDC_TREE_ARROWS, UDM_GETPOS32, 0,
                                                reinterpret_cast<LPARAM>(&error));
    // What lies outside the range cannot be entered; the item keeps its value.
    if (error == FALSE && value >= Low(item) && value <= High(item)) {
      Select(item, static_cast<LONG>(value));
    }
  }
}

void TreePage::Select(OPTITEM& item, LONG selection) {
  if (item.Sel == selection) {
    return;
  }
  const LONG before = item.Sel;
  item.Sel = selection;
  item.Flags |= OPTIF_CHANGED | OPTIF_CHANGEONCE;
  ShowItem(static_cast<std::size_t>(&item - record_.pOptItem));
  if ((item.Flags & OPTIF_CALLBACK) != 0) {
    Callback(CPSUICB_REASON_SEL_CHANGED, &item, before);
  }
  PropSheet_Changed(::GetParent(dialog_), dialog_);
}

}  // namespace zn::host
