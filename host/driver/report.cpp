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

}  // namespace

std::string SheetReport(DocumentSheet& sheet, const DriverHelper& helper,
                        const QueueDevMode& kept) {
  std::string report = "header: " + AnsiText(sheet.HeaderTitle()) + "\n";
  report += "pages: " + std::to_string(sheet.Sheet().PageCount()) + "\n";
  report += std::string("closed: ") + (sheet.Sheet().EndedWithOk() ? "OK" : "Cancel") + "\n";
  report += "page results: " + std::to_string(sheet.Sheet().ResultReports()) + "\n";
  for (const SettingUpdate& update : helper.Updates()) {
    AppendChange(report, "update", update.keyword, update.before, update.after);
  }
  OptionItems ends(sheet.Items().Description(), kept);
  for (const OptionChange& change : ends.ChangesSince(sheet.Start())) {
    AppendChange(report, "option", change.keyword, change.before, change.after);
  }
  const CDevMode& before = sheet.Start().Private().block;
  const CDevMode& after = kept.Private().block;
  for (const DevModeField& field : DevModeFields()) {
    if (!SameField(before, after, field)) {
      AppendChange(report, "block", std::to_string(field.offset) + " " + field.name,
                   FieldText(before, field), FieldText(after, field));
    }
  }
  for (const std::string& fault : sheet.Faults()) {
    report += "fault: " + fault + "\n";
  }
  return report;
}

}  // namespace zn::host
