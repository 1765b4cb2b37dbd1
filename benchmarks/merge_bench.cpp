// Merging a settings block, held against copying its bytes.
#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <string>

#include "devmode/devmode.h"

namespace {

std::unique_ptr<zn::CDevMode> Defaulted() {
  auto block = std::make_unique<zn::CDevMode>();
  block->SetDefaults();
  return block;
}

std::unique_ptr<zn::CDevMode> AllTextsFull() {
  auto block = Defaulted();
  for (const zn::DevModeField& field : zn::DevModeFields()) {
    if (field.kind == zn::FieldKind::Text) {
      block->SetText(field.offset, std::string(field.width, 'x'));
    }
  }
  return block;
}

void MergeBlock(benchmark::State& state, const zn::CDevMode& source) {
  const auto destination = Defaulted();
  for (auto _ : state) {
    destination->Merge(source);
    benchmark::DoNotOptimize(destination.get());
    benchmark::ClobberMemory();
  }
}

void MergeDefaulted(benchmark::State& state) {
  MergeBlock(state, *Defaulted());
}
void MergeFull(benchmark::State& state) {
  MergeBlock(state, *AllTextsFull());
}

void CopyBytes(benchmark::State& state) {
  const auto source = AllTextsFull();
  const auto destination = Defaulted();
  for (auto _ : state) {
    std::memcpy(destination.get(), source.get(), zn::kDevModeSize);
    benchmark::DoNotOptimize(destination.get());
    benchmark::ClobberMemory();
  }
}

BENCHMARK(MergeDefaulted)->Name("merge/defaulted");
BENCHMARK(MergeFull)->Name("merge/full");
BENCHMARK(CopyBytes)->Name("merge/memcpy");

}  // namespace
