// All pages of the preferences together, on the shipped DLL: what one page, a dialog or a favourite
// sets is what the others, the core driver and the next sheet have.
#include <algorithm>
#include <cstring>
#include <map>

#include "host/base/dialog_driver.h"
#include "host/driver/report.h"
#include "host/private_favorites.h"
#include "host/window/page_use.h"
#include "res/resource_ids.h"
#include "tests/host/host_fixture.h"

namespace zn::test {
namespace {

using host::DocumentSheet;
using host::QueueDevMode;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr int kTwoSidedType = 2;  // of the paper types, most of which restrict the duplex setting
constexpr int kGray = 1;          // of the colour modes

// What belongs to the job at hand: no favourite carries it and no default replaces it.
constexpr const char* kJobName[] = {"4/1221", "4/1222", "4/1224"};
constexpr char kJobNameLost[] =
    "block 2156 job name mode: 1 -> 0\nblock 2160 job name: \"text\" -> \"\"\n";

// The values that the sheet shows, by page and control.
using Shown = std::map<std::string, std::string>;

Shown Read(DocumentSheet& sheet) {
  Shown shown;
  for (int index = 0; index < sheet.Sheet().PageCount(); ++index) {
    const HWND page = sheet.Sheet().ShowPage(index);
    EXPECT_NE(page, nullptr) << "page " << index;
    for (const auto& [control, value] : host::ReadControls(page)) {
      shown[std::to_string(index) + "/" + control] = value;
    }
  }
  shown.erase("0/1300");  // the list of favourites itself
  return shown;
}

std::string Differences(const Shown& before, const Shown& after) {
  std::string lines;
  for (const auto& [control, value] : before) {
    if (after.at(control) != value) {
      lines.append(control).append(": ").append(value).append(" -> ");
      lines.append(after.at(control)).append("\n");
    }
  }
  return lines;
}

template <class Belongs>
void Replace(Shown& shown, const Shown& by, Belongs belongs) {
  for (const auto& [control, value] : by) {
    if (belongs(control)) {
      shown[control] = value;
    }
  }
}

bool IsJobName(const std::string& control) {
  return std::ranges::find(kJobName, control) != std::end(kJobName);
}

// Fills the dialogs of the pages in and says yes to every question.
void UseDialog(HWND dialog) {
  if (::GetDlgItem(dialog, IDC_CUSTOM_OK) != nullptr) {
    Enter(dialog, IDC_CUSTOM_WIDTH, "150");
    Enter(dialog, IDC_CUSTOM_HEIGHT, "250.5");
    host::ChooseEntry(::GetDlgItem(dialog, IDC_CUSTOM_DIRECTION), 2);
    Click(dialog, IDC_CUSTOM_OK);
  } else if (::GetDlgItem(dialog, IDC_MEDIA_TYPE) != nullptr) {
    host::ChangeControls(dialog);
    host::ChooseEntry(::GetDlgItem(dialog, IDC_MEDIA_TYPE), kTwoSidedType);
    host::ChooseEntry(::GetDlgItem(dialog, IDC_MEDIA_WEIGHT), 0);
    Click(dialog, IDOK);
  } else {
    const int yes = ::GetDlgItem(dialog, IDYES) != nullptr ? IDYES : IDOK;
    ::PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(yes), 0);
  }
}

class WholeSheetTest : public HostTest {
 protected:
  WholeSheetTest() {
    start_.Private().driver.noBorder = 1;  // what the first OK leaves without N-up
    queue_->Store(start_);
    ::SetCurrentDirectoryA("C:\\");  // the companion is found relative to the drive's root
  }
  ~WholeSheetTest() override { ::SetEnvironmentVariableA("ZN_COMPANION_ANSWER", nullptr); }

  QueueDevMode PressOk(DocumentSheet& sheet) {
    sheet.Sheet().PressOk();
    EXPECT_TRUE(sheet.Sheet().EndedWithOk());
    EXPECT_EQ(sheet.Sheet().Result(), static_cast<DWORD>(CPSUI_OK));
    return Finish(sheet);
  }
  QueueDevMode PressCancel(DocumentSheet& sheet) {
    sheet.Sheet().PressCancel();
    return Finish(sheet);
  }
  QueueDevMode Finish(DocumentSheet& sheet) {
    QueueDevMode kept = sheet.Finish();
    EXPECT_THAT(sheet.Faults(), IsEmpty());
    return kept;
  }

  std::string Changes(const QueueDevMode& before, const QueueDevMode& after) {
    return host::DevModeReport(queue_->Description(), before, after);
  }

  // Works on a page; the dialogs that come up are filled in.
  template <class Work>
  void OnPage(DocumentSheet& sheet, int index, Work work) {
    const HWND page = sheet.Sheet().ShowPage(index);
    ASSERT_NE(page, nullptr) << "page " << index;
    host::DriveDialogs(sheet.Sheet().Window(), 10, &UseDialog, [&] { work(page); });
  }

  void ChangeEverything(DocumentSheet& sheet) {
    for (int index = 0; index < kPages; ++index) {
      OnPage(sheet, index, [index](HWND page) {
        if (index == kTrayPage) {
          Click(page, IDC_TRAY_BYPASS_SETTINGS);
          Click(page, IDC_TRAY_AUTO_SETTINGS);
        }
        host::ChangeControls(page);
        if (index == kBasicPage) {
          const HWND sizes = ::GetDlgItem(page, IDC_BASIC_PAGE_SIZE);
          const LRESULT count = ::SendMessageA(sizes, CB_GETCOUNT, 0, 0);
          host::ChooseEntry(sizes, static_cast<int>(count) - 1);  // the custom one
        } else if (index == kJobPage) {
          Choose(page, IDC_JOB_COLOR_MODE, kGray);  // shared: changed here for the second time
        }
      });
    }
  }

  // The pages with the button that restores their defaults.
  static constexpr Page kRestoring[] = {kBasicPage, kTrayPage, kWatermarkPage, kJobPage};
  void RestoreDefaults(DocumentSheet& sheet, int index) {
    OnPage(sheet, index, [index](HWND page) {
      Click(page, index == kWatermarkPage ? IDC_WATERMARK_RESTORE_DEFAULTS : IDC_RESTORE_DEFAULTS);
    });
  }

  // Of the standard settings and one favourite, between which there may be a changed mark.
  enum class Favorite : std::uint8_t { Standard, Saved };
  void ChooseFavorite(DocumentSheet& sheet, Favorite favorite) {
    OnPage(sheet, kBasicPage, [favorite](HWND page) {
      const HWND list = ::GetDlgItem(page, IDC_BASIC_FAVORITES);
      const LRESULT last = ::SendMessageA(list, CB_GETCOUNT, 0, 0) - 1;
      host::ChooseEntry(list, favorite == Favorite::Saved ? static_cast<int>(last) : 0);
    });
  }

  QueueDevMode start_ = Defaults();
};

TEST_F(WholeSheetTest, EveryControlComesBackAfterOkAndByItsFavorite) {
  const host::PrivateFavorites favorites(plugIn_->Module());
  auto sheet = Open(start_);
  const Shown defaults = Read(*sheet);
  ChangeEverything(*sheet);
  const Shown changed = Read(*sheet);
  for (const auto& [control, value] : defaults) {
    if (changed.at(control) == value && value != "unchecked") {
      ADD_FAILURE() << control << " was not changed from " << value;
    }
  }
  SaveFavorite(sheet->Sheet(), sheet->Sheet().ShowPage(kBasicPage), "all");
  QueueDevMode kept = PressOk(*sheet);
  queue_->Store(kept);

  sheet = Open(kept);
  EXPECT_EQ(Differences(changed, Read(*sheet)), "") << "reopened";
  for (const char* ofDialogs :
       {"ZNMediaType", "ZNMediaTypeWeight", "ZNPaperColor", "ZNManualFeedDuplex",
        "ZNAutoTraySettingToBypass", "ZNMediaTypeBypass", "ZNMediaTypeWeightBypass",
        "ZNPaperColorBypass", "customPaperWidth", "customPaperHeight", "customPaperDirection"}) {
    EXPECT_THAT(Changes(start_, kept), HasSubstr(' ' + std::string(ofDialogs) + ": "));
  }
  Shown expected = changed;
  for (const int index : kRestoring) {
    SCOPED_TRACE(index);
    RestoreDefaults(*sheet, index);
    Replace(expected, defaults, [index](const std::string& control) {
      return (control.starts_with(std::to_string(index) + "/") && !IsJobName(control)) ||
             control == "4/1036";  // the colour mode of the basic page, too
    });
    EXPECT_EQ(Differences(expected, Read(*sheet)), "") << "restored";
  }
  ChooseFavorite(*sheet, Favorite::Saved);
  EXPECT_EQ(Differences(changed, Read(*sheet)), "") << "favourite";
  EXPECT_EQ(Changes(kept, PressOk(*sheet)), "");

  sheet = Open(kept);
  ChooseFavorite(*sheet, Favorite::Standard);
  expected = defaults;
  Replace(expected, changed, &IsJobName);
  EXPECT_EQ(Differences(expected, Read(*sheet)), "") << "standard settings";
  EXPECT_EQ(Changes(PressOk(*sheet), start_), kJobNameLost);
  queue_->Store(start_);

  sheet = Open(start_);
  ChooseFavorite(*sheet, Favorite::Saved);
  expected = changed;
  Replace(expected, defaults, &IsJobName);
  EXPECT_EQ(Differences(expected, Read(*sheet)), "") << "favourite in another sheet";
  EXPECT_EQ(Changes(kept, PressOk(*sheet)), kJobNameLost);
}

TEST_F(WholeSheetTest, DriverNoticesWhatItWasNotTold) {
  const auto sheet = Open(start_);
  sheet->Items().Find("ZNFold")->Sel = 1;
  sheet->Sheet().PressOk();
  sheet->Finish();
  EXPECT_THAT(sheet->Faults(), ElementsAre("ZNFold changed without DrvUpdateUISetting"));
}

TEST_F(WholeSheetTest, CancelKeepsWhatTheLastApplyLeft) {
  auto sheet = Open(start_);
  ChangeEverything(*sheet);
  EXPECT_EQ(Changes(start_, PressCancel(*sheet)), "");

  sheet = Open(start_);
  ChangeEverything(*sheet);
  sheet->Sheet().PressApply();
  EXPECT_TRUE(sheet->Sheet().IsOpen());
  const Shown applied = Read(*sheet);
  for (const int index : kRestoring) {
    RestoreDefaults(*sheet, index);
  }
  QueueDevMode kept = PressCancel(*sheet);
  queue_->Store(kept);
  sheet = Open(kept);
  EXPECT_EQ(Differences(applied, Read(*sheet)), "");
  for (const int index : kRestoring) {
    RestoreDefaults(*sheet, index);
  }
  EXPECT_EQ(Changes(start_, PressOk(*sheet)),
            // what has no control on those pages, and the job's name
            "option %Scaling: 100 -> 2\noption %TTOption: 0 -> 1\noption %ICMMethod: 0 -> 1\n"
            "option %ICMIntent: 0 -> 1\noption Resolution: 600dpi -> 1200dpi\n"
            "driver flags: 0 -> 6\ndriver psOutputOption: 0 -> 1\n"
            "driver trueTypeFontDownload: 0 -> 1\n"
            "driver customPaperWidth: 210000 -> 150001\n"
            "driver customPaperHeight: 297000 -> 250501\n"
            "driver customPaperDirection: 0 -> 2\ndriver psLanguageLevel: 3 -> 2\n"
            "block 2156 job name mode: 0 -> 1\nblock 2160 job name: \"\" -> \"text\"\n");
}

TEST_F(WholeSheetTest, PagesShowWhatAnotherPageOrTheOptionDialogSet) {
  const auto sheet = Open(start_);
  Shown expected = Read(*sheet);
  const auto choose = [&](int page, int list, int entry) {
    OnPage(*sheet, page, [=](HWND window) { Choose(window, list, entry); });
    expected["0/1291"] = expected["4/1036"] = std::to_string(entry);
    expected["0/1285"] = entry == kGray ? "A4 たて、片面、白黒、1部" : "A4 たて、片面、カラー、1部";
    EXPECT_EQ(Differences(expected, Read(*sheet)), "");
  };
  choose(kBasicPage, IDC_BASIC_COLOR_MODE, kGray);
  choose(kJobPage, IDC_JOB_COLOR_MODE, 0);

  const auto answer = [&](const char* text) {
    ::SetEnvironmentVariableA("ZN_COMPANION_ANSWER", text);
    OnPage(*sheet, kJobPage, [](HWND page) { Click(page, IDC_JOB_PRINT_OPTIONS); });
    EXPECT_EQ(Differences(expected, Read(*sheet)), "") << text;
  };
  answer("cancel;PG_NUMBR=8");
  expected["0/1285"] = "A4 たて、両面(短辺とじ)、カラー、7部";
  expected["1/1285"].replace(0, std::strlen("ホチキスなし"), "ホチキス(左上1か所)");
  expected["0/6004"] = "7";
  expected["0/6010"] = "2";
  expected["1/1273"] = "1";
  expected["2/1403"] = "4 (disabled)";
  expected["3/拡大縮小"] = "150 %";
  answer("ok;PG_NUMBR=7;OUT_BOTH=2;OUT_STPL=1;PG_MAGNI=150;OUT_WTNO=5;OT_HRLNW=50;profile=Other");
  EXPECT_EQ(Changes(start_, PressOk(*sheet)),
            "option %Copies: 1 -> 7\noption %Scaling: 100 -> 150\n"
            "option Duplex: None -> DuplexTumble\noption ZNStaple: Option0 -> Option1\n"
            "block 28 hairline width: 90 -> 50\nblock 360 device profile: \"\" -> \"Other\"\n"
            "block 9248 ZNWMSelection: 1 -> 5\n");
}

TEST_F(WholeSheetTest, InvalidInputIsNotHandedOn) {
  const auto sheet = Open(start_);
  OnPage(*sheet, kBasicPage, [](HWND page) {
    Enter(page, IDC_BASIC_COPIES, "5");
    Enter(page, IDC_BASIC_COPIES, "0");
  });
  OnPage(*sheet, kJobPage, [&](HWND page) {
    Click(page, IDC_JOB_NAME_ENTERED);
    Enter(page, IDC_JOB_NAME, "");
    EXPECT_EQ(sheet->Sheet().ShowPage(kBasicPage), nullptr);
    sheet->Sheet().PressOk();
    sheet->Sheet().PressApply();
    EXPECT_TRUE(sheet->Sheet().IsOpen());
    Click(page, IDC_JOB_NAME_AUTOMATIC);
  });
  EXPECT_EQ(TextOf(sheet->Sheet().ShowPage(kBasicPage), IDC_BASIC_COPIES), "5");
  EXPECT_EQ(Changes(start_, PressOk(*sheet)), "option %Copies: 1 -> 5\n");
}

// Applications store what they like; lists show nothing for it. What says how else it is shown, or
// follows from other settings, is put right.
TEST_F(WholeSheetTest, StoredSelectionsBeyondTheListsAreHandedBack) {
  const struct {
    std::uint32_t stored;
    const char* changes;
  } rows[] = {{4711, "block 20 save as TIFF: 0 -> 1\nblock 2156 job name mode: 4711 -> 0\n"},
              {0xFFFFFFFF,
               "option %Copies: -1 -> 1\nblock 20 save as TIFF: 0 -> 1\nblock 1308 number 4313: "
               "4294967295 -> 65535\n"
               "block 2156 job name mode: 4294967295 -> 0\n"}};
  const Shown defaults = Read(*Open(start_));
  for (const auto& row : rows) {
    SCOPED_TRACE(row.stored);
    QueueDevMode start = start_;
    auto& [driver, items, block] = start.Private();
    std::ranges::fill(items.features, static_cast<std::uint16_t>(row.stored));
    std::ranges::fill(items.publicItems, static_cast<std::int32_t>(row.stored));
    host::OptionItems(queue_->Description(), start).StoreTo(start);  // a check box is 0 or 1
    driver.psOutputOption = driver.trueTypeFontDownload = driver.customPaperDirection = row.stored;
    driver.psLanguageLevel = static_cast<std::uint16_t>(row.stored);
    for (const DevModeField& field : DevModeFields()) {
      if (field.kind == FieldKind::Number && field.repair != Repair::Flag) {
        block.SetDWord(field.offset, row.stored);
      }
    }
    start = DocumentSheet::StartDevMode(*plugIn_, *queue_, &start);
    queue_->Store(start);
    const auto sheet = Open(start);
    Read(*sheet);
    EXPECT_EQ(Changes(start, PressOk(*sheet)), row.changes);

    const auto restored = Open(start);
    for (const int index : kRestoring) {
      RestoreDefaults(*restored, index);
    }
    ChooseFavorite(*restored, Favorite::Standard);
    EXPECT_EQ(Differences(defaults, Read(*restored)), "");
  }
}

bool Rename(const std::string& from, const std::string& to) {
  return ::MoveFileExA(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) != FALSE;
}

// The device profile and the companion may be missing, and come and go while the sheet is open.
TEST_F(WholeSheetTest, DriverFilesMayComeAndGo) {
  const std::string plugIn = queue_->PlugInPath();
  for (const char* name : {"ZN Lumera 5050.cps", "Zn55psu1UI.dll"}) {
    SCOPED_TRACE(name);
    const std::string file = plugIn.substr(0, plugIn.rfind('\\') + 1) + name;
    const std::string away = file + ".away";
    ASSERT_TRUE(Rename(file, away));
    const auto sheet = Open(start_);
    Shown expected = Read(*sheet);
    for (const bool isThere : {true, false}) {
      EXPECT_TRUE(isThere ? Rename(away, file) : Rename(file, away));
      const Shown shown = Read(*sheet);
      for (const char* told : {"0/6014", "1/1285"}) {  // the companion's entries and names
        expected[told] = shown.at(told);
      }
      EXPECT_EQ(Differences(expected, shown), "") << (isThere ? "back" : "gone");
    }
    EXPECT_EQ(Changes(start_, PressOk(*sheet)), "");
    EXPECT_EQ(plugIn_->Helper().Updates().size(), 0u);
    EXPECT_TRUE(Rename(away, file));
  }
}

}  // namespace
}  // namespace zn::test
