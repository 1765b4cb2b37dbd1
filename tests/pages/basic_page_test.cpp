// The basic page, driven by messages as its user would. The favourites lie in a folder of the test;
// the printer has four papers, of which the last is the custom one.
#include <share.h>

#include <cstring>

#include "bridge/companion_abi.h"
#include "favorites/sheet_favorites.h"
#include "page_sheet.h"
#include "platform/driver_interfaces.h"
#include "res/resource_ids.h"
#include "session/forms.h"
#include "tests/support/temp_folder.h"

namespace zn::test {
namespace {

constexpr char kPapers[][64] = {"A4", "A3", "B5", "custom"};
constexpr std::uint32_t kCustom = 3;
constexpr int kClick = -1;
constexpr char kStandard[] = "標準";
constexpr char kChangedStandard[] = "<変更>標準";

std::string g_documents;

BOOL WINAPI FakeSpecialFolder(HWND, LPSTR path, int, BOOL) {
  std::strcpy(path, g_documents.c_str());
  return TRUE;
}

int WINAPI FakeCapabilities(LPCSTR, LPCSTR, WORD capability, LPSTR names, const DEVMODEA*) {
  if (capability != DC_PAPERNAMES) {
    return -1;
  }
  if (names != nullptr) {
    std::memcpy(names, kPapers, sizeof kPapers);
  }
  return std::size(kPapers);
}

class BasicPage : public PageSheetTest {
 protected:
  BasicPage() {
    g_documents = documents_.Path();
    LoadForms("printer");
    for (KeywordId id = 0; id < KW_MAX; ++id) {
      SetSelections(id, 0, 0);
    }
    SetSelections(KW_COPIES, 1, 1);
    SetSelections(KW_CUSTOMPAPERWIDTH, 210'000, 210'000);
    SetSelections(KW_CUSTOMPAPERHEIGHT, 297'000, 297'000);
    types_[KW_DUPLEX].Count = 3;
  }
  ~BasicPage() override { ::SetEnvironmentVariableA("ZN_COMPANION_ANSWER", nullptr); }

  SheetFavorites& Favorites() { return SheetFavorites::Of(*sheet_); }

  // The text of the favourites list and how many entries it has.
  [[nodiscard]] std::string Favorite() const {
    char text[64] = "";
    COMBOBOXEXITEMA entry{};
    entry.mask = CBEIF_TEXT;
    entry.iItem = Selected(IDC_BASIC_FAVORITES);
    entry.pszText = text;
    entry.cchTextMax = sizeof text;
    ::SendMessageA(Control(IDC_BASIC_FAVORITES), CBEM_GETITEMA, 0,
                   reinterpret_cast<LPARAM>(&entry));
    return text;
  }
  // How many files are opened while `work` is done.
  template <class Work>
  static int FilesOpened(Work&& work) {
    static int opened;
    opened = 0;
    const ImportPatch patch(
        ::GetModuleHandleA(nullptr), "fopen", +[](const char* path, const char* mode) {
          ++opened;
          return ::_fsopen(path, mode, _SH_DENYNO);
        });
    work();
    return opened;
  }
  [[nodiscard]] LRESULT Entries() const {
    return ::SendMessageA(Control(IDC_BASIC_FAVORITES), CB_GETCOUNT, 0, 0);
  }
  // Chooses an entry from the open list.
  void ChooseFavorite(int entry) const {
    const auto report = [&](WORD code) {
      EXPECT_EQ(Ask(kBasicPage, WM_COMMAND, MAKEWPARAM(IDC_BASIC_FAVORITES, code), 0), 1);
    };
    report(CBN_DROPDOWN);
    ::SendMessageA(Control(IDC_BASIC_FAVORITES), CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
    report(CBN_SELENDOK);
    report(CBN_CLOSEUP);
  }
  // A click, the choice of an entry, or a number of copies.
  void Use(int control, int entry) const {
    if (entry == kClick) {
      Click(control);
    } else if (control == IDC_BASIC_COPIES) {
      ::SetDlgItemInt(Page(), control, static_cast<UINT>(entry), FALSE);
    } else {
      Choose(control, entry);
    }
  }
  // Saves the current settings as the favourite of that name.
  void Save(const char* name, const char* newName = nullptr, const char* comment = nullptr) const {
    Drive({[&](HWND dialog) {
            char shown[64] = "";
            ::GetDlgItemTextA(dialog, IDC_FAVORITE_NAME, shown, sizeof shown);
            EXPECT_STREQ(shown, name);
            if (newName != nullptr) {
              ::SetDlgItemTextA(dialog, IDC_FAVORITE_NAME, newName);
            }
            if (comment != nullptr) {
              ::SetDlgItemTextA(dialog, IDC_FAVORITE_COMMENT, comment);
            }
            ::SendDlgItemMessageA(dialog, IDOK, BM_CLICK, 0, 0);
          }},
          [&] { Click(IDC_SAVE_FAVORITE); });
  }
  TempFolder documents_;
  ImportPatch specialFolder_{::GetModuleHandleA(nullptr), "SHGetSpecialFolderPathA",
                             &FakeSpecialFolder};
  ImportPatch capabilities_{::GetModuleHandleA(nullptr), "DeviceCapabilitiesA", &FakeCapabilities};
};

TEST_F(BasicPage, EveryControlStoresMarksTheFavoriteAndReports) {
  const struct {
    int control, entry;
    KeywordId keyword;
    std::uint32_t stored;
    int back, backEntry;
  } rows[] = {
      {IDC_BASIC_PAGE_SIZE, 1, KW_PAGESIZE, 1, IDC_BASIC_PAGE_SIZE, 0},
      {IDC_BASIC_OUTPUT_SIZE, 2, KW_OUTPUTPAPERSIZE, 2, IDC_BASIC_OUTPUT_SIZE, 0},
      {IDC_BASIC_ROTATED, kClick, KW_ORIENTATION, 2, IDC_BASIC_PORTRAIT, kClick},
      {IDC_BASIC_COLOR_MODE, 1, KW_COLORMODEL, 1, IDC_BASIC_COLOR_MODE, 0},
      {IDC_BASIC_DUPLEX, 2, KW_DUPLEX, 2, IDC_BASIC_DUPLEX, 0},
      {IDC_BASIC_NUP, 3, KW_NUP, 3, IDC_BASIC_NUP, 0},
      {IDC_BASIC_COPIES, 9999, KW_COPIES, 9999, IDC_BASIC_COPIES, 1},
      {IDC_BASIC_FIT_SIZE, 1, KW_PAGEFITSIZE, 1, IDC_BASIC_FIT_SIZE, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.control);
    Open(kBasicPage);
    EXPECT_FALSE(CanApply());
    ASSERT_EQ(Favorite(), Japanese(kStandard));
    ::ValidateRect(Control(IDC_ILLUSTRATION), nullptr);
    Use(row.control, row.entry);
    EXPECT_EQ(Current(row.keyword), row.stored);
    EXPECT_EQ(Favorite(), Japanese(kChangedStandard));
    EXPECT_EQ(Entries(), 2);
    EXPECT_TRUE(CanApply());
    Use(row.back, row.backEntry);
    EXPECT_EQ(Current(row.keyword), sheet_->Default(row.keyword));
    EXPECT_EQ(Favorite(), Japanese(kStandard));
    EXPECT_EQ(Entries(), 1);
    Close();
  }
  // Codes and controls that are no commands.
  Open(kBasicPage);
  for (const int code : {2, 3, 4, 5, 6, 7, 8, 9, 16, 256, 1024}) {
    EXPECT_EQ(Ask(kBasicPage, WM_COMMAND, MAKEWPARAM(IDC_BASIC_COLOR_MODE, code), 0), 0) << code;
  }
  EXPECT_FALSE(CanApply());
  EXPECT_EQ(Ask(kBasicPage, WM_COMMAND, MAKEWPARAM(4711, BN_CLICKED), 0), 1);
  EXPECT_TRUE(CanApply());
}

TEST_F(BasicPage, SettingsFollowOneAnother) {
  using Values = std::array<std::uint32_t, 5>;  // duplex, N-up, border, output size, centre
  const struct {
    Values before;
    int control, entry;
    Values after;
    bool canBorder, canCenter;
  } rows[] = {
      {{0, 0, 1, 0, 0}, IDC_BASIC_NUP, 6, {1, 6, 1, 0, 0}, true, false},  // two sides only
      {{2, 0, 1, 0, 0}, IDC_BASIC_NUP, 6, {2, 6, 1, 0, 0}, true, false},
      {{1, 6, 1, 0, 0}, IDC_BASIC_DUPLEX, 0, {0, 1, 1, 0, 0}, true, false},
      {{1, 5, 1, 0, 0}, IDC_BASIC_DUPLEX, 0, {0, 5, 1, 0, 0}, true, false},
      {{0, 3, 1, 0, 0}, IDC_BASIC_NUP, 0, {0, 0, 1, 0, 0}, false, false},  // keeps its value
      {{0, 3, 1, 0, 0}, IDC_BASIC_NUP_BORDER, kClick, {0, 3, 0, 0, 0}, true, false},
      {{0, 0, 0, 2, 1}, IDC_BASIC_OUTPUT_SIZE, 0, {0, 0, 0, 0, 0}, false, false},
      {{0, 0, 0, 0, 1}, IDC_BASIC_OUTPUT_SIZE, 1, {0, 0, 0, 1, 0}, false, true},
      {{0, 0, 0, 1, 0}, IDC_BASIC_ON_CENTER, kClick, {0, 0, 0, 1, 1}, false, true},
  };
  constexpr std::array kKeywords{KW_DUPLEX, KW_NUP, KW_NUPBORDER, KW_OUTPUTPAPERSIZE,
                                 KW_PAGEPRINTONCENTER};
  for (const auto& row : rows) {
    SCOPED_TRACE(::testing::PrintToString(row.before));
    for (std::size_t i = 0; i < kKeywords.size(); ++i) {
      SetSelections(kKeywords[i], 0, row.before[i]);
    }
    Open(kBasicPage);
    Use(row.control, row.entry);
    Values now{};
    for (std::size_t i = 0; i < kKeywords.size(); ++i) {
      now[i] = Current(kKeywords[i]);
    }
    EXPECT_EQ(now, row.after);
    const Values shown{static_cast<std::uint32_t>(Selected(IDC_BASIC_DUPLEX)),
                       static_cast<std::uint32_t>(Selected(IDC_BASIC_NUP)),
                       IsChecked(IDC_BASIC_NUP_BORDER),
                       static_cast<std::uint32_t>(Selected(IDC_BASIC_OUTPUT_SIZE)),
                       IsChecked(IDC_BASIC_ON_CENTER)};
    EXPECT_EQ(shown, row.after);
    EXPECT_EQ(::IsWindowEnabled(Control(IDC_BASIC_NUP_BORDER)) != FALSE, row.canBorder);
    EXPECT_EQ(::IsWindowEnabled(Control(IDC_BASIC_ON_CENTER)) != FALSE, row.canCenter);
    Close();
  }
}

TEST_F(BasicPage, NUPImagesFollowTheOrientation) {
  Open(kBasicPage);
  const auto image = [this](int entry) {
    COMBOBOXEXITEMA item{};
    item.mask = CBEIF_IMAGE;
    item.iItem = entry;
    ::SendMessageA(Control(IDC_BASIC_NUP), CBEM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    return item.iImage;
  };
  EXPECT_EQ(image(6), 11);
  Click(IDC_BASIC_LANDSCAPE);
  EXPECT_EQ(image(0), 0);
  EXPECT_EQ(image(6), 12);
  // A radio that does not report itself checked changes nothing.
  EXPECT_EQ(Ask(kBasicPage, WM_COMMAND, MAKEWPARAM(IDC_BASIC_PORTRAIT, BN_CLICKED), 0), 1);
  EXPECT_EQ(Current(KW_ORIENTATION), 1u);
}

TEST_F(BasicPage, CopiesAreRepairedWhenTheEditIsLeft) {
  SetSelections(KW_COPIES, 1, 20);
  Open(kBasicPage);
  EXPECT_EQ(Text(IDC_BASIC_COPIES), "20");
  EXPECT_EQ(::SendMessageA(Control(IDC_BASIC_COPIES), EM_GETLIMITTEXT, 0, 0), 4);
  ::SetDlgItemTextA(Page(), IDC_BASIC_COPIES, "0");
  EXPECT_EQ(Ask(kBasicPage, WM_COMMAND, MAKEWPARAM(IDC_BASIC_COPIES, EN_KILLFOCUS), 0), 1);
  EXPECT_NE(Text(IDC_BASIC_COPIES), "0");
  EXPECT_EQ(Text(IDC_BASIC_COPIES), std::to_string(Current(KW_COPIES)));
}

TEST_F(BasicPage, ForbiddenDuplexIsAskedAbout) {
  const struct {
    int answer;
    std::uint32_t duplex, mediaType;
  } rows[] = {{IDOK, 2, 0}, {IDCANCEL, 0, 6}, {0, 2, 6}};
  for (const auto& row : rows) {
    SetSelections(KW_ZNMEDIATYPE, 0, 6);
    SetSelections(KW_DUPLEX, 0, 0);
    messageAnswer = row.answer;
    messages.clear();
    Open(kBasicPage);
    Choose(IDC_BASIC_DUPLEX, 2);
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_EQ(Current(KW_DUPLEX), row.duplex);
    EXPECT_EQ(Current(KW_ZNMEDIATYPE), row.mediaType);
    EXPECT_EQ(Selected(IDC_BASIC_DUPLEX), static_cast<int>(row.duplex));
    Close();
  }
}

TEST_F(BasicPage, CustomSizeIsEditedWheneverItIsChosen) {
  Open(kBasicPage);
  const auto isEditShown = [this] {
    return (::GetWindowLongPtrA(Control(IDC_BASIC_EDIT_SIZE), GWL_STYLE) & WS_VISIBLE) != 0;
  };
  EXPECT_FALSE(isEditShown());
  const auto enter = [](const char* width, int button) {
    return [=](HWND dialog) {
      ::SetDlgItemTextA(dialog, IDC_CUSTOM_WIDTH, width);
      ::SendMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
    };
  };
  Drive({enter("100.00", IDC_CUSTOM_OK)}, [&] { Choose(IDC_BASIC_PAGE_SIZE, kCustom); });
  EXPECT_TRUE(isEditShown());
  EXPECT_NEAR(Current(KW_CUSTOMPAPERWIDTH), 100'000, 1);
  EXPECT_EQ(Favorite(), Japanese(kChangedStandard));
  Drive({enter("200.00", IDCANCEL)}, [&] { Click(IDC_BASIC_EDIT_SIZE); });
  EXPECT_NEAR(Current(KW_CUSTOMPAPERWIDTH), 100'000, 1);
  Drive({enter("200.00", IDC_CUSTOM_OK)}, [&] { Choose(IDC_BASIC_PAGE_SIZE, kCustom); });
  EXPECT_NEAR(Current(KW_CUSTOMPAPERWIDTH), 200'000, 1);
  Choose(IDC_BASIC_PAGE_SIZE, 0);
  EXPECT_FALSE(isEditShown());
}

TEST_F(BasicPage, TheMarkFollowsSavingChoosingRestoringAndReopening) {
  Open(kBasicPage);
  Choose(IDC_BASIC_COLOR_MODE, 1);
  Save("", "fair", "for the fair");
  EXPECT_EQ(Favorite(), "fair");
  EXPECT_EQ(Entries(), 2);
  EXPECT_EQ(FilesOpened([this] { Choose(IDC_BASIC_DUPLEX, 1); }), 0) << "the mark reads no file";
  EXPECT_EQ(Favorite(), Japanese("<変更>fair"));
  EXPECT_EQ(Entries(), 3);
  EXPECT_GT(FilesOpened([this] { Save("fair", nullptr); }), 0) << "over the old one";
  EXPECT_EQ(Favorite(), "fair");
  EXPECT_EQ(Favorites().List().Count(), 1u);
  EXPECT_EQ(Favorites().Load(0)->comment, "for the fair");

  ChooseFavorite(0);
  EXPECT_EQ(Favorite(), Japanese(kStandard));
  EXPECT_EQ(Current(KW_COLORMODEL), 0u);
  EXPECT_EQ(Selected(IDC_BASIC_DUPLEX), 0);
  Choose(IDC_BASIC_NUP, 2);
  EXPECT_EQ(Selected(IDC_BASIC_FAVORITES), 1) << "the mark stands behind the standard";
  ChooseFavorite(1);  // the marked one changes nothing
  EXPECT_EQ(Current(KW_NUP), 2u);
  ChooseFavorite(2);
  EXPECT_EQ(Favorite(), "fair");
  EXPECT_EQ(Entries(), 2) << "the mark of another entry goes";
  EXPECT_EQ(Current(KW_NUP), 0u);
  EXPECT_EQ(Current(KW_COLORMODEL), 1u);
  EXPECT_EQ(Current(KW_DUPLEX), 1u);
  EXPECT_EQ(Selected(IDC_BASIC_COLOR_MODE), 1);

  Click(IDC_RESTORE_DEFAULTS);
  EXPECT_EQ(Favorite(), Japanese("<変更>fair"));
  ChooseFavorite(1);  // the favourite again, without the changes
  EXPECT_EQ(Favorite(), "fair");
  EXPECT_EQ(Current(KW_COLORMODEL), 1u);
  Close();
  Open(kBasicPage);
  EXPECT_EQ(Favorite(), Japanese(kChangedStandard));
  EXPECT_EQ(Entries(), 3);
}

TEST_F(BasicPage, TroubleWithFavoritesIsTold) {
  Open(kBasicPage);
  Choose(IDC_BASIC_COLOR_MODE, 1);
  Choose(IDC_BASIC_PAGE_SIZE, 1);
  Save("", "fair");
  const struct {
    const char* replacement;  // of the line of the paper; null: the file goes
    std::uint32_t paper, color;
    std::string favorite;
    std::size_t entries;
    const char* message;
  } rows[] = {
      {"PageSize=B5\n", 2, 1, "fair", 2, nullptr},
      {"PageSize=Nowhere\n", 0, 1, "fair", 2,
       "お気に入りに設定されている用紙サイズは、このコンピュータに登録されていません。"},
      {"", 0, 1, "fair", 2, "旧形式のお気に入りを読み込みました。"},
      {nullptr, 0, 0, Japanese(kStandard), 1, "お気に入りの読み込みに失敗しました。"},
  };
  const std::string file = "Zentrik\\Quorra QR\\LM5050\\favorite\\fair.pfj";
  const std::string saved = documents_.Read(file);
  const std::size_t paperLine = saved.find("PageSize=");
  ASSERT_NE(paperLine, saved.npos);
  for (const auto& row : rows) {
    ChooseFavorite(0);
    messages.clear();
    if (row.replacement != nullptr) {
      documents_.Write(file, saved.substr(0, paperLine) + row.replacement);
    } else {
      ASSERT_TRUE(::DeleteFileA(documents_.Path(file).c_str()));
    }
    ChooseFavorite(1);
    EXPECT_EQ(Current(KW_PAGESIZE), row.paper);
    EXPECT_EQ(Current(KW_COLORMODEL), row.color);
    EXPECT_EQ(Favorite(), row.favorite);
    EXPECT_EQ(Entries(), static_cast<LRESULT>(row.entries));
    ASSERT_EQ(messages.size(), row.message != nullptr ? 1u : 0u);
    if (row.message != nullptr) {
      EXPECT_TRUE(messages[0].text.starts_with(Japanese(row.message))) << messages[0].text;
      EXPECT_EQ(messages[0].caption, Japanese("警告"));
    }
  }
  // No folder to save in: told, and nothing changes.
  g_documents = documents_.Write("no folder", "");
  sheet_->favorites.reset();
  messages.clear();
  Save("", "other");
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_NE(messages[0].text.find("other"), std::string::npos);
  EXPECT_EQ(Favorite(), Japanese(kStandard));
}

TEST_F(BasicPage, SummaryDeletesAndKeepsTheSettings) {
  Open(kBasicPage);
  Choose(IDC_BASIC_COLOR_MODE, 1);
  for (const char* name : {"one", "two", "three"}) {
    ChooseFavorite(0);
    Choose(IDC_BASIC_COLOR_MODE, 1);
    Save("", name);
  }
  Choose(IDC_BASIC_NUP, 2);  // <changed>three
  const struct {
    const char* answer;
    std::size_t left;
    const char* favorite;
  } rows[] = {{"cancel;delete=one", 3, "<変更>three"},
              {"ok;delete=one;select=two", 2, "<変更>three"},
              {"ok;delete=three", 1, kChangedStandard}};
  for (const auto& row : rows) {
    ::SetEnvironmentVariableA("ZN_COMPANION_ANSWER", row.answer);
    Click(IDC_LIST_FAVORITES);
    EXPECT_EQ(Favorites().List().Count(), row.left);
    EXPECT_EQ(Favorite(), Japanese(row.favorite));
    EXPECT_EQ(Entries(), static_cast<LRESULT>(row.left) + 2);
    EXPECT_EQ(Current(KW_COLORMODEL), 1u);
    EXPECT_EQ(Current(KW_NUP), 2u);
  }
}

TEST_F(BasicPage, SummaryAsksForItsTree) {
  using companion_abi::SummaryItem;
  sheet_->hasPageOrder = true;
  Open(kBasicPage);
  constexpr int kTreeClassLength = 32;
  Drive({[](HWND dialog) {
          HWND tree = ::GetWindow(dialog, GW_CHILD);
          char name[kTreeClassLength] = "";
          while (tree != nullptr && std::strcmp(name, WC_TREEVIEWA) != 0) {
            tree = ::GetWindow(tree, GW_HWNDNEXT);
            ::GetClassNameA(tree, name, sizeof name);
          }
          EXPECT_EQ(::SendMessageA(tree, TVM_GETCOUNT, 0, 0), 50);
          ::SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
        }},
        [&] { Click(IDC_LIST_FAVORITES); });
  // Anybody can send the message.
  std::array<SummaryItem, companion_abi::kSummaryItemCount> items{};
  for (const LPARAM table : {LPARAM{0}, LPARAM{1}, LPARAM{-1}, reinterpret_cast<LPARAM>(&items)}) {
    EXPECT_EQ(Ask(kBasicPage, companion_abi::kSendTreeItemsMessage, 0, table), 1);
  }
  EXPECT_EQ(items[0].id, 0u) << "no summary is open";
  EXPECT_EQ(Ask(kBasicPage, WM_USER + 150, 0, 0), 1);
}

TEST_F(BasicPage, WithoutCompanionAndBeyondListsItStillWorks) {
  for (const KeywordId id : {KW_PAGESIZE, KW_OUTPUTPAPERSIZE, KW_ORIENTATION, KW_COLORMODEL,
                             KW_DUPLEX, KW_NUP, KW_PAGEFITSIZE}) {
    SetSelections(id, 0, 0xFFFFFFFF);
  }
  SetSelections(KW_COPIES, 1, 70'000);
  Open(kBasicPage, false);
  EXPECT_EQ(Selected(IDC_BASIC_PAGE_SIZE), -1);
  EXPECT_EQ(Selected(IDC_BASIC_NUP), -1);
  EXPECT_EQ(Current(KW_NUP), 0xFFFFFFFF);
  Click(IDC_LIST_FAVORITES);
  Choose(IDC_BASIC_PAGE_SIZE, 2);
  EXPECT_EQ(Current(KW_PAGESIZE), 2u);
  Click(IDC_RESTORE_DEFAULTS);
  EXPECT_EQ(Current(KW_NUP), 0u);
  EXPECT_EQ(Current(KW_COPIES), 1u);
  EXPECT_EQ(Selected(IDC_BASIC_PAGE_SIZE), 0);
}

}  // namespace
}  // namespace zn::test
