// The tray and output page, driven by messages as its user would.
#include <map>

#include "page_sheet.h"
#include "pages/page_images.h"
#include "res/resource_ids.h"
#include "session/job_values.h"
#include "tests/support/temp_folder.h"

namespace zn::test {
namespace {

constexpr std::uint32_t kTrays = 7;
constexpr std::uint32_t kOutputs = 5;
constexpr std::uint32_t kBypass = 6;

class TrayPage : public PageSheetTest {
 protected:
  TrayPage() {
    types_[KW_SOURCE].Count = kTrays;
    types_[KW_OUTPUTTRAY].Count = kOutputs;
    types_[KW_STAPLE].Count = 22;
    sheet_->hasPageOrder = true;
  }

  // The installed device has what the lines say; without lines nobody knows.
  void Install(const char* lines) {
    folder_.Write("device.cps", lines);
    SetDeviceProfile(*sheet_, "device");
    profile_ = folder_.Path("driver.ppd");
  }
  void OpenTray() {
    FakeDriverPath::data = profile_;
    Open(kTrayPage);
  }
  [[nodiscard]] int Image(int listId, int index) const {
    COMBOBOXEXITEMA entry{};
    entry.mask = CBEIF_IMAGE;
    entry.iItem = index;
    ::SendMessageA(Control(listId), CBEM_GETITEMA, 0, reinterpret_cast<LPARAM>(&entry));
    return entry.iImage;
  }
  [[nodiscard]] std::vector<int> Images(int listId) const {
    std::vector<int> images;
    for (LRESULT i = 0; i < ::SendMessageA(Control(listId), CB_GETCOUNT, 0, 0); ++i) {
      images.push_back(Image(listId, static_cast<int>(i)));
    }
    return images;
  }
  using Pair = std::pair<std::uint32_t, std::uint32_t>;
  [[nodiscard]] Pair Punch() const { return {Current(KW_PUNCH), Current(KW_PUNCHHOLES)}; }
  void SetPunch(std::uint32_t punch, std::uint32_t holes) {
    SetSelections(KW_PUNCH, 0, punch);
    SetSelections(KW_PUNCHHOLES, 0, holes);
  }

  TempFolder folder_;
  std::string profile_;
};

TEST_F(TrayPage, EveryControlStoresAndReports) {
  const struct {
    int control, entry;  // -1: a click
    KeywordId keyword;
    std::uint32_t stored;
  } rows[] = {
      {IDC_TRAY_SOURCE, 3, KW_SOURCE, 3},
      {IDC_TRAY_OUTPUT, 2, KW_OUTPUTTRAY, 2},
      {IDC_TRAY_JOG, 1, KW_JOG, 1},
      {IDC_TRAY_COLLATE, -1, KW_COLLATE, 1},
      {IDC_TRAY_STAPLE, 19, KW_STAPLE, 19},
      {IDC_TRAY_PUNCH, 8, KW_PUNCH, 3},
      {IDC_TRAY_REVERSE_ORDER, -1, KW_PAGEORDER, 1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.control);
    OpenTray();
    EXPECT_FALSE(CanApply());
    if (row.entry < 0) {
      Click(row.control);
    } else {
      Choose(row.control, row.entry);
    }
    EXPECT_EQ(Current(row.keyword), row.stored);
    EXPECT_TRUE(CanApply());
    for (const int code : {2, 7, 9, 256, 512}) {
      EXPECT_EQ(Ask(kTrayPage, WM_COMMAND, MAKEWPARAM(row.control, code), 0), 0) << code;
    }
    // Another page may have changed it meanwhile.
    ASSERT_TRUE(Activate(kJobPage));
    sheet_->RestoreDefault(row.keyword);
    ASSERT_TRUE(Activate(kTrayPage));
    if (row.entry < 0) {
      EXPECT_FALSE(IsChecked(row.control));
    } else {
      EXPECT_EQ(Selected(row.control), 0);
    }
    Close();
  }
}

TEST_F(TrayPage, PunchEntriesStandForPairs) {
  OpenTray();
  ASSERT_EQ(::SendMessageA(Control(IDC_TRAY_PUNCH), CB_GETCOUNT, 0, 0), 16);
  sheet_->SetCurrent(KW_MIXSIZEPRINT, 0);
  std::map<int, Pair> pairs;
  for (int entry = 0; entry < 16; ++entry) {
    SCOPED_TRACE(entry);
    messageAnswer = 0;  // what a question would refuse stands
    Choose(IDC_TRAY_PUNCH, entry);
    pairs[entry] = Punch();
    ASSERT_TRUE(Activate(kJobPage));
    ASSERT_TRUE(Activate(kTrayPage));
    EXPECT_EQ(Selected(IDC_TRAY_PUNCH), entry);
  }
  // By number of holes: any, four, three.
  EXPECT_EQ(pairs[0], (Pair{0, 0}));
  EXPECT_EQ(pairs[5], (Pair{13, 0}));
  EXPECT_EQ(pairs[6], (Pair{1, 2}));
  EXPECT_EQ(pairs[15], (Pair{13, 1}));
  Choose(IDC_TRAY_PUNCH, -1);
  EXPECT_EQ(Punch(), pairs[15]) << "no entry stores nothing";
  Close();
  // On purpose option 13, and what is beyond the lists, is not shown again.
  for (const Pair& pair : {Pair{13, 0}, Pair{6, 0}, Pair{1, 3}, Pair{0xFFFFFFFF, 0xFFFFFFFF}}) {
    SetPunch(pair.first, pair.second);
    OpenTray();
    EXPECT_EQ(Selected(IDC_TRAY_PUNCH), -1);
    EXPECT_EQ(Punch(), pair);
    Close();
  }
  SetPunch(5, 2);
  OpenTray();
  EXPECT_EQ(Selected(IDC_TRAY_PUNCH), 10);
}

TEST_F(TrayPage, ForbiddenFinishingIsAskedAbout) {
  const struct {
    int list, entry, answer;
    std::uint32_t staple;
    Pair punch;
    int stapleShown, punchShown;
  } rows[] = {
      {IDC_TRAY_STAPLE, 9, IDOK, 9, {0, 0}, 9, 0},
      {IDC_TRAY_STAPLE, 9, IDCANCEL, 0, {1, 2}, 0, 6},
      {IDC_TRAY_STAPLE, 9, 0, 9, {1, 2}, 9, 6},
      {IDC_TRAY_PUNCH, 6, IDOK, 0, {1, 2}, 0, 6},
      {IDC_TRAY_PUNCH, 6, IDCANCEL, 9, {2, 1}, 9, 12},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.answer);
    const bool isStaple = row.list == IDC_TRAY_STAPLE;
    SetSelections(KW_STAPLE, 0, isStaple ? 0 : 9);
    SetPunch(isStaple ? 1 : 2, isStaple ? 2 : 1);
    messageAnswer = row.answer;
    messages.clear();
    OpenTray();
    Choose(row.list, row.entry);
    EXPECT_GE(messages.size(), 1u);
    EXPECT_EQ(Current(KW_STAPLE), row.staple);
    EXPECT_EQ(Punch(), row.punch);
    EXPECT_EQ(Selected(IDC_TRAY_STAPLE), row.stapleShown);
    EXPECT_EQ(Selected(IDC_TRAY_PUNCH), row.punchShown);
    Close();
  }
}

TEST_F(TrayPage, WhatTheDeviceLacksIsMarkedAndCanBeChosen) {
  const std::vector<int> staples{0, 1,  2,  3,  4,  5,  6,  7,  8,  9, 9,
                                 9, 10, 11, 12, 13, 14, 15, 16, 17, 1, 7};
  const std::vector<int> punches{0, 1, 2, 3, 4, 1, 5, 6, 7, 8, 5, 9, 10, 11, 12, 9};
  const int noStaple = ::ImageList_GetImageCount(SharedImages(IDB_STAPLE)) - 1;
  const int noPunch = ::ImageList_GetImageCount(SharedImages(IDB_PUNCH)) - 1;
  constexpr int kNone = I_IMAGENONE;
  const auto allBut = [](int first, std::size_t count, int mark) {
    std::vector<int> images(count, mark);
    images[0] = first;
    return images;
  };
  const struct {
    const char* lines;
    std::vector<int> sources, outputs, staples, punches;
  } rows[] = {
      {nullptr, {}, {}, staples, punches},  // no images at all in the first two
      {"HasOption_InputSlot_Tray2=true\nHasOption_DFinisher=true\nHasOption_ZNStaple=true\n",
       {kNone, 0, kNone, 0, 0, 0, 0},
       {kNone, 0, 0, kNone, kNone},
       staples,
       allBut(0, 16, noPunch)},
      {"HasOption_ZNPunch=true\n",
       {kNone, 0, 0, 0, 0, 0, 0},
       {kNone, 0, 0, 0, 0},
       allBut(0, 22, noStaple),
       punches},
  };
  for (const auto& row : rows) {
    if (row.lines != nullptr) {
      Install(row.lines);
    }
    OpenTray();
    if (row.lines != nullptr) {
      EXPECT_EQ(Images(IDC_TRAY_SOURCE), row.sources);
      EXPECT_EQ(Images(IDC_TRAY_OUTPUT), row.outputs);
    }
    EXPECT_EQ(Images(IDC_TRAY_STAPLE), row.staples);
    EXPECT_EQ(Images(IDC_TRAY_PUNCH), row.punches);
    EXPECT_EQ(::SendMessageA(Control(IDC_TRAY_SOURCE), CBEM_GETIMAGELIST, 0, 0) != 0,
              row.lines != nullptr);
    Choose(IDC_TRAY_SOURCE, kBypass);
    EXPECT_EQ(Current(KW_SOURCE), kBypass);
    Close();
  }
  // The profile can change between two visits.
  OpenTray();
  ASSERT_TRUE(Activate(kJobPage));
  Install("HasOption_InputSlot_Tray1=true\n");
  ASSERT_TRUE(Activate(kTrayPage));
  EXPECT_EQ(Image(IDC_TRAY_SOURCE, 1), kNone);
  EXPECT_EQ(Image(IDC_TRAY_PUNCH, 1), noPunch);
}

TEST_F(TrayPage, AnUnknownNumberOfSourcesStopsTheFilling) {
  types_[KW_SOURCE].Count = kTrays + 1;
  OpenTray();
  EXPECT_EQ(::SendMessageA(Control(IDC_TRAY_SOURCE), CB_GETCOUNT, 0, 0), 0);
  EXPECT_EQ(Ask(kTrayPage, WM_COMMAND, MAKEWPARAM(IDC_RESTORE_DEFAULTS, BN_CLICKED), 0), 0);
}

TEST_F(TrayPage, WithoutPageOrderItsRadiosAreHidden) {
  for (const bool has : {true, false}) {
    sheet_->hasPageOrder = has;
    SetSelections(KW_PAGEORDER, 0, 0);
    OpenTray();
    for (const int id :
         {IDC_TRAY_PAGE_ORDER_GROUP, IDC_TRAY_FORWARD_ORDER, IDC_TRAY_REVERSE_ORDER}) {
      EXPECT_EQ((::GetWindowLongPtrA(Control(id), GWL_STYLE) & WS_VISIBLE) != 0, has);
    }
    Click(IDC_TRAY_REVERSE_ORDER);
    EXPECT_EQ(Current(KW_PAGEORDER), has ? 1u : 0u);
    Close();
  }
}

TEST_F(TrayPage, PaperSettingsAskForTheirSource) {
  const struct {
    int button;
    std::uint32_t source;
    int answer;
    std::uint32_t after;
    bool asks;
  } rows[] = {
      {IDC_TRAY_BYPASS_SETTINGS, 2, IDYES, kBypass, true},
      {IDC_TRAY_BYPASS_SETTINGS, 2, IDNO, 2, true},
      {IDC_TRAY_BYPASS_SETTINGS, kBypass, IDNO, kBypass, false},
      {IDC_TRAY_AUTO_SETTINGS, 2, IDYES, 0, true},
      {IDC_TRAY_AUTO_SETTINGS, 0, IDNO, 0, false},
  };
  for (const auto& row : rows) {
    SetSelections(KW_SOURCE, 0, row.source);
    SetSelections(KW_PAPERCOLOR, 0, 0);
    messageAnswer = row.answer;
    messages.clear();
    OpenTray();
    Drive({[](HWND dialog) {
            ::SendDlgItemMessageA(dialog, IDC_MEDIA_COLOR, CB_SETCURSEL, 1, 0);
            ::SendMessageA(dialog, WM_COMMAND, IDOK, 0);
          }},
          [&] { Click(row.button); });
    EXPECT_EQ(messages.size(), row.asks ? 1u : 0u);
    EXPECT_EQ(Current(KW_SOURCE), row.after);
    EXPECT_EQ(Selected(IDC_TRAY_SOURCE), static_cast<int>(row.after));
    EXPECT_EQ(Current(KW_PAPERCOLOR), row.button == IDC_TRAY_AUTO_SETTINGS ? 1u : 0u);
    EXPECT_TRUE(CanApply());
    Close();
  }
}

TEST_F(TrayPage, RestoringCoversThePaperSettings) {
  constexpr std::array kRestored{KW_SOURCE,
                                 KW_OUTPUTTRAY,
                                 KW_JOG,
                                 KW_COLLATE,
                                 KW_STAPLE,
                                 KW_PUNCH,
                                 KW_PUNCHHOLES,
                                 KW_PAGEORDER,
                                 KW_AUTOTRAYSETTINGTOBYPASS,
                                 KW_MEDIATYPEBYPASS,
                                 KW_MEDIATYPEWEIGHTBYPASS,
                                 KW_PAPERCOLORBYPASS,
                                 KW_MANUALFEEDDUPLEX,
                                 KW_ZNMEDIATYPE,
                                 KW_MEDIATYPEWEIGHT,
                                 KW_PAPERCOLOR};
  for (const KeywordId id : kRestored) {
    SetSelections(id, 1, 0);
  }
  SetSelections(KW_NUP, 0, 2);
  OpenTray();
  EXPECT_EQ(Ask(kTrayPage, WM_COMMAND, MAKEWPARAM(IDC_RESTORE_DEFAULTS, BN_CLICKED), 0), 1);
  for (const KeywordId id : kRestored) {
    EXPECT_EQ(Current(id), 1u) << id;
  }
  EXPECT_EQ(Current(KW_NUP), 2u);
  EXPECT_EQ(Selected(IDC_TRAY_PUNCH), 11);
  EXPECT_TRUE(messages.empty());
  EXPECT_FALSE(CanApply());
}

}  // namespace
}  // namespace zn::test
