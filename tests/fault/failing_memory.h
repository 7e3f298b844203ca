// Memory that runs out: allocations of operator new and of libxml2, by the
// test program itself and by every library that it loads, fail where a test
// says so.
//
//   FailingMemory failing({.first = 7, .persistence = Persistence::kFromThenOn});
//
// Allocations of malloc() by others, such as the run-time system's own for an
// exception, never fail.
#ifndef TESTS_FAULT_FAILING_MEMORY_H_
#define TESTS_FAULT_FAILING_MEMORY_H_

#include <new>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace driver_feature::testing {

enum class Persistence { kOnce, kFromThenOn };

// Which allocations are counted and may fail.
enum class Allocations {
  kAll,
  kThatThrow,   // Operator new that throws, and libxml2's.
  kThatReturn,  // Operator new that returns null.
};

struct FailurePlan {
  int first = 0;  // The allocation that fails, counted from 0.
  Persistence persistence = Persistence::kOnce;
  Allocations allocations = Allocations::kAll;
};

// Memory fails by the plan while this lives. One at a time.
class FailingMemory {
 public:
  explicit FailingMemory(const FailurePlan& plan);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;
};

// Whether an allocation has failed since the last FailingMemory was made.
bool memoryHasFailed();

// While it lives, allocations neither count nor fail: for what a routine of a
// test does for itself.
class MemoryPause {
 public:
  MemoryPause();
  ~MemoryPause();
  MemoryPause(const MemoryPause&) = delete;
  MemoryPause& operator=(const MemoryPause&) = delete;

 private:
  bool active_;
};

// Runs `action` with failing memory. False when std::bad_alloc came out of it;
// any other exception goes on to the test.
template <class Action>
bool endsWithoutThrow(const FailurePlan& plan, const Action& action) {
  try {
    const FailingMemory failing(plan);
    action();
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

// Tests that run twice: memory fails once, and from an allocation on.
class MemoryFaultTest : public ::testing::TestWithParam<Persistence> {
 protected:
  // Calls `attempt` with the first allocation failing, then the second, and so
  // on, until an attempt had no allocation that failed. The test fails when
  // that takes fewer than `fewest` attempts: then nothing has been tried.
  template <class Attempt>
  void sweep(int fewest, Allocations allocations, const Attempt& attempt) {
    constexpr int kMost = 20000;
    for (int first = 0; first < kMost; ++first) {
      SCOPED_TRACE("allocation " + std::to_string(first));
      attempt(FailurePlan{first, GetParam(), allocations});
      if (HasFailure()) return;
      if (memoryHasFailed()) continue;
      EXPECT_GE(first, fewest);
      return;
    }
    ADD_FAILURE() << "more than " << kMost << " allocations";
  }

  template <class Attempt>
  void sweep(int fewest, const Attempt& attempt) {
    sweep(fewest, Allocations::kAll, attempt);
  }
};

inline std::string nameOfPersistence(const ::testing::TestParamInfo<Persistence>& info) {
  return info.param == Persistence::kOnce ? "Once" : "FromThenOn";
}

// Makes both tests of each test of a fixture.
#define INSTANTIATE_MEMORY_FAULTS(fixture)                                                         \
  INSTANTIATE_TEST_SUITE_P(Memory, fixture,                                                        \
                           ::testing::Values(::driver_feature::testing::Persistence::kOnce,        \
                                             ::driver_feature::testing::Persistence::kFromThenOn), \
                           ::driver_feature::testing::nameOfPersistence)

}  // namespace driver_feature::testing

#endif  // TESTS_FAULT_FAILING_MEMORY_H_
