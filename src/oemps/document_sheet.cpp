#include "oemps/document_sheet.h"

#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "oemps/sheet_owner.h"
#include "oemps/sheet_record.h"
#include "pages/pages.h"
#include "platform/boundary.h"
#include "platform/resources.h"
#include "platform/trace.h"
#include "res/resource_ids.h"
#include "session/plugin_context.h"
#include "session/session.h"

namespace zn {
namespace {

constexpr char kSource[] = "oemui";
constexpr char kFunction[] = "hrOEMDocumentPropertySheets";
constexpr char kCoreUiModule[] = "Zn55psu1.dll";
constexpr int kMaxMessage = 100;  // characters of the warning

std::int32_t g_openSheets = 0;
DWORD g_preparingThread = 0;  // whose sheet the current context waits for; 0: for none
DWORD g_ownerThread = 0;      // the thread that created the pages; 0: there are none

std::span<OPTITEM> DriverItems(const OEMCUIPPARAM& param) noexcept {
  return {param.pDrvOptItems, param.pDrvOptItems != nullptr ? param.cDrvOptItems : 0};
}

void FillSheet(SheetContext& sheet, const OEMCUIPPARAM& param) noexcept {
  const std::span<OPTITEM> items = DriverItems(param);
  sheet.pDevMode = static_cast<CDevMode*>(param.pOEMDM);
  sheet.pPublicDM = param.pPublicDM;
  sheet.hPrinter = param.hPrinter;
  sheet.poemuiobj = param.poemuiobj;
  sheet.pDrvOptItems = items.data();
  sheet.cDrvOptItems = static_cast<DWORD>(items.size());
  sheet.mayChangeSettings = (param.dwFlags & DM_NOPERMISSION) == 0;
  sheet.treeReadOnlyFlag = true;
  CSession(&sheet).HidePrinterSetting();
  sheet.hasPageOrder = sheet.items[KW_PAGEORDER] != nullptr;
}

int ShowAlreadyOpen() {
  const std::string text = LoadResourceString(IDS_SHEET_ALREADY_OPEN, kMaxMessage);
  const std::string caption = LoadResourceString(IDS_WARNING_CAPTION);
  return ::MessageBoxA(::GetForegroundWindow(), text.c_str(), caption.c_str(), MB_ICONEXCLAMATION);
}

// Inserts the tree of advanced settings behind the page `previous`.
void InsertAdvancedTree(const PROPSHEETUI_INFO& info, SheetContext& sheet,
                        LONG_PTR previous) noexcept {
  COMPROPSHEETUI* tree = PrepareAdvancedTree(sheet);
  if (tree == nullptr || info.pfnComPropSheet == nullptr) {
    return;
  }
  tree->hInstCaller = ::GetModuleHandleA(kCoreUiModule);
  ZN_TRACE_TEXT(kSource, kFunction, "%s() hInstCaller = %d \n", kFunction,
                static_cast<int>(reinterpret_cast<std::intptr_t>(tree->hInstCaller)));
  INSERTPSUIPAGE_INFO insert{};
  insert.cbSize = sizeof insert;
  insert.Type = PSUIPAGEINSERT_PCOMPROPSHEETUI;
  insert.Mode = INSPSUIPAGE_MODE_LAST_CHILD;
  insert.dwData1 = reinterpret_cast<ULONG_PTR>(tree);
  info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_INSERT_PSUIPAGEA, previous,
                       reinterpret_cast<LPARAM>(&insert));
}

void TakeHelpers(SheetContext& sheet, const PROPSHEETUI_INFO& info, IPrintOemDriverUI* helper) {
  if (helper != nullptr) {
    helper->AddRef();
  }
  sheet.pOEMHelp.reset(helper);
  const auto* param = reinterpret_cast<const OEMUIPSPARAM*>(info.lParamInit);
  if (param != nullptr && param->poemuiobj != nullptr) {
    sheet.poemuiobj = param->poemuiobj;
  }
}

// The handle of the last page.
LONG_PTR AddPages(SheetContext& sheet, const PROPSHEETUI_INFO& info, IPrintOemDriverUI* helper) {
  const std::span<const PageDefinition> pages(DialogPages(), kDialogPageCount);
  const auto add = [&](const PageDefinition& page) {
    return AddDialogPage(info, page.templateId, page.procedure, reinterpret_cast<LPARAM>(&sheet));
  };
  LONG_PTR previous = 0;
  for (const PageDefinition& page : pages.first(pages.size() - 1)) {
    previous = add(page);
  }
  InsertAdvancedTree(info, sheet, previous);
  TakeHelpers(sheet, info, helper);
  return add(pages.back());
}

LONG_PTR OpenSheet(const PROPSHEETUI_INFO& info, IPrintOemDriverUI* helper) {
  // The driver's record behind the context lives as long as its own thread says.
  if (g_preparingThread != ::GetCurrentThreadId()) {
    return 0;
  }
  g_preparingThread = 0;
  PlugInContext& context = ThePlugInContext();
  SheetContext* sheet = context.sheet;
  sheet->hLastPage = AddPages(*sheet, info, helper);
  sheet->hComPropSheet = info.hComPropSheet;
  sheet->pfnComPropSheet = info.pfnComPropSheet;
  g_ownerThread = ::GetCurrentThreadId();
  return sheet->hLastPage;
}

void OnInit(PROPSHEETUI_INFO& info, IPrintOemDriverUI* helper) {
  info.Result = 0;
  if (g_openSheets > 0) {
    ++g_openSheets;
    GuardedOr(0, &ShowAlreadyOpen);  // without memory for the warning it counts as open, too
    return;
  }
  ++g_openSheets;
  info.Result = OpenSheet(info, helper);
}

void OnDestroy(PROPSHEETUI_INFO& info) noexcept {
  if (g_openSheets > 0) {
    --g_openSheets;
  }
  PlugInContext& context = ThePlugInContext();
  // Another thread must not free what the creating thread still uses, nor a second, warned sheet
  // the data of the first.
  if (g_ownerThread == ::GetCurrentThreadId() && context.sheet != nullptr &&
      context.sheet->hComPropSheet == info.hComPropSheet) {
    const UniqueSheet ended(std::exchange(context.sheet, nullptr));
    g_ownerThread = 0;
  }
  info.Result = 1;
}

}  // namespace

HRESULT PrepareDocument(OEMCUIPPARAM& param) {
  if (g_openSheets > 0) {
    return S_OK;
  }
  // A context that no sheet took up, or whose sheet ended on another thread, is only forgotten: its
  // heap may be gone.
  ThePlugInContext().sheet = nullptr;
  g_preparingThread = 0;
  g_ownerThread = 0;
  param.cOEMOptItems = 0;
  if (param.pOEMOptItems == nullptr) {
    return S_OK;
  }
  if (param.hOEMHeap == nullptr) {
    return FailWith(ERROR_INVALID_PARAMETER);
  }
  UniqueSheet sheet = CreateSheet(param.hOEMHeap);
  if (!sheet) {
    return E_OUTOFMEMORY;
  }
  FillSheet(*sheet, param);
  ThePlugInContext().sheet = sheet.release();
  g_preparingThread = ::GetCurrentThreadId();
  for (OPTITEM& item : DriverItems(param)) {
    item.Flags |= OPTIF_HIDE;
  }
  return S_OK;
}

HRESULT hrOEMDocumentPropertySheets(PROPSHEETUI_INFO* pPSUIInfo, LPARAM lParam,
                                    IPrintOemDriverUI* pOEMHelp) {
  ZN_TRACE_TEXT(kSource, kFunction, " %s():DocumentPropertySheets entry.\n", kFunction);
  if (!IsUsable(pPSUIInfo)) {
    return FailWith(ERROR_INVALID_PARAMETER);
  }
  switch (pPSUIInfo->Reason) {
    case PROPSHEETUI_REASON_INIT:
      OnInit(*pPSUIInfo, pOEMHelp);
      break;
    case PROPSHEETUI_REASON_GET_INFO_HEADER:
      AnswerHeader(*pPSUIInfo, lParam);
      break;
    case PROPSHEETUI_REASON_DESTROY:
      OnDestroy(*pPSUIInfo);
      break;
    case PROPSHEETUI_REASON_SET_RESULT:
      AnswerSetResult(*pPSUIInfo, lParam);
      break;
    default:
      pPSUIInfo->Result = 0;
  }
  return S_OK;
}

}  // namespace zn
