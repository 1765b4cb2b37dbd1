#include "host/scenes.h"

#include <cstdio>

#include "host/base/host_error.h"
#include "host/window/dialog_pictures.h"
#include "host/window/page_use.h"
#include "host/window/screenshot.h"
#include "res/resource_ids.h"

namespace zn::host {
namespace {

constexpr DWORD kSettleTime = 300;  // milliseconds until a page has drawn itself
constexpr int kLast = Step::kLast;

constexpr Step Click(int control) {
  return {Step::kClick, control};
}
constexpr Step Choose(int control, int entry) {
  return {Step::kChoose, control, entry};
}

constexpr Scene kPreferences[] = {
    {0,
     "layout",
     {Click(IDC_BASIC_LANDSCAPE), Choose(IDC_BASIC_NUP, 2), Click(IDC_BASIC_NUP_BORDER),
      Choose(IDC_BASIC_DUPLEX, 1)}},
    {0, "save", {Click(IDC_SAVE_FAVORITE)}},
    {0, "summary", {Click(IDC_LIST_FAVORITES)}},
    {0, "size", {Choose(IDC_BASIC_PAGE_SIZE, kLast)}},
    {0,
     "custom",
     {Click(IDC_BASIC_PORTRAIT), Choose(IDC_BASIC_NUP, 0), Choose(IDC_BASIC_OUTPUT_SIZE, 1),
      Choose(IDC_BASIC_FIT_SIZE, 1), Click(IDC_BASIC_ON_CENTER), Choose(IDC_BASIC_COLOR_MODE, 1)}},
    {1,
     "finishing",
     {Choose(IDC_TRAY_STAPLE, 3), Choose(IDC_TRAY_PUNCH, 1), Choose(IDC_TRAY_JOG, 1),
      Click(IDC_TRAY_COLLATE), Click(IDC_TRAY_REVERSE_ORDER)}},
    {1, "missing", {Choose(IDC_TRAY_SOURCE, 4), Choose(IDC_TRAY_OUTPUT, 2)}},
    {1, "conflict", {Choose(IDC_TRAY_PUNCH, 8)}},
    {1, "bypass", {Click(IDC_TRAY_BYPASS_SETTINGS)}},
    {1, "auto", {Click(IDC_TRAY_AUTO_SETTINGS)}},
    {2,
     "on",
     {Click(IDC_WATERMARK_ON), Choose(IDC_WATERMARK_NUMBER, 2), Click(IDC_WATERMARK_CENTER)}},
    {4, "options", {Click(IDC_JOB_PRINT_OPTIONS)}},
};
constexpr Scene kProperties[] = {{0, "authentication", {Click(IDC_DEVICE_AUTHENTICATION)}}};

void Do(HWND page, const Step& step) {
  const HWND control = ::GetDlgItem(page, step.control);
  if (step.kind == Step::kClick) {
    ::SendMessageA(control, BM_CLICK, 0, 0);
  } else if (step.kind == Step::kChoose) {
    const LRESULT entry =
        step.entry == Step::kLast ? ::SendMessageA(control, CB_GETCOUNT, 0, 0) - 1 : step.entry;
    ChooseEntry(control, static_cast<int>(entry));
  }
}

void PumpFor(PropertySheet& sheet, DWORD milliseconds) {
  const ULONGLONG end = ::GetTickCount64() + milliseconds;
  for (ULONGLONG now = ::GetTickCount64(); now < end; now = ::GetTickCount64()) {
    sheet.Pump();
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
  }
}

void PrintPicture(const std::string& file, const std::string& title) {
  std::printf("picture %s: %s\n", file.c_str(), title.c_str());
}

void PicturePage(PropertySheet& sheet, int page, const std::string& stem) {
  PumpFor(sheet, kSettleTime);
  SaveScreenshot(sheet.Window(), stem + ".png");
  PrintPicture(stem + ".png", sheet.PageTitle(page));
}

void PictureScene(PropertySheet& sheet, const Scene& scene, HWND page, const std::string& stem) {
  const auto dialogs = PictureDialogs(sheet.Window(), stem, [&] { Play(scene, page); });
  for (const auto& [file, title] : dialogs) {
    PrintPicture(file, title);
  }
  if (dialogs.empty()) {
    PicturePage(sheet, scene.page, stem);
  }
}

void Picture(PropertySheet& sheet, const std::string& stem, std::span<const Scene> scenes) {
  for (int index = 0; index < sheet.PageCount(); ++index) {
    const HWND page = sheet.ShowPage(index);
    if (page == nullptr) {
      throw HostError("page " + std::to_string(index + 1) + " cannot be shown");
    }
    const std::string pageStem = stem + "-" + std::to_string(index + 1);
    PicturePage(sheet, index, pageStem);
    for (const Scene& scene : scenes) {
      if (scene.page == index) {
        PictureScene(sheet, scene, page, pageStem + "-" + scene.name);
      }
    }
  }
  sheet.PressCancel();
}

}  // namespace

std::span<const Scene> PreferencesScenes() {
  return kPreferences;
}
std::span<const Scene> PropertiesScenes() {
  return kProperties;
}

void Play(const Scene& scene, HWND page) {
  for (const Step& step : scene.steps) {
    Do(page, step);
  }
}

void PicturePreferences(PropertySheet& sheet, const std::string& folder) {
  Picture(sheet, folder + "\\prefs", kPreferences);
}

void PictureProperties(PropertySheet& sheet, const std::string& folder) {
  Picture(sheet, folder + "\\props", kProperties);
}

}  // namespace zn::host
