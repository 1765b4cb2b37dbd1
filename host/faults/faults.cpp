// Makes the plug-in's calls of the system fail, one in each tour through its sheets: it must
// neither crash nor hang, leave anything behind or lose settings, and work again afterwards.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "host/base/files.h"
#include "host/base/resource_usage.h"
#include "host/driver/report.h"
#include "host/faults/fault_plan.h"
#include "host/faults/fault_tour.h"
#include "host/faults/tour_watch.h"
#include "host/rounds.h"
#include "host/verbs.h"

namespace zn::host {
namespace {

constexpr int kCleanEvery = 10;  // faults between two tours without one
constexpr int kRepeats = 2;      // of a fault that seems to leave something behind

// The settings that differ: their values by their names.
using Changes = std::map<std::string, std::string>;

Changes ChangesBetween(const Queue& queue, const QueueDevMode& before, const QueueDevMode& after) {
  const std::string report = DevModeReport(queue.Description(), before, after);
  Changes changes;
  for (std::string_view rest = report; !rest.empty();) {
    const std::size_t end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    const std::size_t colon = line.find(": ");
    changes.emplace(line.substr(0, colon), line.substr(colon));
    rest.remove_prefix(end + 1);
  }
  return changes;
}

// Runs tours through the sheets of a queue and compares them with one without faults.
class FaultRun {
 public:
  explicit FaultRun(const std::string& queue)
      : queue_(queue),
        plugIn_(queue_.PlugInPath()),
        favorites_(plugIn_.Module()),
        faults_(plugIn_.Module()),
        start_(PrepareTour(plugIn_, queue_)),
        favorite_(favorites_.FileOf(kTourFavorite)),
        oldFavorite_(ReadWholeFile(favorite_).value_or("")) {}

  // Makes the tours without faults that the others are compared with; answers every fault that can
  // happen.
  std::vector<Fault> Plan() {
    std::optional<TourEnd> end;
    for (int round = 0; round < kWarmUpRounds; ++round) {
      end = Tour(TourPart::All);
    }
    if (!end->kept || !end->complaints.empty()) {
      throw HostError("a tour without faults fails: " +
                      (end->kept ? end->complaints.front() : "refused"));
    }
    reference_ = end->kept;
    newFavorite_ = ReadWholeFile(favorite_).value_or("");
    changes_ = ChangesBetween(queue_, start_, *reference_);
    std::vector<Fault> plan;
    for (int part = 0; part < static_cast<int>(TourPart::All); ++part) {
      faults_.Record();
      static_cast<void>(Tour(static_cast<TourPart>(part)));
      AddToPlan(plan, static_cast<TourPart>(part), faults_.TakeRecord());
    }
    usage_ = CountResources();
    return plan;
  }

  [[nodiscard]] std::size_t FunctionCount() const { return faults_.FunctionCount(); }

  // What is wrong after a tour with the fault; counts it when it happened.
  std::vector<std::string> Inject(const Fault& fault) {
    const auto inject = [&] {
      faults_.Arm(fault.site, fault.call);
      const TourEnd end = Tour(fault.part);
      injected_ += faults_.Disarm();
      return Judge(end);
    };
    std::vector<std::string> complaints = inject();
    const int injected = injected_;
    std::string leaks = Growth();
    for (int repeat = 0; repeat < kRepeats && !leaks.empty(); ++repeat) {
      inject();
      leaks = Growth();  // caches grow once
    }
    injected_ = injected;
    if (!leaks.empty()) {
      complaints.push_back("left behind: " + leaks);
    }
    return complaints;
  }

  // What is wrong with a tour without a fault.
  std::vector<std::string> TakeCleanTour() {
    const TourEnd end = Tour(TourPart::All);
    std::vector<std::string> complaints = Judge(end);
    if (!end.kept || end.kept->Bytes() != reference_->Bytes()) {
      complaints.emplace_back("the settings are others than at first");
    }
    if (ReadWholeFile(favorite_) != newFavorite_) {
      complaints.emplace_back("the favourite is another than at first");
    }
    Growth();
    return complaints;
  }

  [[nodiscard]] int Injected() const { return injected_; }

 private:
  TourEnd Tour(TourPart part) {
    for (const auto& file : std::filesystem::directory_iterator(favorites_.Folder())) {
      std::filesystem::remove(file);
    }
    if (!WriteWholeFile(favorite_, oldFavorite_)) {
      throw HostError("cannot write " + favorite_);
    }
    return RunTour(queue_, start_, part);
  }

  // What of the outcome no failure excuses.
  std::vector<std::string> Judge(const TourEnd& end) {
    std::vector<std::string> complaints = end.complaints;
    if (end.kept) {
      for (const auto& [name, values] : ChangesBetween(queue_, start_, *end.kept)) {
        if (!changes_.contains(name)) {
          complaints.push_back(std::string("lost: ").append(name).append(values));
        }
      }
      const QueueDevMode merged = DocumentSheet::StartDevMode(plugIn_, queue_, &*end.kept);
      if (merged.Bytes() != end.kept->Bytes()) {
        complaints.emplace_back("the settings are not sound");
      }
    }
    for (const auto& file : std::filesystem::directory_iterator(favorites_.Folder())) {
      if (file.path() != favorite_) {
        complaints.push_back("left behind: file " + file.path().filename().string());
      }
    }
    const std::string favorite = ReadWholeFile(favorite_).value_or("");
    const auto lines = [](const std::string& text) { return std::ranges::count(text, '\n'); };
    if (favorite != oldFavorite_ && lines(favorite) != lines(newFavorite_)) {
      complaints.emplace_back("the favourite is damaged");
    }
    if (::GetModuleHandleA("Zn55psu1UI.dll") != nullptr) {
      complaints.emplace_back("left behind: the companion");
    }
    return complaints;
  }

  // What has grown since the last call.
  std::string Growth() {
    const ResourceUsage before = std::exchange(usage_, CountResources());
    std::string text;
    for (const auto& [name, count] : kResources) {
      if (const int more = usage_.*count - before.*count; more > 0) {
        text.append(text.empty() ? "" : ", ").append(std::to_string(more)).append(" ").append(name);
      }
    }
    return text;
  }

  Queue queue_;
  PlugIn plugIn_;  // stays loaded between the tours
  PrivateFavorites favorites_;
  ImportFaults faults_;
  QueueDevMode start_;
  std::string favorite_;     // its file
  std::string oldFavorite_;  // before a tour
  std::string newFavorite_;  // behind one without faults
  std::optional<QueueDevMode> reference_;
  Changes changes_;  // of a tour without faults
  ResourceUsage usage_;
  int injected_ = 0;
};

int PrintFailures(const std::string& where, const std::vector<std::string>& complaints) {
  for (const std::string& complaint : complaints) {
    std::printf("failure: %s: %s\n", where.c_str(), complaint.c_str());
  }
  return complaints.empty() ? 0 : 1;
}

std::size_t CountSites(const std::vector<Fault>& plan) {
  std::set<CallSite> sites;
  for (const Fault& fault : plan) {
    sites.insert(fault.site);
  }
  return sites.size();
}

}  // namespace

int RunFaults(Words words) {
  constexpr char kNeeds[] = "faults needs the number of faults or all";
  const bool isAll = !words.empty() && std::string_view(words[0]) == "all";
  const int count = isAll ? 0 : ParseNumber(words.empty() ? "" : words[0], kNeeds);
  const SheetWords parsed = ParseSheetWords(words.subspan(1), {"--seed", "--from", "--queue"});
  const int from = ParseNumber(parsed.from, "--from needs a number");
  const int seed = ParseNumber(parsed.seed, "--seed needs a number");
  ::SetCurrentDirectoryA("C:\\");

  TourWatch watch;
  FaultRun run(parsed.queue);
  std::vector<Fault> plan = run.Plan();
  const std::size_t siteCount = CountSites(plan);
  if (!isAll) {
    plan =
        Choose(std::move(plan), static_cast<std::size_t>(count), static_cast<std::uint32_t>(seed));
  }
  std::set<CallSite> sites;
  int failures = 0;
  const int end = static_cast<int>(plan.size());
  for (int number = from; number <= end; ++number) {
    const Fault& fault = plan[static_cast<std::size_t>(number) - 1];
    const std::string where = "fault " + std::to_string(number) + " of " + std::to_string(end) +
                              ", " + CallText(fault.site, fault.call);
    std::printf("%s\n", where.c_str());
    std::fflush(stdout);
    watch.Begin(where);
    const int injected = run.Injected();
    failures += PrintFailures(where, run.Inject(fault));
    if (run.Injected() > injected) {
      sites.insert(fault.site);
    }
    if (number % kCleanEvery == 0 || number == end) {
      watch.Begin("tour behind " + where);
      failures += PrintFailures("tour behind " + where, run.TakeCleanTour());
    }
  }
  std::printf("faults: %d at %zu of %zu call sites of %zu imports; failures: %d\n", run.Injected(),
              sites.size(), siteCount, run.FunctionCount(), failures);
  return failures == 0 ? 0 : 1;
}

}  // namespace zn::host
