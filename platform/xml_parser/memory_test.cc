// Memory that runs out, at each allocation of the writer in turn.

#include "support/failing_memory.h"
#include "ticket_test.h"

namespace {

using driver_feature::testing::failingMemory;
using driver_feature::testing::TicketTest;

class TicketMemoryTest : public TicketTest {
 protected:
  // A ticket of each kind of node. True when every node could be made.
  bool writeTicket(std::string& output) {
    start();
    _xmlNode* first = command("copies", "integer", "<1>", true);
    _xmlNode* parent = group("media", "collection", false);
    _xmlNode* inner = parent != nullptr ? childGroup(parent, "size", "collection") : nullptr;
    _xmlNode* last = inner != nullptr ? childCommand(inner, "x", "integer", "5") : nullptr;
    writer_.serializeTicket(output);
    return first != nullptr && last != nullptr;
  }

  // What was written when one allocation failed.
  void expectWholeOrReported(bool isComplete, const std::string& output, const std::string& whole) {
    const auto lines = log_.take();
    if (isComplete && output == whole) return;
    EXPECT_FALSE(lines.empty());
    if (output.empty()) return;
    EXPECT_NE(readBack(output), nullptr) << output;
    EXPECT_EQ(output.find("value=\"\""), std::string::npos) << output;
  }
};

TEST_F(TicketMemoryTest, Write_OneAllocationFails_IsLoggedAndTheTicketWholeOrEmpty) {
  std::string whole;
  ASSERT_TRUE(writeTicket(whole));
  ASSERT_NE(whole, "");
  log_.take();
  long failures = 0;
  for (bool hasFailed = true; hasFailed; ++failures) {
    SCOPED_TRACE(failures);
    std::string output = "before";
    failingMemory.failAfter(failures);
    const bool isComplete = writeTicket(output);
    hasFailed = failingMemory.hasFailed();
    failingMemory.stop();
    EXPECT_NE(isComplete && output == whole, hasFailed);
    expectWholeOrReported(isComplete, output, whole);
  }
  EXPECT_GT(failures, 10);
}

}  // namespace
