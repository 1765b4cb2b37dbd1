// zninspect profile: which trays, outputs and texts a device profile offers.
#include <array>
#include <string>

#include "keywords/keyword_ids.h"
#include "platform/code_page.h"
#include "platform/unique.h"
#include "profile/profile_info.h"
#include "tools/commands.h"
#include "tools/inputs.h"
#include "tools/option_names.h"
#include "tools/shown_text.h"

namespace zn::inspect {
namespace {

// Whether each option of a keyword is installed, by its name.
template <std::size_t kCount>
Json Installed(KeywordId id, const std::array<std::uint32_t, kCount>& flags) {
  Json options = Json::object();
  for (std::uint32_t index = 0; index < kCount; ++index) {
    Append(options, OptionName(id, index), flags[index] != 0);
  }
  return options;
}

using TextQuery = int (CProfileInfo::*)(std::string*, int) const;

// The texts that the profile gives, by their number.
Json Texts(const CProfileInfo& profile, TextQuery query, int count) {
  Json texts = Json::object();
  std::string text;
  for (int i = 0; i < count; ++i) {
    (profile.*query)(&text, i);
    if (!text.empty()) {
      Append(texts, std::to_string(i + 1), Utf8(text));
    }
  }
  return texts;
}

std::string DescribeProfile(const char* path, Json& record) {
  CProfileInfo profile;
  if (!profile.ReadProfile(path, SystemCodePage())) {
    return "cannot be read as a profile; the driver takes everything as installed";
  }
  std::array<std::uint32_t, CProfileInfo::kTrayCount> trays{};
  std::array<std::uint32_t, CProfileInfo::kOutputCount + 1> outputs{};
  std::array<std::uint32_t, 2> punches{};
  profile.GetTrayConfig(trays.data(), CProfileInfo::kTrayCount);
  profile.GetOutputConfig(outputs.data(), CProfileInfo::kOutputCount);
  profile.GetPunchConfig(punches.data(), static_cast<int>(punches.size()));
  record["tray"] = Installed(KW_SOURCE, trays);
  std::array<std::uint32_t, CProfileInfo::kOutputCount> named{};
  std::copy_n(outputs.begin(), named.size(), named.begin());
  record["output"] = Installed(KW_OUTPUTTRAY, named);
  record["punch"] = punches[1] != 0;
  record["paper"] =
      Texts(profile, &CProfileInfo::GetCustomPaperNameConfig, CProfileInfo::kPaperNameCount);
  record["watermark"] =
      Texts(profile, &CProfileInfo::GetWaterMarkConfig, CProfileInfo::kWatermarkCount);
  return {};
}

}  // namespace

int RunProfile(Arguments arguments, const Output& out) {
  const auto isProfile = [](const std::string& path) { return HasExtension(path, ".cps"); };
  return DescribeEach(arguments, isProfile, &DescribeProfile, out);
}

}  // namespace zn::inspect
