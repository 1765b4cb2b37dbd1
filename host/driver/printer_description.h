// What the host reads of a printer description (PPD): its features with their options, in the
// file's order. Texts are in the file's own encoding, code page 932 for an installed one.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zn::host {

struct FeatureOption {
  std::string name;
  std::string text;
};

struct Feature {
  std::string keyword;
  std::string label;
  std::vector<FeatureOption> options;
  std::size_t defaultOption = 0;
};

class PrinterDescription {
 public:
  // Reads the *OpenUI sections; lines that belong to none are passed over.
  explicit PrinterDescription(std::string_view text);
  [[nodiscard]] static std::optional<PrinterDescription> ReadFile(const std::string& path);

  [[nodiscard]] const std::vector<Feature>& Features() const { return features_; }
  // Null when the printer has no such feature.
  [[nodiscard]] const Feature* Find(std::string_view keyword) const;

 private:
  void AddLine(std::string_view line);

  std::vector<Feature> features_;
  bool inFeature_ = false;
  std::string defaultName_;
};

}  // namespace zn::host
