#include "host/driver/report.h"

#include "host/base/files.h"

namespace zn::host {
namespace {

std::string FieldText(const CDevMode& block, const DevModeField& field) {
  switch (field.kind) {
    case FieldKind::Text:
      return '"' + std::string(block.GetText(field.offset)) + '"';
    case FieldKind::Reserved:
      return "(bytes)";
    default:
      return std::to_string(block.GetDWord(field.offset));
  }
}

bool SameField(const CDevMode& a, const CDevMode& b, const DevModeField& field) {
  const auto bytes = [&field](const CDevMode& block) {
    return std::string_view(reinterpret_cast<const char*>(block.Bytes().data()) + field.offset,
                            field.width);
  };
  return field.kind == FieldKind::Text ? a.GetText(field.offset) == b.GetText(field.offset)
                                       : bytes(a) == bytes(b);
}

void AppendChange(std::string& report, const char* kind, const std::string& name,
                  const std::string& before, const std::string& after) {
  report.append(kind).append(" ").append(name).append(": ").append(before);
  report.append(" -> ").append(after).append("\n");
}

// The core driver's own values behind the documented DEVMODE.
struct DriverField {
  const char* name;
  std::uint32_t DriverPrivateDevMode::*member;
};
constexpr DriverField kDriverFields[] = {
    {"flags", &DriverPrivateDevMode::flags},
    {"noBorder", &DriverPrivateDevMode::noBorder},
    {"psOutputOption", &DriverPrivateDevMode::psOutputOption},
    {"trueTypeFontDownload", &DriverPrivateDevMode::trueTypeFontDownload},
    {"customPaperWidth", &DriverPrivateDevMode::customPaperWidth},
    {"customPaperHeight", &DriverPrivateDevMode::customPaperHeight},
    {"customPaperDirection", &DriverPrivateDevMode::customPaperDirection},
};

}  // namespace

std::string DevModeReport(const PrinterDescription& description, const QueueDevMode& before,
                          const QueueDevMode& after) {
  std::string report;
  for (const OptionChange& change : OptionItems(description, after).ChangesSince(before)) {
    AppendChange(report, "option", change.keyword, change.before, change.after);
  }
  const auto appendDriver = [&report](const char* name, std::uint32_t then, std::uint32_t now) {
    if (then != now) {
      AppendChange(report, "driver", name, std::to_string(then), std::to_string(now));
    }
  };
  const DriverPrivateDevMode& then = before.Private().driver;
  const DriverPrivateDevMode& now = after.Private().driver;
  for (const DriverField& field : kDriverFields) {
    appendDriver(field.name, then.*field.member, now.*field.member);
  }
  appendDriver("psLanguageLevel", then.psLanguageLevel, now.psLanguageLevel);
  const CDevMode& oldBlock = before.Private().block;
  const CDevMode& newBlock = after.Private().block;
  for (const DevModeField& field : DevModeFields()) {
    if (!SameField(oldBlock, newBlock, field)) {
      AppendChange(report, "block", std::to_string(field.offset) + " " + field.name,
                   FieldText(oldBlock, field), FieldText(newBlock, field));
    }
  }
  return report;
}

std::string SheetReport(DocumentSheet& sheet, const DriverHelper& helper,
                        const QueueDevMode& kept) {
  std::string report = "header: " + AnsiText(sheet.HeaderTitle()) + "\n";
  report += "pages: " + std::to_string(sheet.Sheet().PageCount()) + "\n";
  report += std::string("closed: ") + (sheet.Sheet().EndedWithOk() ? "OK" : "Cancel") + "\n";
  report += "page results: " + std::to_string(sheet.Sheet().ResultReports()) + "\n";
  for (const SettingUpdate& update : helper.Updates()) {
    AppendChange(report, "update", update.keyword, update.before, update.after);
  }
  report += DevModeReport(sheet.Items().Description(), sheet.Start(), kept);
  for (const std::string& fault : sheet.Faults()) {
    report += "fault: " + fault + "\n";
  }
  return report;
}

}  // namespace zn::host
