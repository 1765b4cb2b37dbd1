#include "host/faults/fault_plan.h"

#include <algorithm>
#include <random>
#include <set>

namespace zn::host {

void AddToPlan(std::vector<Fault>& plan, TourPart part, const ImportFaults::Calls& calls) {
  std::set<CallSite> planned;
  for (const Fault& fault : plan) {
    planned.insert(fault.site);
  }
  for (const auto& [site, count] : calls) {
    if (planned.contains(site)) {
      continue;
    }
    for (int last = 0; const int call : {1, (1 + count) / 2, count}) {
      if (call > last) {
        plan.push_back({part, site, call});
        last = call;
      }
    }
  }
}

std::vector<Fault> Choose(std::vector<Fault> left, std::size_t count, std::uint32_t seed) {
  std::mt19937 random(seed);
  const auto upTo = [&random](std::size_t end) { return random() % end; };
  for (std::size_t i = left.size(); i > 1; --i) {
    std::swap(left[i - 1], left[upTo(i)]);
  }
  std::vector<Fault> plan;
  while (plan.size() < count && !left.empty()) {
    std::vector<CallSite> taken;
    std::erase_if(left, [&](const Fault& fault) {
      const bool isNew = plan.size() < count && std::ranges::find(taken, fault.site) == taken.end();
      if (isNew) {
        taken.push_back(fault.site);
        plan.push_back(fault);
      }
      return isNew;
    });
  }
  return plan;
}

}  // namespace zn::host
