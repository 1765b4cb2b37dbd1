// zninspect profile: which trays, outputs and texts a device profile offers.
#include <array>
#include <cstdio>
#include <string>

#include "platform/code_page.h"
#include "profile/profile_info.h"
#include "tools/commands.h"
#include "tools/shown_text.h"

namespace zn::inspect {
namespace {

void PrintNumbers(const char* name, std::span<const std::uint32_t> numbers) {
  std::printf("%s=", name);
  const char* separator = "";
  for (const std::uint32_t number : numbers) {
    std::printf("%s%u", separator, number);
    separator = " ";
  }
  std::putchar('\n');
}

using TextQuery = int (CProfileInfo::*)(std::string*, int) const;

void PrintTexts(const char* name, const CProfileInfo& profile, TextQuery query, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    (profile.*query)(&text, i);
    std::printf("%s%d=", name, i + 1);
    text = EscapeControls(text);
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::putchar('\n');
  }
}

}  // namespace

int RunProfile(Arguments arguments) {
  if (arguments.size() != 1) {
    return Fail(kUsage, "usage: zninspect profile FILE");
  }
  CProfileInfo profile;
  // Without a readable file everything counts as installed, for the driver as here.
  profile.ReadProfile(arguments[0], SystemCodePage());

  std::array<std::uint32_t, CProfileInfo::kTrayCount> trays{};
  std::array<std::uint32_t, CProfileInfo::kOutputCount + 1> outputs{};
  std::array<std::uint32_t, 3> punches{};
  profile.GetTrayConfig(trays.data(), CProfileInfo::kTrayCount);
  profile.GetOutputConfig(outputs.data(), CProfileInfo::kOutputCount);
  profile.GetPunchConfig(punches.data(), static_cast<int>(punches.size()));
  PrintNumbers("tray", trays);
  PrintNumbers("output", outputs);
  PrintNumbers("punch", punches);
  PrintTexts("paper", profile, &CProfileInfo::GetCustomPaperNameConfig,
             CProfileInfo::kPaperNameCount);
  PrintTexts("watermark", profile, &CProfileInfo::GetWaterMarkConfig,
             CProfileInfo::kWatermarkCount);
  return kOk;
}

}  // namespace zn::inspect
