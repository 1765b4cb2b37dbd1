// Printer properties: the page, and its button that opens the authentication manager.
#include <gtest/gtest.h>

#include <string>

#include "iat_patch.h"
#include "japanese.h"
#include "plugin_client.h"
#include "user_registry.h"

namespace zn::test {
namespace {

constexpr WPARAM kButton = 1376;

// The world of the button: whether the companion and its dialog are there, whether the printer
// opens, and what they are asked.
struct ButtonWorld {
  bool hasModule = true;
  bool hasDialog = true;
  bool printerOpens = true;
  std::string path, printerName, keyName;
  HANDLE shownPrinter = nullptr;
  DWORD access = 0;
  int opened = 0, closed = 0, shown = 0, mayChange = -1;
};
ButtonWorld g_button;
int g_printer = 0;

HMODULE WINAPI LoadInstead(const char* path) {
  g_button.path = path;
  return g_button.hasModule ? ::LoadLibraryA(ZN_TEST_MODULE) : nullptr;
}

int ShowDialog(HANDLE printer, char* keyName, int mayChange) {
  ++g_button.shown;
  g_button.shownPrinter = printer;
  g_button.keyName = keyName;
  g_button.mayChange = mayChange;
  EXPECT_EQ(g_button.closed, g_button.opened - 1);
  return 0;
}

FARPROC WINAPI FindInstead(HMODULE module, const char* name) {
  EXPECT_EQ(module, ::GetModuleHandleA(ZN_TEST_MODULE));
  EXPECT_STREQ(name, "?OnAuthenticationManagerDlg@@YAHPEAXPEADH@Z");
  return g_button.hasDialog ? reinterpret_cast<FARPROC>(&ShowDialog) : nullptr;
}

BOOL WINAPI OpenInstead(char* name, HANDLE* printer, PRINTER_DEFAULTSA* defaults) {
  g_button.printerName = name;
  g_button.access = defaults->DesiredAccess;
  EXPECT_EQ(defaults->pDatatype, nullptr);
  EXPECT_EQ(defaults->pDevMode, nullptr);
  *printer = g_button.printerOpens ? &g_printer : nullptr;
  g_button.opened += g_button.printerOpens ? 1 : 0;
  return g_button.printerOpens ? TRUE : FALSE;
}

BOOL WINAPI CloseInstead(HANDLE printer) {
  EXPECT_EQ(printer, &g_printer);
  ++g_button.closed;
  return TRUE;
}

class DeviceSheet : public testing::Test {
 protected:
  DeviceSheet() { g_button = {}; }

  void Record(const wchar_t* printer) {
    OEMCUIPPARAM param{};
    param.cbSize = sizeof param;
    std::wstring name = printer != nullptr ? printer : L"";
    param.pPrinterName = printer != nullptr ? name.data() : nullptr;
    param.cOEMOptItems = 7;
    EXPECT_EQ(object_->CommonUIProp(OEMCUIP_PRNPROP, &param), S_OK);
    EXPECT_EQ(param.cOEMOptItems, 0U);
  }

  // The procedure of the page that a sheet with these flags adds.
  DLGPROC AddPage(DWORD flags) {
    FakeSheet sheet(*object_, &IPrintOemUI::DevicePropertySheets);
    sheet.param.dwFlags = flags;
    EXPECT_EQ(sheet.Send(PROPSHEETUI_REASON_INIT), S_OK);
    EXPECT_EQ(sheet.info.Result, 101U);
    EXPECT_EQ(sheet.calls.size(), 1U);
    const SheetCall& call = sheet.calls.at(0);
    EXPECT_EQ(call.function, UINT{CPSFUNC_ADD_PROPSHEETPAGEA});
    EXPECT_EQ(call.page.dwFlags, 0U);
    EXPECT_EQ(call.page.hInstance, plugIn_.Module());
    EXPECT_EQ(call.page.pszTemplate, MAKEINTRESOURCEA(1121));
    EXPECT_EQ(call.page.lParam, 0);
    return call.page.pfnDlgProc;
  }

  INT_PTR Click(DWORD flags = 0) { return Send(WM_COMMAND, kButton, flags); }
  INT_PTR Send(UINT message, WPARAM wParam, DWORD flags = 0) {
    const DLGPROC procedure = AddPage(flags);
    const ImportPatch load(plugIn_.Module(), "LoadLibraryA", &LoadInstead);
    const ImportPatch find(plugIn_.Module(), "GetProcAddress", &FindInstead);
    const ImportPatch open(plugIn_.Module(), "OpenPrinterA", &OpenInstead);
    const ImportPatch close(plugIn_.Module(), "ClosePrinter", &CloseInstead);
    return procedure(nullptr, message, wParam, 0);
  }

  // Whether the click left the companion loaded; frees it then.
  static bool FreeCompanion() {
    const HMODULE module = ::GetModuleHandleA(ZN_TEST_MODULE);
    return module != nullptr && ::FreeLibrary(module) != FALSE;
  }

  UserRegistry registry_;
  PlugIn plugIn_;
  ComPtr<IPrintOemUI> object_ = plugIn_.Object();
};

TEST_F(DeviceSheet, ButtonOpensTheManagerForTheRecordedPrinter) {
  const std::string name = Japanese("複合機");
  registry_.SetText("Printers\\Connections\\,,server," + name, "GuidPrinter", "{1234}");
  Record(L"\\\\server\\複合機");
  EXPECT_EQ(Click(), 1);
  EXPECT_EQ(g_button.path, "\\Windows\\System32\\spool\\drivers\\x64\\3\\Zn55psu1ui2.dll");
  EXPECT_EQ(g_button.printerName, "\\\\server\\" + name);
  EXPECT_EQ(g_button.access, DWORD{PRINTER_ALL_ACCESS});
  EXPECT_EQ(g_button.shown, 1);
  EXPECT_EQ(g_button.shownPrinter, &g_printer);
  EXPECT_EQ(g_button.keyName, name + "{1234}");
  EXPECT_EQ(g_button.mayChange, 1);
  EXPECT_EQ(g_button.closed, 1);
  EXPECT_FALSE(FreeCompanion());
}

TEST_F(DeviceSheet, PermissionFollowsTheFlagsOfEachSheet) {
  Record(L"printer");
  for (const DWORD flags : {DPS_NOPERMISSION, DWORD{2}, DPS_NOPERMISSION | 4, DWORD{0}}) {
    EXPECT_EQ(Click(flags), 1);
    EXPECT_EQ(g_button.mayChange, (flags & DPS_NOPERMISSION) != 0 ? 0 : 1) << flags;
  }
  FakeSheet sheet(*object_, &IPrintOemUI::DevicePropertySheets);
  sheet.info.lParamInit = 0;
  EXPECT_EQ(sheet.Send(PROPSHEETUI_REASON_INIT), S_OK);
}

TEST_F(DeviceSheet, WhatIsMissingDecidesTheAnswerAndWhetherTheModuleStays) {
  struct Row {
    const char* missing;
    bool hasModule, hasDialog, printerOpens;
    const wchar_t* printer;
    INT_PTR answer;
    bool stays;
  };
  for (const Row& row : {Row{"module", false, true, true, L"printer", 0, false},
                         Row{"export", true, false, true, L"printer", 1, false},
                         Row{"full access", true, true, false, L"printer", 0, true},
                         Row{"recorded printer", true, true, true, nullptr, 0, true}}) {
    SCOPED_TRACE(row.missing);
    g_button = {};
    g_button.hasModule = row.hasModule;
    g_button.hasDialog = row.hasDialog;
    g_button.printerOpens = row.printerOpens;
    Record(row.printer);
    EXPECT_EQ(Click(), row.answer);
    EXPECT_EQ(g_button.opened + g_button.closed + g_button.shown, 0);
    EXPECT_EQ(FreeCompanion(), row.stays);
  }
}

TEST_F(DeviceSheet, OtherMessagesAreLeftAlone) {
  EXPECT_EQ(Send(WM_INITDIALOG, 0), 0);
  EXPECT_EQ(Send(WM_COMMAND, MAKEWPARAM(kButton, BN_DOUBLECLICKED)), 0);
  EXPECT_EQ(Send(WM_COMMAND, kButton + 1), 1);
  EXPECT_EQ(g_button.path, "");
}

}  // namespace
}  // namespace zn::test
