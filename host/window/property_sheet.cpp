#include "host/window/property_sheet.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "host/base/host_error.h"

namespace zn::host {
namespace {

constexpr WORD kApplyButton = 0x3021;  // the property sheet's own id
constexpr UINT_PTR kSubclassId = 1;

// Open sheets; the callback finds its own here, and a stale handle finds none.
std::vector<PropertySheet*>& Sheets() {
  static std::vector<PropertySheet*> sheets;
  return sheets;
}

}  // namespace

PropertySheet::PropertySheet() {
  Sheets().push_back(this);
}

PropertySheet::~PropertySheet() {
  Destroy();
  std::erase(Sheets(), this);
}

PROPSHEETUI_INFO PropertySheet::Info(LPARAM lParamInit) {
  PROPSHEETUI_INFO info{};
  info.cbSize = sizeof info;
  info.Version = PROPSHEETUI_INFO_VERSION;
  info.hComPropSheet = this;
  info.pfnComPropSheet = &ComPropSheet;
  info.lParamInit = lParamInit;
  return info;
}

void PropertySheet::AddPage(const PROPSHEETPAGEA& record) {
  AddDialogPage(&record, pages_.size());
}

LONG_PTR CALLBACK PropertySheet::ComPropSheet(HANDLE sheet, UINT function, LPARAM lParam1,
                                              LPARAM lParam2) {
  const auto& sheets = Sheets();
  const auto self = std::ranges::find(sheets, static_cast<PropertySheet*>(sheet));
  try {
    return self != sheets.end() ? (*self)->OnFunction(function, lParam1, lParam2) : -1;
  } catch (...) {
    return 0;
  }
}

LONG_PTR PropertySheet::OnFunction(UINT function, LPARAM lParam1, LPARAM lParam2) {
  const std::size_t end = pages_.size();
  switch (function) {
    case CPSFUNC_ADD_HPROPSHEETPAGE: {
      Page page;
      page.created = reinterpret_cast<HPROPSHEETPAGE>(lParam1);
      return page.created != nullptr ? Insert(std::move(page), end) : 0;
    }
    case CPSFUNC_ADD_PROPSHEETPAGEA:
      return AddDialogPage(reinterpret_cast<const PROPSHEETPAGEA*>(lParam1), end);
    case CPSFUNC_ADD_PCOMPROPSHEETUIA:
      return AddTreePage(reinterpret_cast<const COMPROPSHEETUI*>(lParam1), end) != 0 ? 1 : 0;
    case CPSFUNC_INSERT_PSUIPAGEA:
      return InsertPage(lParam1, reinterpret_cast<INSERTPSUIPAGE_INFO*>(lParam2));
    case CPSFUNC_SET_RESULT:
      return SetResult(lParam1, static_cast<DWORD>(lParam2));
    case CPSFUNC_GET_PAGECOUNT:
      return PageCount();
    default:
      return 0;
  }
}

LONG_PTR PropertySheet::Insert(Page page, std::size_t position) {
  auto& added = *pages_.insert(pages_.begin() + static_cast<std::ptrdiff_t>(position),
                               std::make_unique<Page>(std::move(page)));
  return reinterpret_cast<LONG_PTR>(added.get());
}

LONG_PTR PropertySheet::AddDialogPage(const PROPSHEETPAGEA* record, std::size_t position) {
  if (record == nullptr || record->dwSize < PROPSHEETPAGEA_V1_SIZE) {
    return 0;
  }
  Page page;
  const auto* bytes = reinterpret_cast<const std::byte*>(record);
  page.record.assign(bytes, bytes + record->dwSize);
  return Insert(std::move(page), position);
}

LONG_PTR PropertySheet::AddTreePage(const COMPROPSHEETUI* record, std::size_t position) {
  if (record == nullptr || record->cbSize != sizeof *record) {
    return 0;
  }
  Page page;
  page.tree = std::make_unique<TreePage>(*record);
  page.title = page.tree->Title();
  return Insert(std::move(page), position);
}

LONG_PTR PropertySheet::InsertPage(LONG_PTR beside, INSERTPSUIPAGE_INFO* insert) {
  if (insert == nullptr || insert->cbSize != sizeof *insert) {
    return 0;
  }
  std::size_t position = pages_.size();
  switch (insert->Mode) {
    case INSPSUIPAGE_MODE_FIRST_CHILD:
      position = 0;
      break;
    case INSPSUIPAGE_MODE_LAST_CHILD:
      break;
    case INSPSUIPAGE_MODE_BEFORE:
    case INSPSUIPAGE_MODE_AFTER:
      position = PositionOf(beside);
      if (position == pages_.size()) {
        return 0;
      }
      position += insert->Mode == INSPSUIPAGE_MODE_AFTER;
      break;
    case INSPSUIPAGE_MODE_INDEX:
      position = std::min(static_cast<std::size_t>(beside & 0xFFFF), pages_.size());
      break;
    default:
      return 0;
  }
  switch (insert->Type) {
    case PSUIPAGEINSERT_PCOMPROPSHEETUI: {
      const LONG_PTR page =
          AddTreePage(reinterpret_cast<const COMPROPSHEETUI*>(insert->dwData1), position);
      insert->dwData2 = page != 0 ? 1 : 0;
      return page;
    }
    case PSUIPAGEINSERT_PROPSHEETPAGE:
      return AddDialogPage(reinterpret_cast<const PROPSHEETPAGEA*>(insert->dwData1), position);
    default:
      return 0;
  }
}

LONG_PTR PropertySheet::SetResult(LPARAM page, DWORD result) {
  if (page != 0 && PositionOf(page) == pages_.size()) {
    return -1;
  }
  result_ = result;
  ++resultReports_;
  return 1;
}

std::size_t PropertySheet::PositionOf(LONG_PTR page) const {
  const auto found = std::ranges::find_if(pages_, [page](const auto& candidate) {
    return reinterpret_cast<LONG_PTR>(candidate.get()) == page;
  });
  return static_cast<std::size_t>(found - pages_.begin());
}

void PropertySheet::Open(const std::string& title) {
  if (pages_.empty()) {
    throw HostError("the plug-in added no page");
  }
  std::vector<HPROPSHEETPAGE> handles;
  for (const auto& page : pages_) {
    if (page->tree) {
      handles.push_back(page->tree->Create());
    } else if (page->created != nullptr) {
      handles.push_back(page->created);
    } else {
      handles.push_back(
          ::CreatePropertySheetPageA(reinterpret_cast<const PROPSHEETPAGEA*>(page->record.data())));
    }
    if (handles.back() == nullptr) {
      throw HostError("a page could not be created");
    }
  }
  PROPSHEETHEADERA header{};
  header.dwSize = sizeof header;
  header.dwFlags = PSH_MODELESS;
  header.hInstance = ::GetModuleHandleA(nullptr);
  header.pszCaption = title.c_str();
  header.nPages = static_cast<UINT>(handles.size());
  header.phpage = handles.data();
  const INT_PTR window = ::PropertySheetA(&header);
  if (window == 0 || window == -1) {
    ThrowSystemError("the property sheet could not be shown");
  }
  window_ = reinterpret_cast<HWND>(window);
  endedWithOk_ = false;
  ::SetWindowSubclass(window_, &SheetProcedure, kSubclassId, reinterpret_cast<DWORD_PTR>(this));
  // Wine draws the frame of a window that is active from its first moment as an inactive one's.
  ::SendMessageA(window_, WM_NCACTIVATE, TRUE, 0);
  // Page titles that the templates brought along stand in the tabs only.
  const HWND tabs = PropSheet_GetTabControl(window_);
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    char text[128]{};
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    ::SendMessageA(tabs, TCM_GETITEMA, i, reinterpret_cast<LPARAM>(&item));
    pages_[i]->title = text;
  }
}

bool PropertySheet::IsOpen() const {
  return window_ != nullptr && ::IsWindow(window_) && CurrentPage() != nullptr;
}

HWND PropertySheet::CurrentPage() const {
  return reinterpret_cast<HWND>(::SendMessageA(window_, PSM_GETCURRENTPAGEHWND, 0, 0));
}

void PropertySheet::Pump() {
  MSG message;
  while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (window_ == nullptr || !PropSheet_IsDialogMessage(window_, &message)) {
      ::TranslateMessage(&message);
      ::DispatchMessageA(&message);
    }
  }
  if (window_ != nullptr && !IsOpen()) {
    Destroy();
  }
}

void PropertySheet::Run() {
  while (IsOpen()) {
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, INFINITE, QS_ALLINPUT);
    Pump();
  }
  Destroy();
}

void PropertySheet::Close() {
  if (IsOpen()) {
    PressCancel();
  }
  Destroy();
}

void PropertySheet::Destroy() {
  if (window_ != nullptr) {
    const HWND window = std::exchange(window_, nullptr);
    ::DestroyWindow(window);
  }
}

HWND PropertySheet::ShowPage(int index) {
  ::SendMessageA(window_, PSM_SETCURSEL, static_cast<WPARAM>(index), 0);
  const HWND tabs = PropSheet_GetTabControl(window_);
  return TabCtrl_GetCurSel(tabs) == index ? CurrentPage() : nullptr;
}

std::string PropertySheet::PageTitle(int index) const {
  return pages_[static_cast<std::size_t>(index)]->title;
}

void PropertySheet::PressOk() {
  PressButton(IDOK);
}
void PropertySheet::PressApply() {
  PressButton(kApplyButton);
}
void PropertySheet::PressCancel() {
  PressButton(IDCANCEL);
}

void PropertySheet::PressButton(int button) {
  ::SendMessageA(window_, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(::GetDlgItem(window_, button)));
}

LRESULT CALLBACK PropertySheet::SheetProcedure(HWND window, UINT message, WPARAM wParam,
                                               LPARAM lParam, UINT_PTR id, DWORD_PTR self) {
  auto& sheet = *reinterpret_cast<PropertySheet*>(self);
  if (message == WM_NCDESTROY) {
    ::RemoveWindowSubclass(window, &SheetProcedure, id);
  } else if (message == WM_COMMAND && LOWORD(wParam) == kApplyButton) {
    if (::SendMessageA(window, PSM_APPLY, 0, 0) != FALSE) {
      sheet.Applied();
    }
    return 0;
  }
  const LRESULT result = ::DefSubclassProc(window, message, wParam, lParam);
  // A sheet that accepted OK has no current page any longer.
  if (message == WM_COMMAND && LOWORD(wParam) == IDOK && sheet.CurrentPage() == nullptr) {
    sheet.endedWithOk_ = true;
    sheet.Applied();
  }
  return result;
}

void PropertySheet::Applied() {
  if (applied_) {
    applied_();
  }
}

}  // namespace zn::host
