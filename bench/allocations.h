// Counts how often the process has allocated memory, through new or malloc.
#ifndef BENCH_ALLOCATIONS_H_
#define BENCH_ALLOCATIONS_H_

#include <cstdint>

namespace driver_feature::bench {

std::uint64_t allocationCount();

}  // namespace driver_feature::bench

#endif  // BENCH_ALLOCATIONS_H_
