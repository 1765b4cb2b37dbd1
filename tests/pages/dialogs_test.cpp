// The modal dialogs, really run, and used as their user would.
#include <cstring>
#include <functional>

#include "page_sheet.h"
#include "pages/custompageeditdlg.h"
#include "pages/savepresetdlg.h"

namespace zn::test {
namespace {

class DialogTest : public PageSheetTest {
 protected:
  DialogTest() {
    FakeDriverPath::path = BesideProgram("driver.dll");
    record_ = takeFocus_.Original<decltype(TakeFocus)>();
  }

  // Runs a dialog and `use` in it, which has to close it.
  int Run(const std::function<int()>& open, const std::function<void()>& use) {
    int result = 0;
    Drive({[&](HWND dialog) {
            dialog_ = dialog;
            use();
          }},
          [&] { result = open(); });
    return result;
  }

  [[nodiscard]] HWND Page() const override { return dialog_; }
  static int FocusedId() { return ::GetDlgCtrlID(::GetFocus()); }
  void Focus(int id) const { ::SetFocus(Control(id)); }
  // Types a text in place of the old one, and stays in the edit.
  void Enter(int id, const std::string& text) const {
    Focus(id);
    ::SendMessageA(Control(id), EM_SETSEL, 0, -1);
    ::SendMessageA(Control(id), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
  }
  void Push(int id) const {
    Focus(id);
    Click(id);
  }
  static void Press(WPARAM key) { ::PostMessageA(::GetFocus(), WM_KEYDOWN, key, 0); }

 private:
  // A message box takes the focus and gives it back.
  static int WINAPI TakeFocus(HWND owner, LPCSTR text, LPCSTR caption, UINT style) {
    const HWND focus = ::SetFocus(nullptr);
    record_(owner, text, caption, style);
    ::SetFocus(focus);
    return messageAnswer;
  }

  static inline int(WINAPI* record_)(HWND, LPCSTR, LPCSTR, UINT);
  HWND dialog_ = nullptr;
  ImportPatch takeFocus_{::GetModuleHandleA(nullptr), "MessageBoxA", &TakeFocus};
};

// --- Custom paper size ---

class CustomPageEdit : public DialogTest {
 protected:
  int Use(const std::function<void()>& use) {
    SetSelections(KW_CUSTOMPAPERWIDTH, 297000, 210000);
    SetSelections(KW_CUSTOMPAPERHEIGHT, 420000, 150000);
    SetSelections(KW_CUSTOMPAPERDIRECTION, 1, 2);
    CCustomPageEditDlg dialog(sheet_.get());
    return Run([&] { return dialog.DoModal(); }, use);
  }
  void ExpectShown(const char* text, int unitRadio) const {
    EXPECT_EQ(Text(IDC_CUSTOM_WIDTH) + Text(IDC_CUSTOM_WIDTH_RANGE) + Text(IDC_CUSTOM_HEIGHT) +
                  Text(IDC_CUSTOM_HEIGHT_RANGE),
              text);
    for (const int radio : {IDC_CUSTOM_INCH, IDC_CUSTOM_MILLIMETER, IDC_CUSTOM_POINT}) {
      EXPECT_EQ(IsChecked(radio), radio == unitRadio) << radio;
    }
  }
};

TEST_F(CustomPageEdit, ShowsTheStoredSizeAndWhatIsEntered) {
  const int result = Use([this] {
    ExpectShown("210.00(25.40, 330.00)150.00(25.40, 660.40)", IDC_CUSTOM_MILLIMETER);
    EXPECT_EQ(::SendMessageA(Control(IDC_CUSTOM_DIRECTION), CB_GETCOUNT, 0, 0), 4);
    EXPECT_EQ(Text(IDC_CUSTOM_DIRECTION), Japanese("短辺送り(180度回転)"));
    EXPECT_EQ(FocusedId(), IDC_CUSTOM_WIDTH);
    Enter(IDC_CUSTOM_WIDTH, "100");
    ExpectShown("100(25.40, 330.00)150.00(25.40, 660.40)", IDC_CUSTOM_MILLIMETER);
    Focus(IDC_CUSTOM_HEIGHT);  // what was typed counts once the edit is left
    ExpectShown("100(25.40, 660.40)150.00(25.40, 330.00)", IDC_CUSTOM_MILLIMETER);
    Choose(IDC_CUSTOM_DIRECTION, 3);
    ExpectShown("100(25.40, 330.00)150.00(25.40, 660.40)", IDC_CUSTOM_MILLIMETER);
    Enter(IDC_CUSTOM_HEIGHT, "");
    Focus(IDC_CUSTOM_WIDTH);
    EXPECT_EQ(Text(IDC_CUSTOM_HEIGHT), "0.00");
    Push(IDC_CUSTOM_POINT);
    EXPECT_EQ(FocusedId(), IDC_CUSTOM_POINT);
    ExpectShown("283.46(72.00, 1872.00)72.00(72.00, 935.43)", IDC_CUSTOM_POINT);
    Push(IDC_CUSTOM_INCH);
    Push(IDC_CUSTOM_DEFAULTS);
    ExpectShown("11.69(1.00, 12.99)16.54(1.00, 26.00)", IDC_CUSTOM_INCH);
    EXPECT_EQ(Selected(IDC_CUSTOM_DIRECTION), 1);
    Press(VK_ESCAPE);
  });
  EXPECT_EQ(result, IDC_CUSTOM_CANCEL);
  EXPECT_EQ(calls_[companion::Call::Load], 1);
  EXPECT_TRUE(messages.empty());
}

TEST_F(CustomPageEdit, StoresOnOkOnly) {
  using Values = std::vector<std::uint32_t>;
  const Values before{210000, 150000, 2};
  const std::function<void()> outOfRange = [this] {
    Enter(IDC_CUSTOM_WIDTH, "700");
    Enter(IDC_CUSTOM_HEIGHT, "10");
    Press(VK_RETURN);
    Press(VK_ESCAPE);
  };
  const struct {
    const char* name;
    std::function<void()> use;
    int result;
    Values stored;
    int answer = 0;  // to the question; 0: it is not asked
  } rows[] = {
      {"Enter in an edit",
       [this] {
         Choose(IDC_CUSTOM_DIRECTION, 1);
         Enter(IDC_CUSTOM_WIDTH, "420");
         Press(VK_RETURN);
       },
       IDC_CUSTOM_OK,
       {420001, 150001, 1}},
      {"inches, no direction",
       [this] {
         Choose(IDC_CUSTOM_DIRECTION, -1);
         Push(IDC_CUSTOM_INCH);
         Enter(IDC_CUSTOM_WIDTH, "8.5");
         Enter(IDC_CUSTOM_HEIGHT, "11");
         Push(IDC_CUSTOM_OK);
       },
       IDC_CUSTOM_OK,
       {215901, 279401, 2}},
      {"out of range, as entered", outOfRange, IDC_CUSTOM_OK, {700001, 10001, 2}, IDOK},
      {"the question refused", outOfRange, IDC_CUSTOM_CANCEL, before, IDCANCEL},
      {"no list",
       [this] {
         ::DestroyWindow(Control(IDC_CUSTOM_DIRECTION));
         Push(IDC_CUSTOM_OK);
         Push(IDC_CUSTOM_CANCEL);
       },
       IDC_CUSTOM_CANCEL, before},
      {"closed",
       [this] {
         Choose(IDC_CUSTOM_DIRECTION, 1);
         ::SendMessageA(Page(), WM_CLOSE, 0, 0);
       },
       IDC_CUSTOM_CANCEL, before},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    messages.clear();
    messageAnswer = row.answer;
    EXPECT_EQ(Use(row.use), row.result);
    EXPECT_EQ((Values{Current(KW_CUSTOMPAPERWIDTH), Current(KW_CUSTOMPAPERHEIGHT),
                      Current(KW_CUSTOMPAPERDIRECTION)}),
              row.stored);
    ASSERT_EQ(messages.size(), row.answer != 0 ? 1U : 0U);
    if (row.answer != 0) {
      EXPECT_EQ(messages[0].caption, Japanese("カスタム ページ サイズ エラー"));
      EXPECT_EQ(messages[0].style, UINT{MB_OKCANCEL | MB_ICONSTOP});
    }
  }
}

// --- Saving a favourite ---

using SavePreset = DialogTest;

TEST_F(SavePreset, TakesNameAndCommentOrTellsWhatIsWrong) {
  const std::string unusable = Japanese(
      "[名前]に無効な文字列が設定されています。"
      "1から27バイト(半角27/全角13文字)までの範囲内で設定してください。");
  const std::string tooLong = Japanese(
      "[コメント]に無効な文字列が設定されています。"
      "1から255バイト(半角255/全角127文字)までの範囲内で設定してください。");
  const std::string standard = Japanese("標準");
  const std::string x255(255, 'x');
  const struct {
    std::string name, comment;
    std::string message;  // empty: both are taken
    int focus = 0;
    int selected = 0;
  } rows[] = {
      {std::string(27, 'n'), "", ""},
      {Japanese("ソ表ポ"), "two\r\nlines", ""},
      {"fair", x255, ""},
      {std::string(28, 'n'), "", unusable, IDC_FAVORITE_NAME, 28},
      {"", "", unusable, IDC_FAVORITE_NAME, 0},
      {"a|b", x255 + "x", unusable, IDC_FAVORITE_NAME, 3},
      {"con.txt", "", unusable, IDC_FAVORITE_NAME, 7},
      {standard, "", Japanese("[名前]には\"標準\"以外の文字列を設定してください。"),
       IDC_FAVORITE_NAME, 0},
      {"fair", x255 + "x", tooLong, IDC_FAVORITE_COMMENT, 256},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    messages.clear();
    CSavePresetDlg::Name name;
    CSavePresetDlg::Comment comment = "old";
    std::strcpy(name, standard.c_str());
    const int result = Run([&] { return CSavePresetDlg().DoModal(name, comment); },
                           [&] {
                             EXPECT_EQ(Text(IDC_FAVORITE_NAME), "")
                                 << "the standard settings' name is not offered";
                             EXPECT_EQ(Text(IDC_FAVORITE_COMMENT), "old");
                             EXPECT_EQ(FocusedId(), IDC_FAVORITE_NAME);
                             Enter(IDC_FAVORITE_COMMENT, row.comment);
                             Enter(IDC_FAVORITE_NAME, row.name);
                             if (row.message.empty()) {
                               Press(VK_RETURN);
                               return;
                             }
                             Push(IDOK);
                             EXPECT_EQ(FocusedId(), row.focus);
                             EXPECT_EQ(::SendMessageA(Control(row.focus), EM_GETSEL, 0, 0),
                                       MAKELRESULT(0, row.selected));
                             Press(VK_ESCAPE);
                           });
    const bool isTaken = row.message.empty();
    EXPECT_EQ(result, isTaken ? IDOK : IDCANCEL);
    EXPECT_EQ(name, isTaken ? row.name : standard);
    EXPECT_EQ(comment, isTaken ? row.comment : "old");
    ASSERT_EQ(messages.size(), isTaken ? 0U : 1U);
    if (!isTaken) {
      EXPECT_EQ(messages[0].text, row.message);
      EXPECT_EQ(messages[0].caption, Japanese("警告"));
      EXPECT_EQ(messages[0].style, UINT{MB_ICONEXCLAMATION});
    }
  }
}

}  // namespace
}  // namespace zn::test
