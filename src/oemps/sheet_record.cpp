#include "oemps/sheet_record.h"

#include "platform/resources.h"

namespace zn {
namespace {

wchar_t kSheetTitle[] = L"OEM UI Page";

}  // namespace

bool IsUsable(const PROPSHEETUI_INFO* info) noexcept {
  return info != nullptr && IsWhole(info->cbSize, sizeof *info) &&
         info->Version == PROPSHEETUI_INFO_VERSION;
}

void AnswerHeader(PROPSHEETUI_INFO& info, LPARAM lParam) noexcept {
  if (auto* header = reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(lParam)) {
    // The core driver is a Unicode client: it reads a wide text, whatever this build declares.
    header->pTitle = reinterpret_cast<LPTSTR>(kSheetTitle);
  }
  info.Result = 1;
}

void AnswerSetResult(PROPSHEETUI_INFO& info, LPARAM lParam) noexcept {
  const auto* result = reinterpret_cast<const SETRESULT_INFO*>(lParam);
  info.Result = result != nullptr ? result->Result : 0;
}

LONG_PTR AddDialogPage(const PROPSHEETUI_INFO& info, int templateId, DLGPROC procedure,
                       LPARAM lParam) noexcept {
  if (info.pfnComPropSheet == nullptr) {
    return 0;
  }
  PROPSHEETPAGEA page{};
  page.dwSize = sizeof page;
  page.hInstance = ResourceInstance();
  page.pszTemplate = MAKEINTRESOURCEA(templateId);
  page.pfnDlgProc = procedure;
  page.lParam = lParam;
  return info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEA,
                              reinterpret_cast<LPARAM>(&page), 0);
}

}  // namespace zn
