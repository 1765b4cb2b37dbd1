#include "host/driver/printer_description.h"

#include <algorithm>

#include "host/base/files.h"

namespace zn::host {
namespace {

// "NAME/TEXT" or NAME alone.
FeatureOption SplitName(std::string_view text) {
  const std::size_t slash = text.find('/');
  const std::string_view name = text.substr(0, slash);
  return {std::string(name),
          std::string(slash == std::string_view::npos ? name : text.substr(slash + 1))};
}

// What follows `start`, without blanks in front; nullopt for another start.
std::optional<std::string_view> After(std::string_view line, std::string_view start) {
  if (!line.starts_with(start)) {
    return std::nullopt;
  }
  line.remove_prefix(start.size());
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  return line;
}

}  // namespace

PrinterDescription::PrinterDescription(std::string_view text) {
  while (!text.empty()) {
    const std::size_t end = text.find_first_of("\r\n");
    AddLine(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
}

std::optional<PrinterDescription> PrinterDescription::ReadFile(const std::string& path) {
  const auto bytes = ReadWholeFile(path);
  return bytes ? std::optional<PrinterDescription>(*bytes) : std::nullopt;
}

const Feature* PrinterDescription::Find(std::string_view keyword) const {
  const auto feature = std::ranges::find(features_, keyword, &Feature::keyword);
  return feature != features_.end() ? &*feature : nullptr;
}

void PrinterDescription::AddLine(std::string_view line) {
  if (const auto opened = After(line, "*OpenUI *")) {
    const FeatureOption head = SplitName(opened->substr(0, opened->find(':')));
    features_.push_back({head.name, head.text, {}, 0});
    inFeature_ = true;
    defaultName_.clear();
    return;
  }
  if (!inFeature_) {
    return;
  }
  Feature& feature = features_.back();
  if (line.starts_with("*CloseUI")) {
    inFeature_ = false;
    const auto option = std::ranges::find(feature.options, defaultName_, &FeatureOption::name);
    feature.defaultOption = option != feature.options.end()
                                ? static_cast<std::size_t>(option - feature.options.begin())
                                : 0;
  } else if (const auto name = After(line, "*Default" + feature.keyword + ":")) {
    defaultName_ = *name;
  } else if (const auto option = After(line, "*" + feature.keyword + " ")) {
    feature.options.push_back(SplitName(option->substr(0, option->find(':'))));
  }
}

}  // namespace zn::host
