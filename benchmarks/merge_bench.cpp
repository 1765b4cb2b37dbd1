// Merging a settings block, held against copying its bytes and against a plain merge.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#include "devmode/devmode.h"
#include "tests/devmode/reference_merge.h"

namespace {

using zn::CDevMode;
using zn::test::Defaulted;

CDevMode AllTextsFull() {
  CDevMode block = Defaulted();
  for (const zn::DevModeField& field : zn::DevModeFields()) {
    if (field.kind == zn::FieldKind::Text) {
      block.SetText(field.offset, std::string(field.width, 'x'));
    }
  }
  return block;
}

void Measure(benchmark::State& state, const CDevMode& source,
             void (*work)(CDevMode& destination, const CDevMode& source)) {
  CDevMode destination = Defaulted();
  for (auto _ : state) {
    work(destination, source);
    benchmark::DoNotOptimize(&destination);
    benchmark::ClobberMemory();
  }
}

void Merge(CDevMode& destination, const CDevMode& source) {
  destination.Merge(&source);
}

void CopyBytes(CDevMode& destination, const CDevMode& source) {
  std::memcpy(&destination, &source, zn::kDevModeSize);
}

BENCHMARK_CAPTURE(Measure, defaulted, Defaulted(), &Merge)->Name("merge/defaulted");
BENCHMARK_CAPTURE(Measure, memcpy, Defaulted(), &CopyBytes)->Name("merge/memcpy");
BENCHMARK_CAPTURE(Measure, full, AllTextsFull(), &Merge)->Name("merge/full");
BENCHMARK_CAPTURE(Measure, full_plain, AllTextsFull(), &zn::test::PlainMerge)
    ->Name("merge/full_plain");

}  // namespace
