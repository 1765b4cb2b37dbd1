// How a printer description fits the plug-in's tables.
#pragma once

#include <string>
#include <vector>

#include "tools/output.h"

namespace zn::inspect {

// What matters of a printer description. Choices stand in the order of the description, which is
// that of the core driver's option indexes.
struct Description {
  struct Option {
    std::string keyword;
    std::vector<std::string> choices;
  };
  // An empty choice means every one but None and False.
  struct Constraint {
    std::string keyword, choice;
    std::string otherKeyword, otherChoice;
  };
  std::vector<Option> options;
  std::vector<Constraint> constraints;
};

// A row for each misfit: "finding", and what it is about. `fits` becomes whether all of them are
// rules that only the plug-in knows.
[[nodiscard]] Json Misfits(const Description& description, bool& fits);

}  // namespace zn::inspect
