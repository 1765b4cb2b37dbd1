#include "host/verbs.h"

#include <windows.h>
// These must come behind windows.h.
#include <winddiui.h>

#include <cstdio>
#include <cstring>
#include <optional>

#include "host/base/files.h"
#include "host/driver/device_sheet.h"
#include "host/driver/document_sheet.h"
#include "host/driver/plug_in.h"
#include "host/driver/queue.h"
#include "host/driver/report.h"
#include "host/scenes.h"

namespace zn::host {
namespace {

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
    PicturePreferences(sheet.Sheet(), parsed.shots);
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
    PictureProperties(sheet.Sheet(), parsed.shots);
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
