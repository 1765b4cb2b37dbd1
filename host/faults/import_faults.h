// Makes the calls fail that a loaded module makes of the system, one at a time.
#pragma once

#include <windows.h>

#include <cstddef>
#include <deque>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "host/base/import_patch.h"
#include "host/faults/failing_calls.h"

namespace zn::host {

// A place in the module that calls an import.
struct CallSite {
  std::string function;
  // Offsets in the module of the code behind the call and, for functions that are called on behalf
  // of others, of their callers.
  std::vector<std::size_t> path;

  bool operator<(const CallSite& other) const {
    return std::tie(function, path) < std::tie(other.function, other.path);
  }
  bool operator==(const CallSite&) const = default;
};

[[nodiscard]] std::string CallText(const CallSite& site, int call);

class ImportFaults {
 public:
  using Calls = std::map<CallSite, int>;

  // Diverts every import of the module that can fail. One object at a time; only calls of the
  // thread that made it count. Throws HostError.
  explicit ImportFaults(HMODULE module);
  ~ImportFaults();
  ImportFaults(const ImportFaults&) = delete;
  ImportFaults& operator=(const ImportFaults&) = delete;

  [[nodiscard]] std::size_t FunctionCount() const { return functions_.size(); }

  // Counts the calls from now on, until they are taken.
  void Record();
  [[nodiscard]] Calls TakeRecord();

  // The call with this number, counted from 1 and from now on, fails. The answer to Disarm is
  // whether it was made.
  void Arm(const CallSite& site, int call);
  bool Disarm();

 private:
  // What the diversion of an import knows; the first three are read by its machine code.
  struct Function {
    void* original;
    std::int64_t result;
    bool (*decide)(Function& function, const CallArguments& arguments, void* returnAddress);
    ImportFaults* owner;
    const FailingCall* failing;
  };

  // Whether the call fails.
  static bool Decide(Function& function, const CallArguments& arguments, void* returnAddress);
  [[nodiscard]] std::vector<std::size_t> PathOf(const FailingCall& call, void* returnAddress) const;
  [[nodiscard]] std::size_t OffsetOf(const void* address) const;  // 0: not in the module

  HMODULE module_;
  std::size_t moduleSize_;
  DWORD thread_;
  std::deque<Function> functions_;
  std::byte* code_;
  std::deque<ImportPatch> patches_;
  bool isRecording_ = false;
  Calls calls_;
  const CallSite* site_ = nullptr;  // where a call fails
  int callsLeft_ = 0;               // until it does
};

}  // namespace zn::host
