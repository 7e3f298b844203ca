#include "bench/allocations.h"

#include <cstddef>

// The run-time system's own functions, which the ones here replace.
extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_calloc(std::size_t count, std::size_t size);
extern "C" void* __libc_realloc(void* memory, std::size_t size);

namespace {

std::uint64_t count = 0;

}  // namespace

extern "C" void* malloc(std::size_t size) {
  ++count;
  return __libc_malloc(size);
}

extern "C" void* calloc(std::size_t number, std::size_t size) {
  ++count;
  return __libc_calloc(number, size);
}

extern "C" void* realloc(void* memory, std::size_t size) {
  ++count;
  return __libc_realloc(memory, size);
}

namespace driver_feature::bench {

std::uint64_t allocationCount() {
  return count;
}

}  // namespace driver_feature::bench
