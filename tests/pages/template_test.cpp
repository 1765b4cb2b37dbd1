// Every dialog template, as the system lays it out: what the code relies on, and what a user needs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "page_sheet.h"
#include "res/resource_ids.h"

namespace zn::test {
namespace {

struct Template {
  int id;
  const char* caption;
  std::map<std::string, std::vector<int>> controls;  // by window class
};

void PrintTo(const Template& value, std::ostream* out) {
  *out << value.id;
}

constexpr char kStatic[] = "Static";
constexpr char kButton[] = "Button";
constexpr char kEdit[] = "Edit";
constexpr char kList[] = "ComboBox";
constexpr char kExtended[] = "ComboBoxEx32";
constexpr char kSpin[] = "msctls_updown32";

const std::vector<Template> kTemplates{
    {IDD_BASIC_PAGE,
     "基本",
     {{kStatic,
       {IDC_BASIC_FAVORITES_LABEL, IDC_BASIC_PAGE_SIZE_LABEL, IDC_BASIC_OUTPUT_SIZE_LABEL,
        IDC_BASIC_FIT_SIZE_LABEL, IDC_BASIC_COPIES_LABEL, IDC_BASIC_DUPLEX_LABEL,
        IDC_BASIC_NUP_LABEL, IDC_BASIC_COLOR_MODE_LABEL, IDC_ILLUSTRATION}},
      {kButton,
       {IDC_SAVE_FAVORITE, IDC_LIST_FAVORITES, IDC_BASIC_EDIT_SIZE, IDC_BASIC_ORIENTATION_GROUP,
        IDC_BASIC_PORTRAIT, IDC_BASIC_LANDSCAPE, IDC_BASIC_ROTATED, IDC_BASIC_ON_CENTER,
        IDC_BASIC_NUP_BORDER, IDC_RESTORE_DEFAULTS}},
      {kEdit, {IDC_BASIC_COPIES}},
      {kList, {IDC_BASIC_PAGE_SIZE, IDC_BASIC_OUTPUT_SIZE}},
      {kExtended,
       {IDC_BASIC_FAVORITES, IDC_BASIC_FIT_SIZE, IDC_BASIC_DUPLEX, IDC_BASIC_NUP,
        IDC_BASIC_COLOR_MODE}},
      {kSpin, {IDC_BASIC_COPIES_SPIN}}}},
    {IDD_TRAY_PAGE,
     "トレイ/排出",
     {{kStatic,
       {IDC_TRAY_SOURCE_LABEL, IDC_TRAY_OUTPUT_LABEL, IDC_TRAY_JOG_LABEL, IDC_TRAY_STAPLE_LABEL,
        IDC_TRAY_PUNCH_LABEL, IDC_ILLUSTRATION}},
      {kButton,
       {IDC_TRAY_BYPASS_SETTINGS, IDC_TRAY_AUTO_SETTINGS, IDC_TRAY_PAGE_ORDER_GROUP,
        IDC_TRAY_FORWARD_ORDER, IDC_TRAY_REVERSE_ORDER, IDC_TRAY_COLLATE, IDC_RESTORE_DEFAULTS}},
      {kExtended,
       {IDC_TRAY_SOURCE, IDC_TRAY_OUTPUT, IDC_TRAY_JOG, IDC_TRAY_STAPLE, IDC_TRAY_PUNCH}}}},
    {IDD_WATERMARK_PAGE,
     "ウォーターマーク",
     {{kStatic,
       {IDC_WATERMARK_NUMBER_LABEL, IDC_WATERMARK_LEFT, IDC_WATERMARK_TOP, IDC_WATERMARK_RIGHT,
        IDC_WATERMARK_BOTTOM, IDC_WATERMARK_ORDER_LABEL}},
      {kButton,
       {IDC_WATERMARK_ON, IDC_WATERMARK_POSITION_GROUP, IDC_WATERMARK_UPPER_LEFT,
        IDC_WATERMARK_UPPER_RIGHT, IDC_WATERMARK_LOWER_LEFT, IDC_WATERMARK_LOWER_RIGHT,
        IDC_WATERMARK_CENTER, IDC_WATERMARK_RESTORE_DEFAULTS}},
      {kList, {IDC_WATERMARK_NUMBER, IDC_WATERMARK_POSITION, IDC_WATERMARK_ORDER}}}},
    {IDD_JOB_PAGE,
     "Quorra QR",
     {{kStatic,
       {IDC_JOB_NAME_MODE_LABEL, IDC_JOB_NAME_LABEL, IDC_JOB_COLOR_MODE_LABEL,
        IDC_JOB_PRINTER_MODE_LABEL}},
      {kButton,
       {IDC_JOB_NAME_AUTOMATIC, IDC_JOB_NAME_ENTERED, IDC_JOB_SPOOL_GROUP, IDC_JOB_SPOOL_NONE,
        IDC_JOB_SPOOL_AFTER_PRINT, IDC_JOB_SPOOL_ONLY, IDC_JOB_PRINT_OPTIONS,
        IDC_RESTORE_DEFAULTS}},
      {kEdit, {IDC_JOB_NAME}},
      {kExtended, {IDC_JOB_COLOR_MODE, IDC_JOB_PRINTER_MODE}}}},
    {IDD_JOB_PAGE_FAVORITE,
     "Quorra QR",
     {{kStatic,
       {IDC_JOB_NAME_MODE_LABEL, IDC_JOB_NAME_LABEL, IDC_JOB_COLOR_MODE_LABEL,
        IDC_JOB_PRINTER_MODE_LABEL}},
      {kButton,
       {IDC_JOB_NAME_AUTOMATIC, IDC_JOB_NAME_ENTERED, IDC_JOB_SPOOL_GROUP, IDC_JOB_SPOOL_NONE,
        IDC_JOB_SPOOL_AFTER_PRINT, IDC_JOB_SPOOL_ONLY, IDC_JOB_PRINT_OPTIONS, IDC_RESTORE_DEFAULTS,
        IDC_SAVE_FAVORITE, IDC_LIST_FAVORITES, IDC_JOB_NAME_BUTTON}},
      {kEdit, {IDC_JOB_NAME}},
      {kExtended, {IDC_JOB_COLOR_MODE, IDC_JOB_PRINTER_MODE, IDC_JOB_FAVORITES}}}},
    {IDD_DEVICE_PAGE, "初期設定", {{kButton, {IDC_DEVICE_AUTHENTICATION}}}},
    {IDD_MEDIA_TYPE_AUTO,
     "自動トレイの用紙設定",
     {{kStatic, {IDC_MEDIA_TYPE_LABEL, IDC_MEDIA_WEIGHT_LABEL, IDC_MEDIA_COLOR_LABEL}},
      {kButton, {IDOK, IDCANCEL, IDC_RESTORE_DEFAULTS}},
      {kExtended, {IDC_MEDIA_TYPE, IDC_MEDIA_WEIGHT, IDC_MEDIA_COLOR}}}},
    {IDD_MEDIA_TYPE_BYPASS,
     "手差し設定",
     {{kStatic,
       {IDC_MEDIA_TYPE_LABEL, IDC_MEDIA_WEIGHT_LABEL, IDC_MEDIA_COLOR_LABEL,
        IDC_MEDIA_MANUAL_DUPLEX_LABEL}},
      {kButton, {IDOK, IDCANCEL, IDC_RESTORE_DEFAULTS, IDC_MEDIA_TAKE_OVER}},
      {kList, {IDC_MEDIA_MANUAL_DUPLEX}},
      {kExtended, {IDC_MEDIA_TYPE, IDC_MEDIA_WEIGHT, IDC_MEDIA_COLOR}}}},
    {IDD_CUSTOM_PAGE_SIZE,
     "PostScript カスタム ページ サイズの定義",
     {{kStatic, {IDC_CUSTOM_WIDTH_RANGE, IDC_CUSTOM_HEIGHT_RANGE}},
      {kButton,
       {IDC_CUSTOM_INCH, IDC_CUSTOM_MILLIMETER, IDC_CUSTOM_POINT, IDC_CUSTOM_OK, IDC_CUSTOM_CANCEL,
        IDC_CUSTOM_DEFAULTS}},
      {kEdit, {IDC_CUSTOM_WIDTH, IDC_CUSTOM_HEIGHT}},
      {kList, {IDC_CUSTOM_DIRECTION}}}},
    {IDD_SAVE_FAVORITE,
     "お気に入りの保存",
     {{kButton, {IDOK, IDCANCEL}}, {kEdit, {IDC_FAVORITE_NAME, IDC_FAVORITE_COMMENT}}}},
};

INT_PTR CALLBACK PlainDialog(HWND, UINT, WPARAM, LPARAM) {
  return FALSE;
}

class TemplateTest : public testing::TestWithParam<Template> {
 protected:
  void SetUp() override {
    frame_ =
        ::CreateWindowA("Static", "", WS_POPUP, 0, 0, 800, 800, nullptr, nullptr, nullptr, nullptr);
    dialog_ = ::CreateDialogParamA(::GetModuleHandleA(nullptr), MAKEINTRESOURCEA(GetParam().id),
                                   frame_, &PlainDialog, 0);
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

TEST_P(TemplateTest, HasExactlyItsControls) {
  EXPECT_EQ(TextOf(dialog_), Japanese(GetParam().caption));
  std::map<std::string, std::vector<int>> present;
  for (const HWND child : children_) {
    if (const auto id = static_cast<SHORT>(::GetDlgCtrlID(child)); id != -1) {
      present[ClassOf(child)].push_back(::GetDlgCtrlID(child));
    }
  }
  ASSERT_EQ(present.size(), GetParam().controls.size());
  for (const auto& [windowClass, ids] : GetParam().controls) {
    EXPECT_THAT(present[windowClass], testing::UnorderedElementsAreArray(ids)) << windowClass;
  }
}

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

INSTANTIATE_TEST_SUITE_P(All, TemplateTest, testing::ValuesIn(kTemplates),
                         testing::PrintToStringParamName());

}  // namespace
}  // namespace zn::test
