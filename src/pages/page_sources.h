// Where the pages take their texts and the device's options from.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "bridge/companion.h"
#include "pages/page_table.h"
#include "profile/profile_info.h"
#include "session/sheet_context.h"

namespace zn {

// Where one filling takes its texts and the device's options from: each is loaded once, when it is
// first asked for.
class PageSources {
 public:
  explicit PageSources(const SheetContext& sheet) noexcept : sheet_(sheet) {}

  [[nodiscard]] const CompanionModule& Companion();
  [[nodiscard]] const CProfileInfo& Profile();
  // Per option whether the installed device serves it; nothing when the profile has no answer for
  // so many options.
  [[nodiscard]] std::optional<std::vector<std::uint32_t>> AskDevice(Installed installed,
                                                                    std::size_t count);

 private:
  const SheetContext& sheet_;
  std::optional<CompanionModule> companion_;
  std::unique_ptr<CProfileInfo> profile_;
};

}  // namespace zn
