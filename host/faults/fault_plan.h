// Which calls are to fail.
#pragma once

#include <cstdint>
#include <vector>

#include "host/faults/fault_tour.h"
#include "host/faults/import_faults.h"

namespace zn::host {

struct Fault {
  TourPart part;  // the tour that it happens in
  CallSite site;
  int call;
};

// Each call site of a part's calls at its first call, at its last and at one between, but those
// that the plan has already.
void AddToPlan(std::vector<Fault>& plan, TourPart part, const ImportFaults::Calls& calls);

// `count` of the plan, no call site a second time before all have come: which ones is the seed's.
[[nodiscard]] std::vector<Fault> Choose(std::vector<Fault> plan, std::size_t count,
                                        std::uint32_t seed);

}  // namespace zn::host
