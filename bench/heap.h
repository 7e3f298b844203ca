// Puts the heap into a known state before a measurement.
#ifndef BENCH_HEAP_H_
#define BENCH_HEAP_H_

#include <malloc.h>

namespace driver_feature::bench {

// Merges the blocks that have been freed and keeps their memory. Called before
// each run that leaves memory allocated: otherwise the cost of a load would
// vary by a tenth with what was freed before it, and when.
inline void settleHeap() {
  constexpr int kKeptBytes = 1 << 30;
  mallopt(M_TRIM_THRESHOLD, kKeptBytes);  // Any setting merges the free blocks first.
}

}  // namespace driver_feature::bench

#endif  // BENCH_HEAP_H_
