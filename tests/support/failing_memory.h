// Makes allocations of a test program fail. To be included by one source file
// of a program: it defines the program's operators new and delete.
//
//   failingMemory.failAfter(2);  // Two allocations succeed, the third fails.
//   EXPECT_THROW(feature.setFeatureProperty(...), std::bad_alloc);
//
// An allocation that has failed is the last one to fail.
#ifndef TESTS_SUPPORT_FAILING_MEMORY_H_
#define TESTS_SUPPORT_FAILING_MEMORY_H_

#include <cstdlib>
#include <new>

namespace driver_feature::testing {

// Of one kind of allocation: those that throw, or those that return null.
class FailingMemory {
 public:
  void failAfter(long successes) { left_ = successes; }
  void stop() { left_ = kNever; }

  // Whether the allocation that was to fail has failed.
  bool hasFailed() const { return left_ == kNever; }

  // For the operators: whether the allocation at hand fails.
  bool failsNow() {
    if (left_ == kNever) return false;
    if (left_ > 0) {
      --left_;
      return false;
    }
    left_ = kNever;
    return true;
  }

 private:
  static constexpr long kNever = -1;
  long left_ = kNever;
};

inline constinit FailingMemory failingMemory;
inline constinit FailingMemory failingNothrowMemory;

// Calls `attempt` with its first allocation failing, then with its second,
// until it gets through without a failure. Returns the number of failures.
template <class Attempt>
long failEachAllocation(const Attempt& attempt) {
  for (long failures = 0;; ++failures) {
    failingMemory.failAfter(failures);
    attempt();
    const bool failed = failingMemory.hasFailed();
    failingMemory.stop();
    if (!failed) return failures;
  }
}

}  // namespace driver_feature::testing

// Inlined into callers, the pairs would look mismatched to GCC.
#define NOINLINE __attribute__((noinline))

NOINLINE void* operator new(std::size_t size) {
  if (driver_feature::testing::failingMemory.failsNow()) throw std::bad_alloc();
  void* memory = std::malloc(size != 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

NOINLINE void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  if (driver_feature::testing::failingNothrowMemory.failsNow()) return nullptr;
  return std::malloc(size != 0 ? size : 1);
}

// Those of arrays too: a checked build's own do not call the ones above.
NOINLINE void* operator new[](std::size_t size) {
  return ::operator new(size);
}
NOINLINE void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept {
  return ::operator new(size, tag);
}

NOINLINE void operator delete(void* memory) noexcept {
  std::free(memory);
}
NOINLINE void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
NOINLINE void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept {
  std::free(memory);
}
NOINLINE void operator delete[](void* memory) noexcept {
  std::free(memory);
}
NOINLINE void operator delete[](void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
NOINLINE void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept {
  std::free(memory);
}

#undef NOINLINE

#endif  // TESTS_SUPPORT_FAILING_MEMORY_H_
