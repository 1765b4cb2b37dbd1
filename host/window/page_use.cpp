#include "host/window/page_use.h"

#include <commctrl.h>

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "host/base/files.h"

namespace zn::host {
namespace {

struct Use {
  std::string_view windowClass;
  LONG_PTR types;  // of buttons: the bits BS_...; 0: any
  void (*use)(HWND control);
};

constexpr LONG_PTR Bit(LONG_PTR buttonType) {
  return LONG_PTR{1} << buttonType;
}

void Click(HWND button) {
  ::SendMessageA(button, BM_CLICK, 0, 0);
}

void ChooseNextEntry(HWND list) {
  const LRESULT count = ::SendMessageA(list, CB_GETCOUNT, 0, 0);
  if (count > 1) {
    const LRESULT selected = ::SendMessageA(list, CB_GETCURSEL, 0, 0);
    ChooseEntry(list, static_cast<int>((selected + 1) % count));
  }
}

void ChangeText(HWND edit) {
  std::array<char, 16> text{};
  ::GetWindowTextA(edit, text.data(), static_cast<int>(text.size()));
  const std::string_view old = text.data();
  const bool isNumber = (::GetWindowLongPtrA(edit, GWL_STYLE) & ES_NUMBER) != 0;
  const char* const texts[] = {isNumber ? "2" : "text", isNumber ? "3" : "other text"};
  ::SetWindowTextA(edit, texts[old == texts[0] ? 1 : 0]);
}

void VisitItems(HWND tree);

constexpr Use kButtons[] = {{"Button", Bit(BS_PUSHBUTTON) | Bit(BS_DEFPUSHBUTTON), &Click}};
constexpr Use kValues[] = {
    {"Button", Bit(BS_AUTOCHECKBOX) | Bit(BS_AUTORADIOBUTTON), &Click},
    {"ComboBox", 0, &ChooseNextEntry},
    {"ComboBoxEx32", 0, &ChooseNextEntry},
    {"Edit", 0, &ChangeText},
};
constexpr Use kTrees[] = {{"SysTreeView32", 0, &VisitItems}};

bool CanBeUsed(HWND control) {
  constexpr LONG_PTR kShown = WS_VISIBLE;
  constexpr LONG_PTR kNot = WS_DISABLED;
  return (::GetWindowLongPtrA(control, GWL_STYLE) & (kShown | kNot)) == kShown;
}

std::string ClassOf(HWND control) {
  std::array<char, 32> name{};
  ::GetClassNameA(control, name.data(), static_cast<int>(name.size()));
  return name.data();
}

bool Fits(const Use& use, HWND control) {
  return use.windowClass == ClassOf(control) &&
         (use.types == 0 ||
          (use.types & Bit(::GetWindowLongPtrA(control, GWL_STYLE) & BS_TYPEMASK)) != 0);
}

void UseControls(HWND page, std::span<const Use> uses) {
  // Gathered first: some pages change the order of their windows.
  std::vector<HWND> controls;
  for (HWND child = ::GetWindow(page, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    controls.push_back(child);
  }
  for (const HWND control : controls) {
    for (const Use& use : uses) {
      if (Fits(use, control) && CanBeUsed(control)) {
        use.use(control);
      }
    }
  }
}

void VisitItems(HWND tree) {
  for (HTREEITEM item = TreeView_GetRoot(tree); item != nullptr;
       item = TreeView_GetNextVisible(tree, item)) {
    TreeView_SelectItem(tree, item);
    UseControls(::GetParent(tree), kValues);
  }
}

// Nothing for a label.
std::optional<std::string> ValueOf(HWND control) {
  const std::string className = ClassOf(control);
  if (className.starts_with("ComboBox")) {
    return std::to_string(::SendMessageA(control, CB_GETCURSEL, 0, 0));
  }
  if (className == "Button") {
    return ::SendMessageA(control, BM_GETCHECK, 0, 0) != 0 ? "checked" : "unchecked";
  }
  const LONG_PTR style = ::GetWindowLongPtrA(control, GWL_STYLE);
  if (className != "Edit" && (className != "Static" || (style & SS_TYPEMASK) != SS_OWNERDRAW)) {
    return std::nullopt;
  }
  std::array<wchar_t, 1024> text{};
  ::GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
  return Utf8Text(text.data());
}

void ReadTree(HWND tree, std::map<std::string, std::string>& values) {
  for (HTREEITEM node = TreeView_GetRoot(tree); node != nullptr;
       node = TreeView_GetNextVisible(tree, node)) {
    std::array<wchar_t, 256> buffer{};
    TVITEMW item{};
    item.mask = TVIF_TEXT | TVIF_HANDLE;
    item.hItem = node;
    item.pszText = buffer.data();
    item.cchTextMax = static_cast<int>(buffer.size());
    ::SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    const std::string text = Utf8Text(buffer.data());
    if (const std::size_t colon = text.rfind(": "); colon != text.npos) {
      values[text.substr(0, colon)] = text.substr(colon + 2);
    }
  }
}

}  // namespace

void ChooseEntry(HWND list, int entry) {
  const auto report = [list](WORD code) {
    ::SendMessageA(::GetParent(list), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(list), code),
                   reinterpret_cast<LPARAM>(list));
  };
  report(CBN_DROPDOWN);
  ::SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
  for (const WORD code : {WORD{CBN_SELCHANGE}, WORD{CBN_SELENDOK}, WORD{CBN_CLOSEUP}}) {
    report(code);
  }
}

void PressButtons(HWND page) {
  UseControls(page, kButtons);
}

void ChangeControls(HWND page) {
  UseControls(page, kValues);
  UseControls(page, kTrees);
}

std::map<std::string, std::string> ReadControls(HWND page) {
  std::map<std::string, std::string> values;
  for (HWND child = ::GetWindow(page, GW_CHILD); child != nullptr;
       child = ::GetWindow(child, GW_HWNDNEXT)) {
    if (ClassOf(child) == "SysTreeView32") {
      values.clear();  // the editors of its items are no values of their own
      ReadTree(child, values);
      return values;
    }
    if (auto value = ValueOf(child)) {
      const LONG_PTR style = ::GetWindowLongPtrA(child, GWL_STYLE);
      value->append((style & WS_DISABLED) != 0 ? " (disabled)" : "");
      value->append((style & WS_VISIBLE) == 0 ? " (hidden)" : "");
      values[std::to_string(::GetDlgCtrlID(child))] = *value;
    }
  }
  return values;
}

}  // namespace zn::host
