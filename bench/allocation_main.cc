// Checks how often the operations ask for memory. Fails with a line for each
// that asks more often than allowed.

#include <algorithm>
#include <iostream>

#include "bench/allocations.h"
#include "bench/operation.h"

namespace driver_feature::bench {
namespace {

struct Limit {
  const char* operation;
  std::uint64_t most;
};

// A property's name of more than 15 characters is a text with memory of its
// own, which the functions that take a name have to make.
constexpr std::uint64_t kLongName = 1;

constexpr Limit kLimits[] = {
    {"read int", 0},
    {"read float", kLongName},
    {"read bool", 0},
    {"read text", kLongName},
    {"read choice", 0},
    {"change choice", 0},
    {"change int", 0},
    {"change float", kLongName},
    {"write bool", 0},
    {"change text", kLongName},
    {"find feature", 0},
    {"option by position", 0},
    {"notify", 0},
    {"serialize PostScript", 0},
    {"serialize PJL", 0},
    {"serialize numbers and texts", 0},
    {"change and serialize PostScript", 0},
    {"change and serialize PJL", 0},
};

std::uint64_t allocationsOf(const Operation& operation, int size) {
  const Step step = operation.prepare(size);
  for (int i = 0; i < 2; ++i) step.run();
  const std::uint64_t before = allocationCount();
  step.run();
  return allocationCount() - before;
}

bool keeps(const Operations& operations, const Limit& limit) {
  const auto found =
      std::find_if(operations.begin(), operations.end(),
                   [&limit](const Operation& each) { return each.name == limit.operation; });
  if (found == operations.end()) {
    std::cout << limit.operation << ": there is no such operation\n";
    return false;
  }
  bool good = true;
  for (const int size : {10, 1000}) {
    const std::uint64_t count = allocationsOf(*found, size);
    if (count <= limit.most) continue;
    std::cout << limit.operation << " with " << size << " features asks " << count
              << " times for memory, not " << limit.most << " times\n";
    good = false;
  }
  return good;
}

}  // namespace
}  // namespace driver_feature::bench

int main() {
  using namespace driver_feature::bench;
  Operations operations;
  addOperations(operations);
  bool good = true;
  for (const Limit& limit : kLimits) good = keeps(operations, limit) && good;
  return good ? 0 : 1;
}
