// What a screen reader hears of every control: its own text, the label before it, or what the page
// told the system's annotation service, which a recorder stands for.
#include <objbase.h>
// These must come behind objbase.h.
#include <commctrl.h>
#include <oleacc.h>

#include <algorithm>
#include <map>
#include <vector>

#include "page_sheet.h"
#include "pages/mediatypedlg.h"
#include "res/resource_ids.h"

namespace zn::test {
namespace {

using Texts = std::map<std::pair<HWND, bool>, std::wstring>;  // true: the name
Texts g_told;
bool g_hasCom = true;

class Recorder : public IAccPropServices {
 public:
  STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                              LPCWSTR text) override {
    EXPECT_EQ(object, static_cast<DWORD>(OBJID_CLIENT));
    EXPECT_EQ(child, 0U);
    g_told[{window, property == PROPID_ACC_NAME}] = text;
    return S_OK;
  }
  STDMETHODIMP ClearHwndProps(HWND window, DWORD, DWORD, const MSAAPROPID* properties,
                              int count) override {
    for (int i = 0; i < count; ++i) {
      g_told.erase({window, properties[i] == PROPID_ACC_NAME});
    }
    return S_OK;
  }
  STDMETHODIMP SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override { return E_FAIL; }
  STDMETHODIMP SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                             AnnoScope) override {
    return E_FAIL;
  }
  STDMETHODIMP ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override { return E_FAIL; }
  STDMETHODIMP SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override { return E_FAIL; }
  STDMETHODIMP SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                 AnnoScope) override {
    return E_FAIL;
  }
  STDMETHODIMP ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
    return E_FAIL;
  }
  STDMETHODIMP DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
    return E_FAIL;
  }
  STDMETHODIMP SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_FAIL; }
  STDMETHODIMP SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_FAIL; }
  STDMETHODIMP SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                  AnnoScope) override {
    return E_FAIL;
  }
  STDMETHODIMP ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override { return E_FAIL; }
  STDMETHODIMP ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override { return E_FAIL; }
  STDMETHODIMP DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
    return E_FAIL;
  }
};

HRESULT WINAPI Create(REFCLSID, IUnknown*, DWORD, REFIID, void** object) {
  static Recorder recorder;
  *object = g_hasCom ? &recorder : nullptr;
  return g_hasCom ? S_OK : CO_E_NOTINITIALIZED;
}

class Accessible : public PageSheetTest {
 protected:
  Accessible() {
    g_told.clear();
    g_hasCom = true;
  }
  // The combo box within an extended one, else the control.
  static HWND Inner(HWND control) {
    const HWND inner = ::FindWindowExA(control, nullptr, "ComboBox", nullptr);
    return inner != nullptr ? inner : control;
  }
  static std::wstring TextOf(HWND window) {
    wchar_t text[256] = L"";
    ::GetWindowTextW(window, text, 256);
    return text;
  }
  static std::wstring NameOf(HWND control) {
    const HWND inner = Inner(control);
    if (const auto told = g_told.find({inner, true}); told != g_told.end()) {
      return told->second;
    }
    char windowClass[64] = "";
    ::GetClassNameA(control, windowClass, sizeof windowClass);
    const HWND label = ::GetWindow(inner, GW_HWNDPREV);
    return std::string_view(windowClass) == "Button" ? TextOf(control)
           : label != nullptr                        ? TextOf(label)
                                                     : std::wstring();
  }
  // Of all that Tab and the arrows reach.
  static void ExpectNames(HWND dialog) {
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
      if ((::SendMessageA(child, WM_GETDLGCODE, 0, 0) & DLGC_STATIC) == 0 &&
          ::GetDlgCtrlID(child) != IDC_BASIC_COPIES_SPIN) {
        EXPECT_NE(NameOf(child), L"") << ::GetDlgCtrlID(child);
      }
    }
  }
  // What the tooltips of a page say.
  static std::vector<std::wstring> TipsOf(HWND page) {
    std::vector<std::wstring> texts;
    const auto tips = static_cast<HWND>(::GetPropA(page, "ZnTips"));
    wchar_t text[1024] = L"";
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.lpszText = text;
    for (WPARAM index = 0;
         ::SendMessageW(tips, TTM_ENUMTOOLSW, index, reinterpret_cast<LPARAM>(&tool)) != FALSE;
         ++index) {
      ::SendMessageW(tips, TTM_GETTEXTW, std::size(text), reinterpret_cast<LPARAM>(&tool));
      texts.emplace_back(text);
    }
    return texts;
  }
  [[nodiscard]] std::wstring Name(int id) const { return NameOf(Control(id)); }

 private:
  ImportPatch create_{::GetModuleHandleA(nullptr), "CoCreateInstance", &Create};
};

TEST_F(Accessible, EveryControlOfThePagesHasAName) {
  SetSelections(KW_WMSELECTION, 1, 1);
  Open(kBasicPage);
  for (const PageIndex page : {kBasicPage, kTrayPage, kJobPage, kWatermarkPage}) {
    SCOPED_TRACE(page);
    ASSERT_TRUE(Activate(page));
    ExpectNames(Page());
  }
  EXPECT_EQ(Name(IDC_WATERMARK_UPPER_LEFT), L"左上");
  EXPECT_EQ(Name(IDC_WATERMARK_CENTER), L"中央");
  EXPECT_EQ(Name(IDC_WATERMARK_POSITION), L"位置：");
  EXPECT_EQ(TextOf(Control(IDC_WATERMARK_UPPER_LEFT)), L"") << "a place is all that is seen";
  Close();
  EXPECT_TRUE(g_told.empty());
}

TEST_F(Accessible, DialogsNameTheirListsWhileTheyAreOpen) {
  FakeDriverPath::path = BesideProgram("driver.dll");
  Drive({[](HWND dialog) {
          ExpectNames(dialog);
          EXPECT_EQ(NameOf(::GetDlgItem(dialog, IDC_MEDIA_TYPE)), L"用紙種類:");
          ::PostMessageA(dialog, WM_CLOSE, 0, 0);
        }},
        [&] { CMediaTypeDlgAutoTrayMarzipan(*sheet_, &ThePlugInContext()).DoModal(); });
  EXPECT_TRUE(g_told.empty());
}

TEST_F(Accessible, TipsAreDescriptions) {
  Open(kJobPage);
  EXPECT_NE((g_told[{Control(IDC_JOB_SPOOL_ONLY), false}]), L"");
  ASSERT_TRUE(Activate(kTrayPage));
  // Without a profile everything is installed: the tip is the explanation alone.
  const std::wstring tip = g_told[{Inner(Control(IDC_TRAY_PUNCH)), false}];
  EXPECT_NE(tip, L"");
  EXPECT_EQ(tip.find(L'\n'), std::wstring::npos);
  // The mouse brings the window that shows them.
  EXPECT_EQ(TipsOf(Page()), std::vector<std::wstring>());
  ::SendMessageA(Page(), WM_SETCURSOR, 0, 0);
  const std::vector<std::wstring> shown = TipsOf(Page());
  EXPECT_NE(std::ranges::find(shown, tip), shown.end());
  EXPECT_NE(std::ranges::find(shown, TextOf(Control(IDC_ILLUSTRATION))), shown.end());
}

TEST_F(Accessible, PagesDoWithoutCom) {
  g_hasCom = false;
  Open(kWatermarkPage);
  EXPECT_TRUE(Activate(kTrayPage));
  EXPECT_TRUE(g_told.empty());
}

}  // namespace
}  // namespace zn::test
