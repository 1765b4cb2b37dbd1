// The illustrations of the pages: their words, and drawing that leaves nothing behind.
#include "pages/illustration.h"

#include <commctrl.h>

#include "host/base/resource_usage.h"
#include "page_sheet.h"
#include "pages/page_images.h"
#include "pages/tips.h"
#include "res/resource_ids.h"

namespace zn::test {
namespace {

class Illustration : public PageSheetTest {
 protected:
  void AddEntries(int list, bool isExtended, std::initializer_list<const char*> names) const {
    for (const char* name : names) {
      std::string text = Japanese(name);
      COMBOBOXEXITEMA entry{};
      entry.mask = CBEIF_TEXT;
      entry.iItem = -1;
      entry.pszText = text.data();
      if (isExtended) {
        ::SendMessageA(Control(list), CBEM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&entry));
      } else {
        ::SendMessageA(Control(list), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
      }
    }
  }
  void ClearLists(std::initializer_list<int> lists) const {
    for (const int list : lists) {
      ::SendMessageA(Control(list), CB_RESETCONTENT, 0, 0);
    }
  }
  [[nodiscard]] std::string Words(IllustrationKind kind,
                                  std::initializer_list<std::pair<KeywordId, int>> selections) {
    for (const auto& [id, selection] : selections) {
      SetSelections(id, 0, static_cast<std::uint32_t>(selection));
    }
    ShowIllustration(Page(), *sheet_, kind);
    return Text(IDC_ILLUSTRATION);
  }
};

TEST_F(Illustration, SaysWhatTheLayoutIs) {
  Open(kBasicPage);
  ClearLists({IDC_BASIC_OUTPUT_SIZE, IDC_BASIC_DUPLEX, IDC_BASIC_NUP, IDC_BASIC_COLOR_MODE});
  AddEntries(IDC_BASIC_OUTPUT_SIZE, false, {"同じ", "A3"});
  AddEntries(IDC_BASIC_DUPLEX, true, {"しない", "長辺とじ", "短辺とじ"});
  AddEntries(IDC_BASIC_NUP, true, {"しない", "2", "4", "6", "9", "16", "小冊子"});
  AddEntries(IDC_BASIC_COLOR_MODE, true, {"カラー", "白黒"});
  SetSelections(KW_PAGESIZE, 0, 0xFFFF);  // no form has this number
  EXPECT_EQ(Words(IllustrationKind::Layout, {{KW_COPIES, 1}}),
            Japanese(" たて、片面、カラー、1部"));
  EXPECT_EQ(Words(IllustrationKind::Layout, {{KW_ORIENTATION, 1},
                                             {KW_DUPLEX, 1},
                                             {KW_NUP, 1},
                                             {KW_NUPBORDER, 1},
                                             {KW_COLORMODEL, 1},
                                             {KW_COPIES, 3}}),
            Japanese(" よこ、2ページを1枚に、境界線あり、両面(長辺とじ)、白黒、3部"));
  EXPECT_EQ(Words(IllustrationKind::Layout, {{KW_ORIENTATION, 2},
                                             {KW_OUTPUTPAPERSIZE, 1},
                                             {KW_PAGEPRINTONCENTER, 1},
                                             {KW_PAGEFITSIZE, 1},
                                             {KW_DUPLEX, 7},
                                             {KW_NUP, 6}}),
            Japanese(" 横置きに回転、A3の用紙に出力、用紙の中心、用紙サイズに合わせる、小冊子、"
                     "境界線あり、白黒、3部"))
      << "a list without the entry has no word for it";
}

TEST_F(Illustration, SaysWhatTheDeviceLacks) {
  Open(kTrayPage);
  ClearLists({IDC_TRAY_STAPLE, IDC_TRAY_PUNCH, IDC_TRAY_JOG, IDC_TRAY_OUTPUT, IDC_TRAY_SOURCE});
  AddEntries(IDC_TRAY_STAPLE, true, {"なし", "左上"});
  AddEntries(IDC_TRAY_PUNCH, true, {"なし", "左"});
  AddEntries(IDC_TRAY_JOG, true, {"しない", "1部ごと"});
  EXPECT_EQ(Words(IllustrationKind::Output, {{KW_COLLATE, 0}}),
            Japanese("ホチキスなし、パンチなし、ソートなし"));
  const HWND staples = Control(IDC_TRAY_STAPLE);
  ::SendMessageA(staples, CBEM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(SharedImages(IDB_STAPLE)));
  COMBOBOXEXITEMA entry{};
  entry.mask = CBEIF_IMAGE;
  entry.iItem = 1;
  entry.iImage = ::ImageList_GetImageCount(SharedImages(IDB_STAPLE)) - 1;
  ::SendMessageA(staples, CBEM_SETITEMA, 0, reinterpret_cast<LPARAM>(&entry));
  sheet_->hasPageOrder = true;
  EXPECT_EQ(
      Words(IllustrationKind::Output,
            {{KW_STAPLE, 1}, {KW_PUNCH, 1}, {KW_COLLATE, 1}, {KW_JOG, 1}, {KW_PAGEORDER, 1}}),
      Japanese("ホチキス(左上 ※装置がありません)、パンチ(左)、ソート、オフセット排出(1部ごと)、"
               "ページは逆順"));
}

TEST_F(Illustration, EveryJobIsDrawnWithoutALeak) {
  Open(kBasicPage);
  const HDC screen = ::GetDC(nullptr);
  const UniqueMemoryDC memory(::CreateCompatibleDC(screen));
  const UniqueBitmap bitmap(::CreateCompatibleBitmap(screen, 140, 280));
  ::ReleaseDC(nullptr, screen);
  const HGDIOBJ before = ::SelectObject(memory.get(), bitmap.get());
  DRAWITEMSTRUCT item{};
  item.hDC = memory.get();
  item.hwndItem = Control(IDC_ILLUSTRATION);
  int drawn = 0;
  const auto drawAll = [&] {
    for (const std::uint32_t value : {0u, 1u, 2u, 3u, 5u, 6u, 10u, 13u, 21u, 0xFFFFFFFFu}) {
      for (KeywordId id = 0; id < KW_MAX; ++id) {
        SetSelections(id, 0, value);
      }
      for (const auto kind : {IllustrationKind::Layout, IllustrationKind::Output}) {
        for (const RECT& area : {RECT{0, 0, 140, 280}, RECT{0, 0, 9, 3}}) {
          item.rcItem = area;
          ::PatBlt(memory.get(), 0, 0, 140, 280, BLACKNESS);
          drawn += DrawIllustration(item, *sheet_, kind) ? 1 : 0;
          EXPECT_EQ(::GetPixel(memory.get(), 0, 0), ::GetSysColor(COLOR_BTNFACE));
        }
      }
    }
  };
  drawAll();  // the system keeps the fonts that were used once
  const int objects = host::CountResources().gdiObjects;
  drawAll();
  EXPECT_EQ(host::CountResources().gdiObjects, objects);
  EXPECT_EQ(drawn, 80);
  item.rcItem = {5, 5, 5, 90};
  EXPECT_FALSE(DrawIllustration(item, *sheet_, IllustrationKind::Layout));
  ::SelectObject(memory.get(), before);
}

}  // namespace
}  // namespace zn::test
