#include "pages/page_sources.h"

#include <algorithm>

#include "pages/profile_source.h"

namespace zn {

const CompanionModule& PageSources::Companion() {
  if (!companion_) {
    companion_.emplace(sheet_.hPrinter);
  }
  return *companion_;
}

const CProfileInfo& PageSources::Profile() {
  if (!profile_) {
    profile_ = std::make_unique<CProfileInfo>();
    UpdateProfile(*profile_, sheet_);
  }
  return *profile_;
}

std::optional<std::vector<std::uint32_t>> PageSources::AskDevice(Installed installed,
                                                                 std::size_t count) {
  const CProfileInfo& profile = Profile();
  // One more than options: the query of the outputs writes six values for five.
  std::vector<std::uint32_t> flags(count + 1, 1);
  const int listed = static_cast<int>(count);
  int answered = 1;
  switch (installed) {
    case Installed::Trays:
      answered = profile.GetTrayConfig(flags.data(), listed);
      break;
    case Installed::Outputs:
      answered = profile.GetOutputConfig(flags.data(), listed);
      break;
    case Installed::Punches:
      profile.GetPunchConfig(flags.data(), listed);  // without an answer all stay
      break;
    case Installed::Staples:
      std::fill(flags.begin() + 1, flags.end(), profile.Items()[CProfileInfo::kStapleItem].present);
      break;
    case Installed::Always:
      break;
  }
  flags.resize(count);
  return answered != 0 ? std::optional(std::move(flags)) : std::nullopt;
}

}  // namespace zn
