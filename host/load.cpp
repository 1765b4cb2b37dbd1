// What the plug-in costs an application that never opens a sheet: it is loaded, makes and merges
// its settings block and is unloaded again, beside a DLL with the same imports and nothing in it
// and the question to the spooler without which no merge can be.
#include <windows.h>

#include <string>
#include <vector>

#include "host/base/files.h"
#include "host/base/host_error.h"
#include "host/base/stopwatch.h"
#include "host/driver/plug_in.h"
#include "host/driver/queue.h"
#include "host/rounds.h"
#include "host/verbs.h"
#include "platform/handles.h"
#include "platform/spooler.h"

namespace zn::host {
namespace {

double LoadPlugIn(const std::string& path, const Queue& queue, const QueueDevMode& stored) {
  QueueDevMode devMode(queue.WideName());
  const double start = MillisecondsNow();
  {
    const PlugIn plugIn(path);
    plugIn.FillBlock(queue.Handle(), devMode, &stored);
  }
  return MillisecondsNow() - start;
}

double LoadEmptyModule(const std::string& path, const Queue& queue) {
  const double start = MillisecondsNow();
  {
    const UniqueModule module(::LoadLibraryA(path.c_str()));
    if (!module || !PrinterInfo2(queue.Handle())) {
      ThrowSystemError("cannot load " + path + " or ask the spooler");
    }
  }
  return MillisecondsNow() - start;
}

}  // namespace

int RunLoad(Words words) {
  const int rounds = ParseRounds("load", words);
  const Queue queue(ParseSheetWords(words.subspan(1), {"--queue"}).queue);
  const std::string plugIn = ProgramFolder() + "Zn55psu1.dll";
  const std::string emptyModule = ProgramFolder() + "zn_empty_module.dll";
  QueueDevMode stored(queue.WideName());
  PlugIn(plugIn).FillBlock(queue.Handle(), stored, nullptr);

  std::vector<double> loads;
  std::vector<double> references;
  for (int round = -kWarmUpRounds; round < rounds; ++round) {
    const double load = LoadPlugIn(plugIn, queue, stored);
    const double reference = LoadEmptyModule(emptyModule, queue);
    if (round >= 0) {
      loads.push_back(load);
      references.push_back(reference);
    }
  }
  PrintTimes("load", loads, "empty module", references);
  return 0;
}

}  // namespace zn::host
