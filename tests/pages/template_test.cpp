// Every dialog template in every language, as the system lays it out: what the code relies on, and
// what a user needs.
#include <gtest/gtest.h>
#include <windows.h>

#include <cctype>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "res/resource_ids.h"

namespace zn::test {
namespace {

constexpr char kStatic[] = "Static";
constexpr char kButton[] = "Button";
constexpr char kEdit[] = "Edit";
constexpr char kList[] = "ComboBox";
constexpr char kExtended[] = "ComboBoxEx32";
constexpr char kSpin[] = "msctls_updown32";

constexpr const char* kModules[] = {"", "Zn55psu1ENU.dll"};  // this program has the Japanese ones
constexpr int kTemplates[] = {IDD_BASIC_PAGE,      IDD_TRAY_PAGE,         IDD_WATERMARK_PAGE,
                              IDD_JOB_PAGE,        IDD_JOB_PAGE_FAVORITE, IDD_DEVICE_PAGE,
                              IDD_MEDIA_TYPE_AUTO, IDD_MEDIA_TYPE_BYPASS, IDD_CUSTOM_PAGE_SIZE,
                              IDD_SAVE_FAVORITE};

INT_PTR CALLBACK PlainDialog(HWND, UINT, WPARAM, LPARAM) {
  return FALSE;
}

HMODULE LoadResources(const char* name) {
  return *name != '\0' ? ::LoadLibraryA(name) : ::GetModuleHandleA(nullptr);
}

class TemplateTest : public testing::TestWithParam<std::tuple<const char*, int>> {
 protected:
  void SetUp() override {
    frame_ =
        ::CreateWindowA("Static", "", WS_POPUP, 0, 0, 800, 800, nullptr, nullptr, nullptr, nullptr);
    const auto [module, templateId] = GetParam();
    dialog_ = ::CreateDialogParamA(LoadResources(module), MAKEINTRESOURCEA(templateId), frame_,
                                   &PlainDialog, 0);
    ASSERT_NE(dialog_, nullptr);
    for (HWND child = ::GetWindow(dialog_, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
      children_.push_back(child);
    }
  }
  void TearDown() override {
    ::DestroyWindow(dialog_);
    ::DestroyWindow(frame_);
  }

  static std::string TextOf(HWND window) {
    char text[256] = "";
    ::GetWindowTextA(window, text, sizeof text);
    return text;
  }
  static std::string ClassOf(HWND window) {
    char name[64] = "";
    ::GetClassNameA(window, name, sizeof name);
    return name;
  }
  static LONG StyleOf(HWND window) { return ::GetWindowLongA(window, GWL_STYLE); }
  static bool IsGroupBox(HWND window) {
    return ClassOf(window) == kButton && (StyleOf(window) & BS_TYPEMASK) == BS_GROUPBOX;
  }
  static bool IsFrame(HWND window) {
    const LONG type = StyleOf(window) & SS_TYPEMASK;
    return ClassOf(window) == kStatic && (type == SS_ETCHEDFRAME || type == SS_ETCHEDHORZ);
  }
  // In the dialog's client area.
  [[nodiscard]] RECT RectOf(HWND window) const {
    RECT rect{};
    ::GetWindowRect(window, &rect);
    ::MapWindowPoints(nullptr, dialog_, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
  }
  static std::string Name(HWND window) {
    return std::to_string(::GetDlgCtrlID(window)) + " \"" + TextOf(window) + "\"";
  }

  HWND frame_ = nullptr;
  HWND dialog_ = nullptr;
  std::vector<HWND> children_;
};

// The pages find a list by its label, a spin control its edit.
TEST_P(TemplateTest, ListsFollowTheirLabels) {
  const std::set<int> unlabelled{IDC_WATERMARK_POSITION, IDC_JOB_FAVORITES, IDC_CUSTOM_DIRECTION};
  for (const HWND child : children_) {
    const std::string windowClass = ClassOf(child);
    if ((windowClass == kList || windowClass == kExtended) &&
        !unlabelled.contains(::GetDlgCtrlID(child))) {
      EXPECT_EQ(ClassOf(::GetWindow(child, GW_HWNDPREV)), kStatic) << Name(child);
    } else if (windowClass == kSpin) {
      EXPECT_EQ(ClassOf(::GetWindow(child, GW_HWNDPREV)), kEdit);
    }
  }
}

TEST_P(TemplateTest, MnemonicsAreUnique) {
  std::set<int> used;
  if ((StyleOf(dialog_) & WS_CHILD) != 0) {
    used.insert('A');  // the sheet's own "Apply"
  }
  for (const HWND child : children_) {
    const std::string text = TextOf(child);
    const auto mark = text.find('&');
    if (mark != std::string::npos && mark + 1 < text.size()) {
      EXPECT_TRUE(used.insert(std::toupper(text[mark + 1])).second) << text;
    }
  }
}

TEST_P(TemplateTest, NoTextIsClipped) {
  constexpr int kButtonMargin = 6;
  const HDC dc = ::GetDC(dialog_);
  ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(::SendMessageA(dialog_, WM_GETFONT, 0, 0)));
  for (const HWND child : children_) {
    const std::string text = TextOf(child);
    const std::string windowClass = ClassOf(child);
    if (text.empty() || (windowClass != kStatic && windowClass != kButton)) {
      continue;
    }
    RECT need{};
    ::DrawTextA(dc, text.c_str(), -1, &need, DT_CALCRECT | DT_SINGLELINE);
    RECT room{};
    ::GetClientRect(child, &room);
    int decoration = 0;
    if (windowClass == kButton) {
      const LONG type = StyleOf(child) & BS_TYPEMASK;
      const bool hasBox = type == BS_AUTOCHECKBOX || type == BS_AUTORADIOBUTTON;
      decoration = hasBox ? ::GetSystemMetrics(SM_CXMENUCHECK) + kButtonMargin : 2 * kButtonMargin;
    }
    EXPECT_LE(need.right + decoration, room.right) << Name(child);
    EXPECT_LE(need.bottom, room.bottom) << Name(child);
  }
  ::ReleaseDC(dialog_, dc);
}

TEST_P(TemplateTest, ControlsLieInsideAndApart) {
  RECT inside{};
  ::GetClientRect(dialog_, &inside);
  for (const HWND child : children_) {
    const RECT rect = RectOf(child);
    RECT common{};
    ::IntersectRect(&common, &rect, &inside);
    EXPECT_TRUE(::EqualRect(&common, &rect)) << Name(child);
    for (const HWND other : children_) {
      const RECT otherRect = RectOf(other);
      const bool framed = IsGroupBox(child) || IsFrame(child) || IsGroupBox(other) ||
                          IsFrame(other) || ClassOf(child) == kSpin || ClassOf(other) == kSpin;
      if (other != child && !framed) {
        EXPECT_FALSE(::IntersectRect(&common, &rect, &otherRect))
            << Name(child) << " and " << Name(other);
      }
    }
  }
}

TEST_P(TemplateTest, TabsGoDownAndToTheRight) {
  HWND control = ::GetNextDlgTabItem(dialog_, nullptr, FALSE);
  ASSERT_NE(control, nullptr);
  const HWND first = control;
  RECT before = RectOf(control);
  for (control = ::GetNextDlgTabItem(dialog_, control, FALSE); control != first;
       control = ::GetNextDlgTabItem(dialog_, control, FALSE)) {
    const RECT rect = RectOf(control);
    const bool sameRow = rect.top < before.bottom && before.top < rect.bottom;
    EXPECT_TRUE(sameRow ? rect.left > before.left : rect.top >= before.bottom) << Name(control);
    before = rect;
  }
}

// A page leaves Enter to the buttons of its sheet.
TEST_P(TemplateTest, EnterPressesTheDefaultButtonOrBreaksALine) {
  int defaults = 0;
  for (const HWND child : children_) {
    defaults += (::SendMessageA(child, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0 ? 1 : 0;
    if (ClassOf(child) == kEdit && (StyleOf(child) & ES_MULTILINE) != 0) {
      EXPECT_TRUE((StyleOf(child) & ES_WANTRETURN) != 0) << Name(child);
    }
  }
  EXPECT_EQ(defaults, (StyleOf(dialog_) & WS_CHILD) != 0 ? 0 : 1);
}

TEST_P(TemplateTest, EveryInputIsReachedByTheKeyboard) {
  bool inRadioGroup = false;
  for (const HWND child : children_) {
    const LONG style = StyleOf(child);
    const std::string windowClass = ClassOf(child);
    if ((style & WS_GROUP) != 0) {
      inRadioGroup = false;
    }
    const bool radio = windowClass == kButton && (style & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
    if (radio && !inRadioGroup) {
      EXPECT_TRUE((style & WS_GROUP) != 0) << Name(child) << " must begin a group";
      inRadioGroup = true;
      EXPECT_TRUE((style & WS_TABSTOP) != 0) << Name(child);
    } else if (inRadioGroup && !radio) {
      ADD_FAILURE() << Name(child) << " belongs to the radio group before it";
    } else if (!radio && windowClass != kStatic && windowClass != kSpin && !IsGroupBox(child)) {
      EXPECT_TRUE((style & WS_TABSTOP) != 0) << Name(child);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, TemplateTest,
                         testing::Combine(testing::ValuesIn(kModules),
                                          testing::ValuesIn(kTemplates)),
                         [](const auto& test) {
                           return (*std::get<0>(test.param) != '\0' ? "English" : "Japanese") +
                                  std::to_string(std::get<1>(test.param));
                         });

// What FillIn puts into a text, in its order.
std::string Placeholders(const std::string& text) {
  std::string found;
  for (std::size_t mark = text.find('%'); mark != std::string::npos;
       mark = text.find('%', mark + 1)) {
    found += text.substr(mark, 2);
  }
  return found;
}

TEST(TextTest, TranslationsKeepThePlaceholders) {
  const auto text = [](HMODULE module, UINT id) {
    char shown[1024] = "";
    ::LoadStringA(module, id, shown, sizeof shown);
    return std::string(shown);
  };
  const HMODULE modules[] = {LoadResources(kModules[0]), LoadResources(kModules[1])};
  for (UINT id = 1; id < 0xFFFF; ++id) {
    const std::string japanese = text(modules[0], id);
    const std::string english = text(modules[1], id);
    EXPECT_EQ(japanese.empty(), english.empty()) << id;
    EXPECT_EQ(Placeholders(japanese), Placeholders(english)) << id;
  }
}

}  // namespace
}  // namespace zn::test
