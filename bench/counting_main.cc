// Runs each operation a few times for callgrind, which is to be started with
// --instr-atstart=no. Each operation becomes a dump of its own, described as
// "RUNS OPERATION/SIZE"; what it has collected divided by the runs is the
// operation's instructions.
//
//   BENCH_MODELS=FOLDER PROGRAM OPERATION/SIZE...
//   PROGRAM --list

#include <valgrind/callgrind.h>

#include <iostream>
#include <string_view>

#include "bench/heap.h"
#include "bench/operation.h"

namespace driver_feature::bench {
namespace {

constexpr int kRuns = 100;

int runsFor(const Step& step) {
  return step.after || step.overAll ? 1 : kRuns;
}

void finish(const Step& step) {
  if (!step.after) return;
  step.after();
  settleHeap();
}

void count(const Operation& operation, int size) {
  const Step step = operation.prepare(size);
  for (int i = 0; i < 2; ++i) {
    step.run();
    finish(step);
  }
  const int runs = runsFor(step);
  const std::string description =
      std::to_string(runs) + " " + operation.name + "/" + std::to_string(size);
  CALLGRIND_START_INSTRUMENTATION;
  CALLGRIND_ZERO_STATS;
  for (int i = 0; i < runs; ++i) step.run();
  CALLGRIND_DUMP_STATS_AT(description.c_str());
  CALLGRIND_STOP_INSTRUMENTATION;
  finish(step);
}

std::string nameOf(const Operation& operation, int size) {
  return operation.name + "/" + std::to_string(size);
}

// Whether there is an operation of that name.
bool countNamed(const Operations& operations, std::string_view name) {
  for (const Operation& operation : operations) {
    for (const int size : operation.sizes) {
      if (nameOf(operation, size) != name) continue;
      count(operation, size);
      return true;
    }
  }
  return false;
}

}  // namespace
}  // namespace driver_feature::bench

int main(int argc, char** argv) {
  using driver_feature::bench::nameOf;
  driver_feature::bench::Operations operations;
  driver_feature::bench::addOperations(operations);
  if (argc == 2 && std::string_view(argv[1]) == "--list") {
    for (const auto& operation : operations) {
      for (const int size : operation.sizes) std::cout << nameOf(operation, size) << '\n';
    }
    return 0;
  }
  for (int i = 1; i < argc; ++i) {
    if (driver_feature::bench::countNamed(operations, argv[i])) continue;
    std::cerr << "no such operation: " << argv[i] << '\n';
    return 2;
  }
  return 0;
}
