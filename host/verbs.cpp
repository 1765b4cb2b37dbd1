#include "host/verbs.h"

#include <windows.h>
// These must come behind windows.h.
#include <prsht.h>
#include <winddiui.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <optional>

#include "host/base/files.h"
#include "host/driver/device_sheet.h"
#include "host/driver/document_sheet.h"
#include "host/driver/plug_in.h"
#include "host/driver/queue.h"
#include "host/driver/report.h"
#include "host/window/dialog_pictures.h"
#include "host/window/screenshot.h"
#include "res/resource_ids.h"

namespace zn::host {
namespace {

constexpr DWORD kSettleTime = 300;  // milliseconds until a page has drawn itself

void PumpFor(PropertySheet& sheet, DWORD milliseconds) {
  const ULONGLONG end = ::GetTickCount64() + milliseconds;
  for (ULONGLONG now = ::GetTickCount64(); now < end; now = ::GetTickCount64()) {
    sheet.Pump();
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
  }
}

// A control of a page (counted from 0) that opens dialogs: a button, or a list whose last entry
// does.
struct DialogOpener {
  int page;
  int control;
  bool list;
  const char* name;
};
constexpr DialogOpener kPreferencesDialogs[] = {
    {0, IDC_SAVE_FAVORITE, false, "save"},          {0, IDC_LIST_FAVORITES, false, "favorites"},
    {0, IDC_BASIC_PAGE_SIZE, true, "custom-size"},  {1, IDC_TRAY_AUTO_SETTINGS, false, "auto-tray"},
    {1, IDC_TRAY_BYPASS_SETTINGS, false, "bypass"}, {4, IDC_JOB_PRINT_OPTIONS, false, "options"},
};
constexpr DialogOpener kPropertiesDialogs[] = {
    {0, IDC_DEVICE_AUTHENTICATION, false, "authentication"}};

void OpenDialog(HWND page, const DialogOpener& opener) {
  const HWND control = ::GetDlgItem(page, opener.control);
  if (!opener.list) {
    ::SendMessageA(control, BM_CLICK, 0, 0);
    return;
  }
  const LRESULT count = ::SendMessageA(control, CB_GETCOUNT, 0, 0);
  ::SendMessageA(control, CB_SETCURSEL, static_cast<WPARAM>(count - 1), 0);
  ::SendMessageA(page, WM_COMMAND, MAKEWPARAM(opener.control, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(control));
}

void PrintPicture(const std::string& file, const std::string& title) {
  std::printf("picture %s: %s\n", file.c_str(), title.c_str());
}

// Shows every page and writes a picture of each and of the dialogs that it opens; then cancels
// the sheet.
void TakePictures(PropertySheet& sheet, const std::string& folder, const char* name,
                  std::span<const DialogOpener> dialogs) {
  for (int index = 0; index < sheet.PageCount(); ++index) {
    const HWND page = sheet.ShowPage(index);
    if (page == nullptr) {
      throw HostError("page " + std::to_string(index + 1) + " cannot be shown");
    }
    PumpFor(sheet, kSettleTime);
    const std::string stem = folder + "\\" + name + "-" + std::to_string(index + 1);
    SaveScreenshot(sheet.Window(), stem + ".png");
    PrintPicture(stem + ".png", sheet.PageTitle(index));
    for (const DialogOpener& opener : dialogs) {
      if (opener.page == index) {
        for (const auto& [file, title] :
             PictureDialogs(sheet.Window(), stem + "-" + opener.name,
                            [page, &opener] { OpenDialog(page, opener); })) {
          PrintPicture(file, title);
        }
      }
    }
  }
  sheet.PressCancel();
}

// The words of a path are relative to where the program was started; the sheets are relative to
// the root of the drive that the driver's files are on.
void EnterDriverDrive(SheetWords& words) {
  for (std::string* path : {&words.shots, &words.devMode}) {
    if (!path->empty()) {
      *path = AbsolutePath(*path);
    }
  }
  ::SetCurrentDirectoryA("C:\\");
}

std::optional<QueueDevMode> ReadDevModeFile(const std::string& path) {
  if (path.empty()) {
    return std::nullopt;
  }
  const auto bytes = ReadWholeFile(path);
  if (!bytes && ::GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES) {
    throw HostError("cannot read " + path);
  }
  if (!bytes) {
    return std::nullopt;  // the first use writes it
  }
  auto devMode = QueueDevMode::FromBytes(*bytes);
  if (!devMode) {
    throw HostError("not a DEVMODE of this host: " + path);
  }
  return devMode;
}

void Keep(const Queue& queue, const std::string& file, QueueDevMode& devMode) {
  if (file.empty()) {
    queue.Store(devMode);
    std::printf("stored: %s\n", queue.Name().c_str());
  } else if (WriteWholeFile(file, devMode.Bytes())) {
    std::printf("stored: %s\n", file.c_str());
  } else {
    throw HostError("cannot write " + file);
  }
}

}  // namespace

int RunInstall(Words words) {
  const SheetWords parsed = ParseSheetWords(words, {"--queue"});
  InstallQueue(parsed.queue);
  const Queue queue(parsed.queue);
  const PlugIn plugIn(queue.PlugInPath());
  // The spooler's own default lacks the plug-in's block; a stored full DEVMODE stays.
  QueueDevMode devMode = DocumentSheet::StartDevMode(plugIn, queue);
  queue.Store(devMode);
  std::printf("installed: %s (%s)\n", parsed.queue.c_str(), kSampleDriver);
  return 0;
}

int RunPrefs(Words words) {
  SheetWords parsed = ParseSheetWords(words, {"--queue", "--shots", "--devmode"});
  EnterDriverDrive(parsed);
  const Queue queue(parsed.queue);
  PlugIn plugIn(queue.PlugInPath());
  const auto stored = ReadDevModeFile(parsed.devMode);
  const QueueDevMode start =
      DocumentSheet::StartDevMode(plugIn, queue, stored ? &*stored : nullptr);
  DocumentSheet sheet(plugIn, queue, start);
  sheet.Open();
  if (parsed.shots.empty()) {
    sheet.Sheet().Run();
  } else {
    TakePictures(sheet.Sheet(), parsed.shots, "prefs", kPreferencesDialogs);
  }
  QueueDevMode kept = sheet.Finish();
  std::fputs(SheetReport(sheet, plugIn.Helper(), kept).c_str(), stdout);
  Keep(queue, parsed.devMode, kept);
  return sheet.Faults().empty() ? 0 : 1;
}

int RunProps(Words words) {
  SheetWords parsed = ParseSheetWords(words, {"--queue", "--shots", "--read-only"});
  EnterDriverDrive(parsed);
  const Queue queue(parsed.queue);
  PlugIn plugIn(queue.PlugInPath());
  DeviceSheet sheet(plugIn, queue, !parsed.readOnly);
  sheet.Open();
  if (parsed.shots.empty()) {
    sheet.Sheet().Run();
  } else {
    TakePictures(sheet.Sheet(), parsed.shots, "props", kPropertiesDialogs);
  }
  std::printf("header: %s\n", AnsiText(sheet.HeaderTitle()).c_str());
  return 0;
}

int RunEvent(Words words) {
  if (words.size() != 2 || std::strcmp(words[0], "delete") != 0) {
    throw UsageError("event needs: delete NAME");
  }
  const std::string name = words[1];
  const PlugIn plugIn(ProgramFolder() + "Zn55psu1.dll");
  std::wstring wide = WideText(name);
  const HRESULT result =
      plugIn->PrinterEvent(wide.data(), PRINTER_EVENT_DELETE, PRINTER_EVENT_FLAG_NO_UI, 0);
  std::printf("event delete %s: 0x%08lX\n", name.c_str(), static_cast<unsigned long>(result));
  return 0;
}

}  // namespace zn::host
