// Times the operations with Google Benchmark and counts their allocations.
//
//   BENCH_MODELS=FOLDER PROGRAM [--benchmark_filter=REGEX ...]
//   BENCH_MODELS=FOLDER PROGRAM --text SIZE     writes the text of a model
//   BENCH_MODELS=FOLDER PROGRAM --real NUMBER   the same of a real printer's

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>
#include <string_view>

#include "bench/allocations.h"
#include "bench/heap.h"
#include "bench/operation.h"

namespace driver_feature::bench {
namespace {

void finish(const Step& step) {
  if (!step.after) return;
  step.after();
  settleHeap();
}

void measure(benchmark::State& state, const Operation& operation) {
  const int size = static_cast<int>(state.range(0));
  const Step step = operation.prepare(size);
  // From the second run on, texts that are kept have their capacity.
  for (int i = 0; i < 2; ++i) {
    step.run();
    finish(step);
  }
  const std::uint64_t before = allocationCount();
  step.run();
  const std::uint64_t allocations = allocationCount() - before;
  finish(step);
  for (auto _ : state) {
    step.run();
    if (!step.after) continue;
    state.PauseTiming();
    finish(step);
    state.ResumeTiming();
  }
  state.counters["allocations"] = static_cast<double>(allocations);
  state.SetComplexityN(size);
}

void registerOperation(const Operation& operation) {
  auto* all = benchmark::RegisterBenchmark(
      operation.name.c_str(), [&operation](benchmark::State& state) { measure(state, operation); });
  for (const int size : operation.sizes) all->Arg(size);
  const Step step = operation.prepare(operation.sizes.front());
  if (step.iterations > 0) all->Iterations(step.iterations);
  // The numbers of real models are not sizes.
  if (operation.sizes.front() > 0) all->Complexity();
}

}  // namespace
}  // namespace driver_feature::bench

int main(int argc, char** argv) {
  if (argc == 3 && std::string_view(argv[1]) == "--text") {
    std::cout << driver_feature::bench::textOfModel(std::atoi(argv[2]));
    return std::cout.flush() ? 0 : 1;
  }
  if (argc == 3 && std::string_view(argv[1]) == "--real") {
    std::cout << driver_feature::bench::textOfRealModel(std::atoi(argv[2]));
    return std::cout.flush() ? 0 : 1;
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  driver_feature::bench::Operations operations;
  driver_feature::bench::addOperations(operations);
  for (const auto& operation : operations) driver_feature::bench::registerOperation(operation);
  return benchmark::RunSpecifiedBenchmarks() > 0 ? 0 : 1;
}
