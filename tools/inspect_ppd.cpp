// zninspect ppd: holds printer descriptions against the plug-in's tables.
#include <cups/ppd.h>

#include <string>
#include <utility>

#include "platform/unique.h"
#include "tools/commands.h"
#include "tools/description_fit.h"
#include "tools/inputs.h"

namespace zn::inspect {
namespace {

using UniquePpd = Unique<ppd_file_t*, &::ppdClose>;

// Of a group and the groups in it.
void TakeOptions(const ppd_group_t& group, Description& description) {
  for (int i = 0; i < group.num_options; ++i) {
    const ppd_option_t& option = group.options[i];
    Description::Option taken{option.keyword, {}};
    for (int choice = 0; choice < option.num_choices; ++choice) {
      taken.choices.emplace_back(option.choices[choice].choice);
    }
    description.options.push_back(std::move(taken));
  }
  for (int i = 0; i < group.num_subgroups; ++i) {
    TakeOptions(group.subgroups[i], description);
  }
}

Description Take(const ppd_file_t& ppd) {
  Description description;
  for (int i = 0; i < ppd.num_groups; ++i) {
    TakeOptions(ppd.groups[i], description);
  }
  for (int i = 0; i < ppd.num_consts; ++i) {
    const ppd_const_t& constraint = ppd.consts[i];
    description.constraints.push_back(
        {constraint.option1, constraint.choice1, constraint.option2, constraint.choice2});
  }
  return description;
}

bool allFit = true;

std::string DescribePpd(const char* path, Json& record) {
  const UniquePpd ppd(::ppdOpenFile(path));
  if (!ppd) {
    int line = 0;
    const ppd_status_t status = ::ppdLastError(&line);
    std::string message = ::ppdErrorString(status);
    return line > 0 ? message.append(", line ").append(std::to_string(line)) : message;
  }
  bool fits = true;
  record["findings"] = Misfits(Take(*ppd), fits);
  record["fits"] = fits;
  allFit = allFit && fits;
  return {};
}

}  // namespace

int RunPpd(Arguments arguments, const Output& out) {
  const auto isPpd = [](const std::string& path) { return HasExtension(path, ".ppd"); };
  const int code = DescribeEach(arguments, isPpd, &DescribePpd, out);
  return code == kOk && !allFit ? kFailed : code;
}

}  // namespace zn::inspect
