// Memory that runs out while a description is loaded.

#include <unistd.h>

#include <gmock/gmock.h>

#include "fault/failing_memory.h"
#include "fault/faulty_host.h"

namespace driver_feature::testing {
namespace {

using ::testing::EndsWith;
using ::testing::ExitedWithCode;

// Five features, two groups of two more, and a dynamic group with its shape
// and two more.
constexpr int kObjects = 5 + 2 + 2 + 2 + 2;

class LoadMemoryTest : public MemoryFaultTest {
 protected:
  static std::string wholeModel() {
    FaultyHost host;
    host.loadAndComplete();
    return host.model();
  }
};
INSTANTIATE_MEMORY_FAULTS(LoadMemoryTest);

TEST_P(LoadMemoryTest, Load_NoMemory_LeavesTheSetAsItWasAndCanBeRepeated) {
  const std::string whole = wholeModel();
  sweep(300, Allocations::kThatThrow, [&](const FailurePlan& plan) {
    FaultyHost host;
    host.set();  // Making the set is not what fails here.
    const std::string empty = host.model();
    int result = -1;
    EXPECT_TRUE(endsWithoutThrow(plan, [&] { result = host.load(); }));
    if (result == 0) {
      EXPECT_TRUE(memoryHasFailed());
      EXPECT_EQ(host.model(), empty);
      ASSERT_EQ(host.load(), 1);
    }
    host.complete();
    EXPECT_EQ(host.model(), whole);
  });
}

TEST_P(LoadMemoryTest, Load_NoMemoryForTheSecondDescription_LeavesTheFirst) {
  sweep(300, Allocations::kThatThrow, [&](const FailurePlan& plan) {
    FaultyHost host;
    host.loadAndComplete();
    host.object(kCopies).setFeatureProperty(std::string("CurrentIntValue"), 7);
    const std::string before = host.model();
    int result = -1;
    EXPECT_TRUE(endsWithoutThrow(plan, [&] { result = host.load(); }));
    if (result == 0) {
      EXPECT_EQ(host.model(), before);
    } else {
      EXPECT_NE(host.model(), before);
    }
  });
}

TEST_P(LoadMemoryTest, FirstCall_NoMemory_ComesOutOrMakesTheSet) {
  sweep(1, [&](const FailurePlan& plan) {
    FaultyHost host;
    if (endsWithoutThrow(plan, [&] { host.set(); })) return;
    EXPECT_EQ(host.set().fetchNumberOfFeatures(), 0);
  });
}

using LoadMemoryDeathTest = LoadMemoryTest;
INSTANTIATE_MEMORY_FAULTS(LoadMemoryDeathTest);

TEST_P(LoadMemoryDeathTest, Load_NoMemoryForAnObject_EndsTheProcess) {
  for (int first = 0; first < kObjects; ++first) {
    SCOPED_TRACE(first);
    FaultyHost host;
    EXPECT_EXIT(
        {
          const FailingMemory failing({first, GetParam(), Allocations::kThatReturn});
          host.load();
          _exit(0);
        },
        ExitedWithCode(1), EndsWith("Feature Tag fatal error\n"));
  }
  FaultyHost host;
  const FailingMemory failing({kObjects, GetParam(), Allocations::kThatReturn});
  EXPECT_EQ(host.load(), 1);
  EXPECT_FALSE(memoryHasFailed());
}

}  // namespace
}  // namespace driver_feature::testing
